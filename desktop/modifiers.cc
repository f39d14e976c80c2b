// SPDX-License-Identifier: MIT
#include "desktop/modifiers.h"

#include <QJsonObject>
#include <utility>

#include "desktop/boxes.h"
#include "desktop/json_values.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDefaultPadding = 16;
constexpr double kLargestLength = 4096;

std::optional<int> length(const QJsonValue& json) {
  if (json == "infinity"_L1) return QWIDGETSIZE_MAX;
  const std::optional<double> points = numberFromJson(json, 0, kLargestLength);
  return points ? std::optional(qRound(*points)) : std::nullopt;
}

int inset(const QJsonValue& json) {
  return json == "default"_L1 ? kDefaultPadding : length(json).value_or(0);
}

std::unique_ptr<QWidget> padded(std::unique_ptr<QWidget> content, const QJsonValue& edges,
                                Qt::LayoutDirection direction) {
  int left = inset(edges["leading"_L1]);
  int right = inset(edges["trailing"_L1]);
  if (direction == Qt::RightToLeft) std::swap(left, right);
  return paddingAround(std::move(content),
                       {left, inset(edges["top"_L1]), right, inset(edges["bottom"_L1])});
}

std::unique_ptr<QWidget> framed(std::unique_ptr<QWidget> content, const QJsonValue& frame) {
  const FrameSize size{length(frame["width"_L1]), length(frame["height"_L1]),
                       length(frame["maxWidth"_L1]), length(frame["maxHeight"_L1])};
  return frameAround(std::move(content), size, alignmentFromJson(frame["alignment"_L1]));
}

std::unique_ptr<QWidget> withBackground(std::unique_ptr<QWidget> content,
                                        const QJsonValue& background, double opacity) {
  std::optional<QColor> fill = colorFromJson(background["fill"_L1]);
  if (!fill) return content;
  fill->setAlphaF(fill->alphaF() * static_cast<float>(opacity));
  const QJsonValue radius = background["roundedRectangle"_L1]["cornerRadius"_L1];
  return backgroundBehind(std::move(content), numberFromJson(radius, 0, kLargestLength).value_or(0),
                          *fill);
}

// Says what a host does anyway, or what was taken up before the view was made.
bool isSilent(const QString& modifier) {
  return modifier == "containerBackground"_L1 || modifier == "buttonStyle"_L1 ||
         modifier == "resizable"_L1;
}

// How opaque a view is whose modifier stands at that place: those further out count.
double opacityAround(const QJsonArray& modifiers, qsizetype place, double outside) {
  double opacity = outside;
  for (qsizetype i = place + 1; i < modifiers.size(); ++i) {
    opacity *= numberFromJson(modifiers[i]["opacity"_L1], 0, 1).value_or(1);
  }
  return opacity;
}

}  // namespace

Qt::Alignment alignmentFromJson(const QJsonValue& json) {
  const QString name = json.toString();
  const auto says = [&](QLatin1StringView side) {
    return name.contains(side, Qt::CaseInsensitive);
  };
  Qt::Alignment alignment;
  alignment |= says("leading"_L1)    ? Qt::AlignLeft
               : says("trailing"_L1) ? Qt::AlignRight
                                     : Qt::AlignHCenter;
  alignment |= says("top"_L1)      ? Qt::AlignTop
               : says("bottom"_L1) ? Qt::AlignBottom
                                   : Qt::AlignVCenter;
  return alignment;
}

ViewEnvironment environmentInside(const QJsonArray& modifiers, ViewEnvironment outside) {
  for (qsizetype i = modifiers.size() - 1; i >= 0; --i) {
    const QJsonObject modifier = modifiers[i].toObject();
    for (auto it = modifier.begin(); it != modifier.end(); ++it) outside.apply(it.key(), *it);
  }
  return outside;
}

bool hasModifier(const QJsonArray& modifiers, QLatin1StringView name) {
  for (const QJsonValue& modifier : modifiers) {
    if (modifier[name].toBool()) return true;
  }
  return false;
}

std::unique_ptr<QWidget> modified(std::unique_ptr<QWidget> content, const QJsonArray& modifiers,
                                  const ViewEnvironment& outside, Qt::LayoutDirection direction) {
  ViewEnvironment scratch;  // only asked whether it knows a name
  for (qsizetype i = 0; i < modifiers.size(); ++i) {
    const QJsonObject modifier = modifiers[i].toObject();
    const QString name = modifier.isEmpty() ? QString() : modifier.begin().key();
    const QJsonValue value = modifier[name];
    if (name == "padding"_L1) {
      content = padded(std::move(content), value, direction);
    } else if (name == "frame"_L1) {
      content = framed(std::move(content), value);
    } else if (name == "background"_L1) {
      content =
          withBackground(std::move(content), value, opacityAround(modifiers, i, outside.opacity));
    } else if (name == "invalidatableContent"_L1) {
      content = std::make_unique<InvalidatableBox>(std::move(content));
    } else if (!isSilent(name) && !scratch.apply(name, value)) {
      reportOnce(u"unknown modifier "_s + name);
    }
  }
  return content;
}

}  // namespace brevant
