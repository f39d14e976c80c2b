#pragma once

#include <QAbstractButton>
#include <memory>

namespace brevant {

// A button or a link of a view tree: its label is the one child that fills it. It looks pressed
// while it is, shows a ring when the keyboard reaches it, and is named for a screen reader.
//
// The host finds the controls of a card with findChildren<Control*>() and tells each how its
// intent fares. A busy control ignores further clicks; a failed one shows so until told otherwise.
class Control : public QAbstractButton {
  Q_OBJECT
 public:
  enum class State { kReady, kBusy, kFailed };

  explicit Control(std::unique_ptr<QWidget> label, QWidget* parent = nullptr);

  [[nodiscard]] State state() const { return state_; }
  void setState(State);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent*) override;
  void nextCheckState() override;

 private:
  State state_ = State::kReady;
};

}  // namespace brevant
