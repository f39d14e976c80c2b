// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QObject>
#include <QStringList>
#include <chrono>
#include <functional>

#include "desktop/drawing_context.h"

namespace brevant {

// How a run of `brevant` ended.
struct Answer {
  enum class Outcome {
    kDone,     // exit code 0, and JSON where JSON was asked for
    kNotDone,  // exit code 1: it says itself what was not done, and why
    kFailed,   // it could not be started, crashed, hung or answered garbage
  };

  Outcome outcome = Outcome::kFailed;
  QJsonValue value;  // what was asked for
  QString error;     // one line for people, unless it is done
};

// Runs `brevant`, the only way in which this program reads or changes anything. Every run is a
// process of its own, so whatever goes wrong in it stays there; no call waits for one. A run that
// takes longer than `patience` is killed. Those still running when the client goes are ended with
// it, without an answer.
//
// Lives on the thread of the widgets. An answer comes from the event loop, never from within the
// call, and not at all once its receiver is gone.
class BrevantClient : public QObject {
 public:
  struct Options {
    QString program;            // findBrevant() knows it
    QString container;          // an absolute path
    QStringList globalOptions;  // further ones that every run is given
    ColorScheme colorScheme = ColorScheme::kLight;
    std::chrono::milliseconds patience = std::chrono::seconds(5);
  };
  using Done = std::function<void(const Answer&)>;

  explicit BrevantClient(Options options, QObject* parent = nullptr);

  // Asks a question that is answered in JSON.
  void ask(const QStringList& arguments, QObject* receiver, Done done);
  // Has something done; what is printed does not matter.
  void perform(const QStringList& arguments, QObject* receiver, Done done);

  void setColorScheme(ColorScheme scheme) { options_.colorScheme = scheme; }
  [[nodiscard]] const Options& options() const { return options_; }

 private:
  [[nodiscard]] QStringList globalOptions() const;

  Options options_;
};

}  // namespace brevant
