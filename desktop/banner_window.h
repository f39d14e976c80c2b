// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>

#include "desktop/card_window.h"

namespace brevant {

// The lock-screen banners of the running Live Activities, one below the other as on a lock screen.
class BannerWindow : public CardWindow {
  Q_OBJECT
 public:
  explicit BannerWindow(const DrawingContext& drawing);

  // `presentations` in the order they were started.
  void showActivities(const QJsonArray& presentations, const QString& trouble);

  [[nodiscard]] QString spokenText() const override;

 private:
  QJsonArray presentations_;
};

}  // namespace brevant
