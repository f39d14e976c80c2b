// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QString>
#include <QTimer>

#include "desktop/card_window.h"

namespace brevant {

// The Dynamic Island: compact while one Live Activity runs, a row of minimal ones while several do.
// One opens when it is clicked, pointed at for a moment, or chosen with the keyboard; it closes
// when the pointer leaves, at a click beside its controls, and with Escape.
class IslandWindow : public CardWindow {
  Q_OBJECT
 public:
  explicit IslandWindow(const DrawingContext& drawing);

  // `presentations` in the order they were started.
  void showActivities(const QJsonArray& presentations, const QString& trouble);

  [[nodiscard]] bool isExpanded() const { return !expandedId_.isEmpty(); }
  [[nodiscard]] QString spokenText() const override;

 protected:
  void takeClick(QPoint position) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void expand(const QString& id);
  void collapse() { expand({}); }
  void collapseByKeyboard();
  void draw();
  [[nodiscard]] std::unique_ptr<QWidget> makePills();
  [[nodiscard]] QJsonObject presentation(const QString& id) const;

  QJsonArray presentations_;
  QString expandedId_;  // empty: none is open
  QString pointedAtId_;
  bool wasJustClosed_ = false;  // by a click; until the pointer leaves
  QTimer hover_, leave_;
};

}  // namespace brevant
