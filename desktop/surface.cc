// SPDX-License-Identifier: MIT
#include "desktop/surface.h"

#include <QHBoxLayout>
#include <QJsonArray>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/arrangement.h"
#include "desktop/boxes.h"
#include "desktop/card.h"
#include "desktop/control.h"
#include "desktop/timer_text.h"
#include "desktop/translate.h"
#include "desktop/view_builder.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize kSmallSize(158, 158), kMediumSize(338, 158);
constexpr double kWidgetRadius = 22;

constexpr int kBannerWidth = 371, kLeastBannerHeight = 84, kMostBannerHeight = 160;
constexpr double kBannerRadius = 26;

constexpr int kIslandHeight = 36;
constexpr int kLeastIslandWidth = 120, kMostIslandWidth = kBannerWidth;
constexpr int kSideInset = 12, kIslandGap = 16;
constexpr double kExpandedRadius = 42;
constexpr QMargins kExpandedInsets(20, 16, 20, 16);
constexpr int kExpandedGap = 8;

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

// A view of a Live Activity, whose room for a phone's camera and corners is not needed here.
Widget liveView(const QJsonObject& answer, const QJsonValue& view, const QJsonObject& insets,
                DrawingContext context) {
  QJsonObject arranged = withInsets(withoutBlanks(view.toObject()), insets);
  const QJsonValue halt = answer[kHalt];
  if (halt.isObject()) {
    const Halt state = halt["state"_L1] == "paused"_L1 ? Halt::kPaused : Halt::kStopped;
    const bool isTimeKnown = halt["at"_L1].isDouble();
    arranged = halted(arranged, {state, answer["contentState"_L1]["guid"_L1].toString(),
                                 answer["id"_L1].toString(), isTimeKnown});
    if (isTimeKnown) context.now = [at = halt["at"_L1].toDouble()] { return at; };
    context.isStill = true;
  }
  return buildView(arranged, context);
}

Widget lockScreen(const QJsonObject& answer, const DrawingContext& context) {
  // What hangs from the last line reaches into its inset.
  const QJsonObject insets{
      {u"top"_s, 14}, {u"leading"_s, 16}, {u"bottom"_s, 13}, {u"trailing"_s, 16}};
  return banner(
      liveView(answer, withTimesAtEnd(answer["lockScreen"_L1].toObject()), insets, context),
      widgetLook(context.colorScheme, kBannerRadius));
}

// As wide as its texts; when there is not enough room the name is cut.
Widget compactIsland(const QJsonObject& answer, const DrawingContext& context) {
  const QJsonObject island = answer["dynamicIsland"_L1].toObject();
  const QJsonObject line{{u"view"_s, u"HStack"_s},
                         {u"children"_s, QJsonArray{island["compactLeading"_L1]}},
                         {u"modifiers"_s, QJsonArray{QJsonObject{{u"lineLimit"_s, 1}}}}};
  Widget leading = liveView(answer, line, {}, context);
  const QJsonObject time = atTrailingEnd(island["compactTrailing"_L1].toObject());
  Widget trailing = liveView(answer, time, {}, context);
  const int wanted =
      2 * kSideInset + kIslandGap + leading->sizeHint().width() + trailing->sizeHint().width();
  auto content = std::make_unique<QWidget>();
  auto* layout = new QHBoxLayout(content.get());
  layout->setContentsMargins(kSideInset, 0, kSideInset, 0);
  layout->setSpacing(kIslandGap);
  layout->addWidget(leading.release(), 1, Qt::AlignVCenter);
  layout->addWidget(trailing.release(), 0, Qt::AlignVCenter);
  return makeCard(std::move(content),
                  {std::clamp(wanted, kLeastIslandWidth, kMostIslandWidth), kIslandHeight},
                  islandLook(kIslandHeight / 2.0));
}

