#include "desktop/view_builder.h"

namespace brevant {

std::unique_ptr<QWidget> buildView(const QJsonObject&, const DrawingContext&) {
  return std::make_unique<QWidget>();
}

}  // namespace brevant
