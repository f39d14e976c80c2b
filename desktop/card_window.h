// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>

#include "desktop/control.h"
#include "desktop/drawing_context.h"
#include "desktop/window_kind.h"

class QLabel;

namespace brevant {

// A window without a frame that is as large as the card in it. It can be dragged to any place, says
// for a moment what did not work, and dims while what it shows may be out of date. It is on screen
// while it is wanted and has a card.
//
// Whoever made it does what it asks for, and tells it how that went.
class CardWindow : public QWidget {
  Q_OBJECT
 public:
  // The point of the window that stays in place when the size changes.
  enum class Anchor { kTopLeft, kTopCentre };

  // Of `drawing` the functions for intents and links are the window's own.
  CardWindow(WindowKind kind, Anchor anchor, DrawingContext drawing);

  [[nodiscard]] WindowKind kind() const { return kind_; }
  [[nodiscard]] bool isWanted() const { return wanted_; }
  void setWanted(bool wanted);
  void setOnTop(bool onTop);
  // Puts the anchor there, or as near as the screen allows.
  void placeAt(QPoint anchor);
  // For the next card that is built.
  void setColorScheme(ColorScheme scheme) { drawing_.colorScheme = scheme; }

  // Why the card may be out of date; empty when it is not.
  void setTrouble(const QString& why);
  // Says something for a moment.
  void say(const QString& message);
  // The intent that was asked for has begun; the control that asked shows it, and a failure as long
  // as it is said why.
  void beginIntent();
  void endIntent(const QString& failure);

  // What a screen reader says when the window is reached, such as "Reading, 1 hour 5 minutes".
  [[nodiscard]] virtual QString spokenText() const = 0;

 Q_SIGNALS:
  void intentAsked(const brevant::IntentCall& call);
  void linkAsked(const QString& destination);
  void menuAsked(QPoint position);
  // People have moved it.
  void moved(QPoint anchor);
  // People have closed it.
  void dismissed();

 protected:
  // Null: there is nothing to show.
  void setContent(std::unique_ptr<QWidget> content);
  [[nodiscard]] QWidget* content() const { return content_; }
  [[nodiscard]] const DrawingContext& drawing() const { return drawing_; }
  // A click that was no drag and met no control.
  virtual void takeClick(QPoint) {}

  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  [[nodiscard]] bool coversTimer(const QRect& place) const;
  void watchControls();
  void setFailedControl(Control::State state);
  void fit();
  void cutOut();
  void dim();
  void updateVisibility();

  WindowKind kind_;
  Anchor anchor_;
  DrawingContext drawing_;
  QWidget* content_ = nullptr;
  QLabel* notice_;
  QTimer noticeEnd_, movedEnd_;
  QString trouble_;
  QString failedControl_;  // its object name
  bool wanted_ = false, intentRuns_ = false, dragged_ = false, wasMoved_ = false;
  QPoint anchorPoint_, placedAt_;
  std::optional<QPoint> pressedAt_;  // in the window, while a drag may begin
};

}  // namespace brevant
