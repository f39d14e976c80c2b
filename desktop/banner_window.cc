// SPDX-License-Identifier: MIT
#include "desktop/banner_window.h"

#include <QJsonObject>
#include <utility>
#include <vector>

#include "desktop/card_row.h"
#include "desktop/spoken.h"
#include "desktop/surface.h"

namespace brevant {

BannerWindow::BannerWindow(const DrawingContext& drawing)
    : CardWindow(WindowKind::kLockScreen, Anchor::kTopLeft, drawing) {}

void BannerWindow::showActivities(const QJsonArray& presentations, const QString& trouble) {
  presentations_ = presentations;
  std::unique_ptr<QWidget> banners;
  if (!presentations.isEmpty()) {
    std::vector<std::unique_ptr<QWidget>> cards;
    for (const QJsonValue& presentation : presentations)
      cards.push_back(buildSurface(Surface::kLockScreen, presentation.toObject(), drawing()));
    banners = makeCardRow(std::move(cards), Qt::Vertical, drawing().locale.textDirection());
  }
  setContent(std::move(banners));
  setTrouble(trouble);
}

QString BannerWindow::spokenText() const {
  return spokenPresentations(presentations_, drawing().now());
}

}  // namespace brevant
