#include "desktop/surface.h"

#include <utility>

#include "desktop/view_builder.h"

namespace brevant {

std::optional<Surface> surfaceFromName(const QString& name) {
  static constexpr std::pair<const char*, Surface> kNames[] = {
      {"small", Surface::kSmall},
      {"medium", Surface::kMedium},
      {"lock-screen", Surface::kLockScreen},
      {"island-compact", Surface::kIslandCompact},
      {"island-minimal", Surface::kIslandMinimal},
      {"island-expanded", Surface::kIslandExpanded},
  };
  for (const auto& [known, surface] : kNames) {
    if (name == QLatin1String(known)) return surface;
  }
  return std::nullopt;
}

std::unique_ptr<QWidget> buildSurface(Surface, const QJsonObject& answer,
                                      const DrawingContext& context) {
  return buildView(answer, context);
}

}  // namespace brevant
