#include "desktop/banner_window.h"

#include <QJsonObject>
#include <QVBoxLayout>

#include "desktop/spoken.h"
#include "desktop/surface.h"

namespace brevant {

BannerWindow::BannerWindow(const DrawingContext& drawing)
    : CardWindow(WindowKind::kLockScreen, Anchor::kTopLeft, drawing) {}

void BannerWindow::showActivities(const QJsonArray& presentations, const QString& trouble) {
  presentations_ = presentations;
  std::unique_ptr<QWidget> banners;
  if (!presentations.isEmpty()) {
    banners = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(banners.get());
    layout->setContentsMargins({});
    layout->setSpacing(0);
    for (const QJsonValue& presentation : presentations)
      layout->addWidget(
          buildSurface(Surface::kLockScreen, presentation.toObject(), drawing()).release());
  }
  setContent(std::move(banners));
  setTrouble(trouble);
}

QString BannerWindow::spokenText() const {
  return spokenPresentations(presentations_, drawing().now());
}

}  // namespace brevant
