// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

#include "desktop/card_window.h"

namespace brevant {

// The small or the medium widget of the running activity.
class WidgetWindow : public CardWindow {
  Q_OBJECT
 public:
  WidgetWindow(WindowKind kind, const DrawingContext& drawing);

  // Draws an entry of the timeline. `trouble` says why it may be out of date, or why there is none.
  void showEntry(const QJsonObject& entry, const QString& trouble);
  // Draws what may be the placeholder, or nothing, instead: its controls do nothing, since nothing
  // of it is in the log, and what is read of it is why.
  void showPlaceholder(const QJsonObject& placeholder, const QString& trouble);

  [[nodiscard]] QString spokenText() const override;

 private:
  void draw(const QJsonObject& entry);

  QJsonObject entry_;
};

}  // namespace brevant
