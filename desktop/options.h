// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <variant>

#include "desktop/drawing_context.h"
#include "desktop/surface.h"

namespace brevant {

// What the command line of `brevant-desktop` asks for.
struct Options {
  // To draw one picture and end; without it, to live on the desktop.
  struct Picture {
    Surface surface;
    QString file;
    double scale = 2;
  };

  std::optional<Picture> picture;
  QStringList command;                     // for `brevant` to do, and end; empty: none
  std::optional<ColorScheme> colorScheme;  // absent: the desktop's, or light for a picture
  std::optional<double> now;               // the clock stands still there
  QStringList forBrevant;                  // the global options, to be handed on to `brevant`
};

// What to print and with which exit code to end, instead of starting.
struct Refusal {
  QString message;
  int exitCode;
};

// `arguments` starts with the program's name.
[[nodiscard]] std::variant<Options, Refusal> parseOptions(const QStringList& arguments);

}  // namespace brevant
