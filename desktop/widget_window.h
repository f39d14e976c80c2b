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

  [[nodiscard]] QString spokenText() const override;

 private:
  QJsonObject entry_;
};

}  // namespace brevant
