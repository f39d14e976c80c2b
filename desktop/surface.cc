// SPDX-License-Identifier: MIT
#include "desktop/surface.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/arrangement.h"
#include "desktop/boxes.h"
#include "desktop/card.h"
#include "desktop/view_builder.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize kSmallSize(158, 158), kMediumSize(338, 158);
constexpr double kWidgetRadius = 22;

constexpr int kBannerWidth = 371, kLeastBannerHeight = 84, kMostBannerHeight = 160;
constexpr double kBannerRadius = 26;

constexpr int kIslandHeight = 37;
constexpr int kCameraWidth = 112;
constexpr int kLeastSideWidth = 52, kMostSideWidth = 170;
constexpr int kSideInset = 12;
constexpr double kExpandedRadius = 42;
constexpr int kExpandedInset = 8;  // the round corners need more than the regions' own paddings

using Widget = std::unique_ptr<QWidget>;

CardLook widgetLook(ColorScheme scheme, double radius) {
  if (scheme == ColorScheme::kDark) {
    return {QColor(28, 28, 30), QColor(58, 58, 60), radius, 0.5};
  }
  return {Qt::white, QColor(228, 228, 232), radius, 0.22};
}

CardLook islandLook(double radius) {
  return {Qt::black, QColor(38, 38, 40), radius, 0.4};
}

// The island is black in every colour scheme.
DrawingContext onBlack(DrawingContext context) {
  context.colorScheme = ColorScheme::kDark;
  return context;
}

Widget banner(Widget content, const CardLook& look) {
  const int wanted = content->hasHeightForWidth() ? content->heightForWidth(kBannerWidth)
                                                  : content->sizeHint().height();
  const int height = std::clamp(wanted, kLeastBannerHeight, kMostBannerHeight);
  return makeCard(std::move(content), {kBannerWidth, height}, look);
}

// One side of the closed island; what is in it hugs the outer end.
Widget islandSide(Widget view, int width, Qt::Alignment end) {
  auto side = std::make_unique<QWidget>();
  side->setFixedSize(width, kIslandHeight);
  auto* layout = new QHBoxLayout(side.get());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(view.release(), 0, end | Qt::AlignVCenter);
  return side;
}

// Both sides are equally wide, so that the camera stays in the middle.
Widget compactIsland(const QJsonObject& island, const DrawingContext& context) {
  Widget leading = buildView(island["compactLeading"_L1].toObject(), context);
  const bool mirrored = context.locale.textDirection() == Qt::RightToLeft;
  Widget trailing = paddingAround(buildView(island["compactTrailing"_L1].toObject(), context),
                                  {mirrored ? kSideInset : 0, 0, mirrored ? 0 : kSideInset, 0});
  const int wanted = std::max(leading->sizeHint().width(), trailing->sizeHint().width());
  const int side = std::clamp(wanted, kLeastSideWidth, kMostSideWidth);
  auto content = std::make_unique<QWidget>();
  auto* layout = new QHBoxLayout(content.get());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(islandSide(std::move(leading), side, Qt::AlignLeft).release());
  layout->addSpacing(kCameraWidth);
  layout->addWidget(islandSide(std::move(trailing), side, Qt::AlignRight).release());
  return makeCard(std::move(content), {2 * side + kCameraWidth, kIslandHeight},
                  islandLook(kIslandHeight / 2.0));
}

Widget expandedIsland(const QJsonObject& regions, const DrawingContext& context) {
  const auto region = [&](QLatin1StringView name) {
    return buildView(regions[name].toObject(), context).release();
  };
  auto content = std::make_unique<QWidget>();
  auto* rows = new QVBoxLayout(content.get());
  rows->setContentsMargins(kExpandedInset, kExpandedInset, kExpandedInset, 0);
  rows->setSpacing(0);
  auto* top = new QHBoxLayout;
  top->addWidget(region("leading"_L1));
  top->addStretch();
  top->addWidget(region("trailing"_L1));
  top->addSpacing(kExpandedInset);
  rows->addLayout(top);
  rows->addWidget(region("bottom"_L1));
  return banner(std::move(content), islandLook(kExpandedRadius));
}

// An entry without an activity says so, and its timers stand at nothing.
Widget widgetCard(const QJsonObject& entry, QLatin1StringView family, QSize size,
                  DrawingContext context) {
  context.largestImage = std::min(size.width(), size.height()) / 3.0;
  QJsonObject view = entry["views"_L1][family].toObject();
  if (entry["guid"_L1] == ""_L1) {
    view = namedWhereNothingRuns(std::move(view));
    context.isStill = true;
    context.now = [start = entry["start"_L1].toDouble()] { return start; };
  }
  const int others = entry[kOthers].toInt();
  if (others > 0) view = countingOthers(std::move(view), entry["name"_L1].toString(), others);
  return makeCard(buildView(view, context), size, widgetLook(context.colorScheme, kWidgetRadius));
}

Widget minimalIsland(const QJsonObject& island, const DrawingContext& context) {
  return makeCard(buildView(island["minimal"_L1].toObject(), context),
                  {kIslandHeight, kIslandHeight}, islandLook(kIslandHeight / 2.0));
}

Widget build(Surface surface, const QJsonObject& answer, const DrawingContext& context) {
  const QJsonObject island = answer["dynamicIsland"_L1].toObject();
  switch (surface) {
    case Surface::kSmall:
      return widgetCard(answer, "systemSmall"_L1, kSmallSize, context);
    case Surface::kMedium:
      return widgetCard(answer, "systemMedium"_L1, kMediumSize, context);
    case Surface::kLockScreen:
      return banner(buildView(answer["lockScreen"_L1].toObject(), context),
                    widgetLook(context.colorScheme, kBannerRadius));
    case Surface::kIslandCompact:
      return compactIsland(island, onBlack(context));
    case Surface::kIslandMinimal:
      return minimalIsland(island, onBlack(context));
    case Surface::kIslandExpanded:
      return expandedIsland(island["expanded"_L1].toObject(), onBlack(context));
  }
  return nullptr;
}

}  // namespace

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
    if (name == QLatin1StringView(known)) return surface;
  }
  return std::nullopt;
}

std::unique_ptr<QWidget> buildSurface(Surface surface, const QJsonObject& answer,
                                      const DrawingContext& context) {
  Widget card = build(surface, answer, context);
  card->setLayoutDirection(context.locale.textDirection());
  return card;
}

}  // namespace brevant
