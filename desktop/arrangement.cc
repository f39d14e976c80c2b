// SPDX-License-Identifier: MIT
#include "desktop/arrangement.h"

#include <QJsonArray>
#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// A hostile tree is cut off further down anyway, when it is built.
constexpr int kDeepest = 16;
constexpr int kSmallIcon = 20;
constexpr int kLargeDescent = 10, kSmallDescent = 4;
constexpr double kSecondary = 0.6;  // how opaque what matters less is
constexpr double kHalted = 0.5;

// What takes a node's place; absent where the node stays, and is looked into.
using Change = std::function<std::optional<QJsonValue>(const QJsonObject&)>;

// Every node that `change` takes gets replaced, by nothing where that is null.
QJsonValue changed(QJsonObject node, const Change& change, int depth = 0) {
  if (auto instead = change(node)) return *std::move(instead);
  if (depth >= kDeepest) return node;
  for (const auto& part : {u"label"_s, u"title"_s, u"icon"_s})
    if (node.contains(part)) node[part] = changed(node[part].toObject(), change, depth + 1);
  if (!node.contains("children"_L1)) return node;
  QJsonArray children;
  for (const QJsonValue& child : node["children"_L1].toArray())
    if (const QJsonValue kept = changed(child.toObject(), change, depth + 1); !kept.isNull())
      children << kept;
  node["children"_L1] = children;
  return node;
}

// The same for the first text with those letters alone.
QJsonObject withTextChanged(QJsonObject view, const QString& letters,
                            const std::function<QJsonObject(const QJsonObject&)>& change) {
  bool isDone = false;
  const auto once = [&](const QJsonObject& node) -> std::optional<QJsonValue> {
    if (isDone || node["view"_L1] != "Text"_L1 || node["text"_L1] != letters) return std::nullopt;
    isDone = true;
    return change(node);
  };
  return changed(std::move(view), once).toObject();
}

QJsonObject with(QJsonObject node, const QJsonObject& modifier) {
  QJsonArray modifiers = node["modifiers"_L1].toArray();
  modifiers << modifier;
  node["modifiers"_L1] = modifiers;
  return node;
}

QJsonObject text(const QString& letters, const QString& font) {
  return {{u"view"_s, u"Text"_s},
          {u"text"_s, letters},
          {u"modifiers"_s,
           QJsonArray{QJsonObject{{u"font"_s, QJsonObject{{u"style"_s, font}}}},
                      QJsonObject{{u"monospacedDigit"_s, true}}, QJsonObject{{u"lineLimit"_s, 1}},
                      QJsonObject{{u"opacity"_s, kSecondary}}}}};
}

QJsonObject row(const QJsonArray& children, int spacing) {
  return {{u"view"_s, u"HStack"_s}, {u"spacing"_s, spacing}, {u"children"_s, children}};
}

QJsonObject spacer() {
  return {{u"view"_s, u"Spacer"_s}};
}

bool isStack(const QJsonValue& node, QLatin1StringView type, qsizetype least) {
  return node["view"_L1] == type && node["children"_L1].toArray().size() >= least;
}

// An icon and a name, side by side.
bool isHeading(const QJsonValue& node) {
  return isStack(node, "HStack"_L1, 2) && node["children"_L1][0]["view"_L1] == "Image"_L1;
}

// "From : 10:51"
bool isTimeOfDay(const QJsonObject& node) {
  return isStack(node, "HStack"_L1, 2) && node["children"_L1][1]["style"_L1] == "time"_L1;
}

}  // namespace

QJsonObject namedWhereNothingRuns(QJsonObject view) {
  return withTextChanged(std::move(view), u""_s, [](QJsonObject name) {
    name["text"_L1] = translate("complication.no_running");
    return name;
  });
}

QJsonObject countingOthers(QJsonObject view, const QString& name, int others) {
  return withTextChanged(std::move(view), name, [others](const QJsonObject& text) {
    QJsonObject count = with(text, {{u"opacity"_s, kSecondary}});
    count["text"_L1] = u'+' + QString::number(others);
    return row({text, count}, 6);
  });
}

QJsonObject arrangedSmall(QJsonObject view) {
  QJsonArray rows = view["children"_L1].toArray();
  if (!isStack(view, "VStack"_L1, 2) || !isHeading(rows[0])) return view;
  QJsonObject icon = rows[0]["children"_L1][0].toObject();
  const double width = icon["image"_L1]["width"_L1].toDouble(1);
  const double height = icon["image"_L1]["height"_L1].toDouble(1);
  const double scale = kSmallIcon / std::max({width, height, 1.0});
  const QJsonObject frame{{u"width"_s, scale * width}, {u"height"_s, scale * height}};
  icon["modifiers"_L1] =
      QJsonArray{QJsonObject{{u"resizable"_s, true}}, QJsonObject{{u"frame"_s, frame}},
                 QJsonObject{{u"padding"_s, QJsonObject{{u"bottom"_s, 2}}}}};
  QJsonObject name = rows[0]["children"_L1][1].toObject();
  name["modifiers"_L1] =
      QJsonArray{QJsonObject{{u"font"_s, QJsonObject{{u"style"_s, u"subheadline"_s}}}},
                 QJsonObject{{u"fontWeight"_s, u"semibold"_s}}, QJsonObject{{u"lineLimit"_s, 2}}};
  rows[0] = icon;
  rows.insert(1, name);
  view["children"_L1] = rows;
  view["spacing"_L1] = 1;
  return view;
}