Widget expandedIsland(const QJsonObject& answer, const DrawingContext& context) {
  const QJsonValue regions = answer["dynamicIsland"_L1]["expanded"_L1];
  const auto region = [&](QLatin1StringView name) {
    return liveView(answer, regions[name], {}, context).release();
  };
  auto content = std::make_unique<QWidget>();
  auto* rows = new QVBoxLayout(content.get());
  rows->setContentsMargins(kExpandedInsets);
  rows->setSpacing(kExpandedGap);
  auto* top = new QHBoxLayout;
  top->setSpacing(kIslandGap);
  top->addWidget(region("leading"_L1), 1);
  top->addWidget(region("trailing"_L1));
  rows->addLayout(top);
  rows->addWidget(region("bottom"_L1));
  return banner(std::move(content), islandLook(kExpandedRadius));
}

Widget minimalIsland(const QJsonObject& answer, const DrawingContext& context) {
  return makeCard(liveView(answer, answer["dynamicIsland"_L1]["minimal"_L1], {}, context),
                  {kIslandHeight, kIslandHeight}, islandLook(kIslandHeight / 2.0));
}

QString sinceWhen(const QJsonObject& entry, const DrawingContext& context) {
  if (!entry["start"_L1].isDouble()) return {};
  const double start = entry["start"_L1].toDouble();
  return translate("since %1").arg(timerText(TimerStyle::kTime, start, start, context.locale));
}

// An entry without an activity says so, and its timers stand at nothing.
Widget widgetCard(const QJsonObject& entry, QLatin1StringView family, QSize size,
                  DrawingContext context) {
  context.largestImage = std::min(size.width(), size.height()) / 3.0;
  const bool isNothing = entry["guid"_L1] == ""_L1;
  QJsonObject view = entry["views"_L1][family].toObject();
  view = family == "systemSmall"_L1
             ? arrangedSmall(std::move(view))
             : arrangedMedium(std::move(view), isNothing ? QString() : sinceWhen(entry, context));
  if (isNothing) {
    view = namedWhereNothingRuns(std::move(view));
    context.isStill = true;
    context.now = [start = entry["start"_L1].toDouble()] { return start; };
  }
  const int others = entry[kOthers].toInt();
  if (others > 0) view = countingOthers(std::move(view), entry["name"_L1].toString(), others);
  return makeCard(buildView(view, context), size, widgetLook(context.colorScheme, kWidgetRadius));
}

Widget build(Surface surface, const QJsonObject& answer, const DrawingContext& context) {
  switch (surface) {
    case Surface::kSmall:
      return widgetCard(answer, "systemSmall"_L1, kSmallSize, context);
    case Surface::kMedium:
      return widgetCard(answer, "systemMedium"_L1, kMediumSize, context);
    case Surface::kLockScreen:
      return lockScreen(answer, context);
    case Surface::kIslandCompact:
      return compactIsland(answer, onBlack(context));
    case Surface::kIslandMinimal:
      return minimalIsland(answer, onBlack(context));
    case Surface::kIslandExpanded:
      return expandedIsland(answer, onBlack(context));
  }
  return nullptr;
}

QString titleOf(const QString& operation) {
  if (operation == "pause"_L1) return translate("Pause %1");
  if (operation == "stop"_L1) return translate("Stop %1");
  if (operation == "resume"_L1) return translate("Resume %1");
  return operation == "dismiss"_L1 ? translate("Dismiss %1") : QString();
}

// "Stop Reading": which of several cards it stops is seen, but not heard.
void nameControls(const QWidget& card, const QString& name) {
  for (Control* control : card.findChildren<Control*>()) {
    const QString title = titleOf(control->property(kOperation).toString());
    if (!title.isEmpty() && !name.isEmpty()) control->setAccessibleName(title.arg(name));
    control->setToolTip(control->accessibleName());
  }
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
  const QString name = answer["name"_L1].toString();
  nameControls(*card, name.isEmpty() ? answer["contentState"_L1]["typeName"_L1].toString() : name);
  card->setLayoutDirection(context.locale.textDirection());
  return card;
}

}  // namespace brevant