QJsonObject arrangedMedium(QJsonObject view, const QString& since) {
  const QJsonArray rows = view["children"_L1].toArray();
  if (!isStack(view, "VStack"_L1, 2) || !isHeading(rows[0])) return view;
  QJsonArray below = rows[1]["children"_L1].toArray();
  if (!isStack(rows[1], "HStack"_L1, 2) || !isStack(below[0], "VStack"_L1, 1)) return view;
  QJsonObject heading = rows[0].toObject();
  QJsonArray words = heading["children"_L1].toArray();
  words << spacer();
  if (!since.isEmpty()) words << text(since, u"footnote"_s);
  heading["children"_L1] = words;

  QJsonArray timers = below[0]["children"_L1].toArray();
  below[0] = timers.takeAt(0);
  QJsonObject large = rows[1].toObject();
  large["children"_L1] = below;
  QJsonArray arranged{heading, large};
  for (const QJsonValue& timer : timers) arranged << timer;
  view["children"_L1] = arranged;
  // In the middle of the card, digits would seem too high: nothing hangs from their line.
  const int descent = timers.isEmpty() ? kLargeDescent : kSmallDescent;
  QJsonArray modifiers = view["modifiers"_L1].toArray();
  modifiers.prepend(QJsonObject{{u"padding"_s, QJsonObject{{u"top"_s, descent}}}});
  view["modifiers"_L1] = modifiers;
  return view;
}

QJsonObject atTrailingEnd(QJsonObject view) {
  return with(std::move(view), {{u"multilineTextAlignment"_s, u"trailing"_s}});
}

QJsonObject withTimesAtEnd(QJsonObject view) {
  const auto align = [](const QJsonObject& node) -> std::optional<QJsonValue> {
    if (isTimeOfDay(node)) return atTrailingEnd(node);
    return std::nullopt;
  };
  return changed(std::move(view), align).toObject();
}

QJsonObject withoutBlanks(QJsonObject view) {
  const auto dropBlank = [](const QJsonObject& node) -> std::optional<QJsonValue> {
    const QJsonArray modifiers = node["modifiers"_L1].toArray();
    const bool isDrawn = std::any_of(
        modifiers.begin(), modifiers.end(),
        [](const QJsonValue& modifier) { return modifier["background"_L1].isObject(); });
    const bool isBlank = node["view"_L1] == "Text"_L1 && node["text"_L1].isString() &&
                         node["text"_L1].toString().trimmed().isEmpty() && !isDrawn;
    if (isBlank) return QJsonValue();
    return std::nullopt;
  };
  return changed(std::move(view), dropBlank).toObject();
}

QJsonObject withInsets(QJsonObject view, const QJsonObject& insets) {
  QJsonArray modifiers;
  bool isReplaced = false;
  for (const QJsonValue& modifier : view["modifiers"_L1].toArray()) {
    const bool isPadding = modifier["padding"_L1].isObject();
    if (isPadding && !isReplaced) modifiers << QJsonObject{{u"padding"_s, insets}};
    if (!isPadding) modifiers << modifier;
    isReplaced = isReplaced || isPadding;
  }
  view["modifiers"_L1] = modifiers;
  return isReplaced ? view : with(view, {{u"padding"_s, insets}});
}

QString wordFor(Halt halt) {
  return halt == Halt::kPaused ? translate("Paused") : translate("Stopped");
}

QJsonObject halted(const QJsonObject& view, const HaltedActivity& activity) {
  const auto control = [](const QString& operation, const QString& id, const QString& symbol) {
    const QJsonObject size{{u"width"_s, 18}, {u"height"_s, 18}};
    const QJsonObject inset{
        {u"top"_s, 11}, {u"leading"_s, 11}, {u"bottom"_s, 11}, {u"trailing"_s, 11}};
    const QJsonObject fill{
        {u"red"_s, 0.55}, {u"green"_s, 0.55}, {u"blue"_s, 0.57}, {u"alpha"_s, 0.3}};
    const QJsonObject shape{{u"cornerRadius"_s, 20}};
    const QJsonObject label{
        {u"view"_s, u"Image"_s},
        {u"systemName"_s, symbol},
        {u"modifiers"_s,
         QJsonArray{QJsonObject{{u"frame"_s, size}}, QJsonObject{{u"padding"_s, inset}},
                    QJsonObject{{u"background"_s, QJsonObject{{u"roundedRectangle"_s, shape},
                                                              {u"fill"_s, fill}}}}}}};
    const QJsonObject call{{u"name"_s, u""_s}, {u"activityId"_s, id}, {u"operation"_s, operation}};
    return QJsonObject{{u"view"_s, u"Button"_s}, {u"intent"_s, call}, {u"label"_s, label}};
  };
  const auto change = [&](const QJsonObject& node) -> std::optional<QJsonValue> {
    const QString type = node["view"_L1].toString();
    if (type == "Text"_L1 && node["style"_L1] == "timer"_L1) {
      if (activity.isTimeKnown) return with(node, {{u"opacity"_s, kHalted}});
      return text(wordFor(activity.halt), u"body"_s);
    }
    if (type == "Image"_L1) return with(node, {{u"opacity"_s, kHalted}});
    if (isTimeOfDay(node)) return text(wordFor(activity.halt), u"footnote"_s);
    if (type != "Button"_L1 && type != "Link"_L1) return std::nullopt;
    const bool isFirst = node["intent"_L1]["operation"_L1] == "pause"_L1 ||
                         node["destination"_L1].toString().contains("action=pause"_L1);
    if (!isFirst) return control(u"dismiss"_s, activity.liveId, u"xmark"_s);
    if (activity.halt == Halt::kStopped) return QJsonValue();
    QJsonObject resume = control(u"resume"_s, activity.activityGuid, u"play.fill"_s);
    return with(resume, {{u"padding"_s, QJsonObject{{u"trailing"_s, 8}}}});
  };
  return changed(view, change).toObject();
}

}  // namespace brevant
