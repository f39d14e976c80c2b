// SPDX-License-Identifier: MIT
#include "desktop/view_builder.h"

#include <QJsonArray>
#include <QUrlQuery>
#include <algorithm>
#include <optional>
#include <utility>

#include "desktop/boxes.h"
#include "desktop/control.h"
#include "desktop/image_view.h"
#include "desktop/json_values.h"
#include "desktop/modifiers.h"
#include "desktop/stack_layout.h"
#include "desktop/timer_view.h"
#include "desktop/translate.h"
#include "desktop/view_limits.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kDefaultSpacing = 8, kLargestSpacing = 1000;
constexpr int kLabelSpacing = 6;

using Widget = std::unique_ptr<QWidget>;

// "pause" is "Pause", in the user's language.
QString spokenOperation(const QString& operation) {
  if (operation.isEmpty()) return {};
  const QString word = operation.left(1).toUpper() + operation.mid(1);
  return translate(word.toUtf8().constData());
}

class Builder {
 public:
  explicit Builder(const DrawingContext& context)
      : context_(context), direction_(context.locale.textDirection()) {}

  // Null for what cannot be drawn. `axis` is that of the stack around it.
  Widget build(const QJsonObject& node, const ViewEnvironment& outside,
               std::optional<Qt::Orientation> axis = std::nullopt) {
    const QJsonArray modifiers = node["modifiers"_L1].toArray();
    const qsizetype boxes = 1 + modifiers.size();
    if (boxes > kDeepestView - depth_ || boxes > kMostNodes - nodes_) {
      reportOnce(u"more than %1 views and modifiers, or %2 in each other"_s.arg(kMostNodes)
                     .arg(kDeepestView));
      return nullptr;
    }
    nodes_ += boxes;
    depth_ += boxes;
    Widget content = buildNode(node, modifiers, environmentInside(modifiers, outside), axis);
    depth_ -= boxes;
    if (!content) return nullptr;
    return modified(std::move(content), modifiers, outside, direction_);
  }

 private:
  Widget buildNode(const QJsonObject& node, const QJsonArray& modifiers,
                   const ViewEnvironment& inside, std::optional<Qt::Orientation> axis) {
    const QString type = node["view"_L1].toString();
    if (type == "Text"_L1) return buildText(node, inside);
    if (type == "Image"_L1) return buildImage(node, modifiers, inside);
    if (type == "Label"_L1) return buildLabel(node, inside);
    if (type == "HStack"_L1) return buildStack(node, inside, Qt::Horizontal);
    if (type == "VStack"_L1) return buildStack(node, inside, Qt::Vertical);
    if (type == "Spacer"_L1) return buildSpacer(axis);
    if (type == "Button"_L1) return buildButton(node, inside);
    if (type == "Link"_L1) return buildLink(node, inside);
    reportOnce(u"unknown view "_s + type);
    return nullptr;
  }

  Widget buildText(const QJsonObject& node, const ViewEnvironment& inside) {
    const QJsonValue date = node["date"_L1];
    if (!date.isDouble()) {
      const QString text = node["text"_L1].toString().left(std::min(kLongestText, letters_));
      letters_ -= text.size();
      auto view = std::make_unique<TextView>(text, inside.textLook());
      view->setAccessibleName(text);
      return view;
    }
    const auto style = timerStyleFromName(node["style"_L1].toString());
    if (!style) {
      reportOnce(u"unknown style of a date "_s + node["style"_L1].toString());
      return nullptr;
    }
    return std::make_unique<TimerView>(*style, date.toDouble(), inside.textLook(), context_);
  }

  Widget buildImage(const QJsonObject& node, const QJsonArray& modifiers,
                    const ViewEnvironment& inside) {
    const QJsonValue symbol = node["systemName"_L1];
    auto source = symbol.isString()
                      ? symbolNamed(symbol.toString(), inside.foregroundColor, inside.font.size)
                      : pictureFromJson(node["image"_L1], pixels_);
    if (!source) return nullptr;
    // Those of controls have a ground of their own.
    if (!symbol.isString() && !inControl_) *source = readableOn(ground(), std::move(*source));
    const auto sizing = hasModifier(modifiers, "resizable"_L1) ? ImageView::Sizing::kResizable
                                                               : ImageView::Sizing::kNatural;
    const double most = context_.largestImage;
    const bool isTooLarge = source->size.width() > most || source->size.height() > most;
    if (sizing == ImageView::Sizing::kNatural && isTooLarge)
      source->size.scale(most, most, Qt::KeepAspectRatio);
    return std::make_unique<ImageView>(std::move(*source), sizing, inside.opacity);
  }

  Widget buildLabel(const QJsonObject& node, const ViewEnvironment& inside) {
    auto stack = std::make_unique<QWidget>();
    auto* layout = new StackLayout(Qt::Horizontal, kLabelSpacing, stack.get());
    for (const QLatin1StringView part : {"icon"_L1, "title"_L1}) {
      if (Widget child = build(node[part].toObject(), inside, Qt::Horizontal)) {
        addTo(*layout, std::move(child), Qt::AlignVCenter);
      }
    }
    // As in a list, a label takes its row's width: what follows it stands at the trailing end.
    return frameAround(std::move(stack), {.maxWidth = QWIDGETSIZE_MAX},
                       Qt::AlignLeft | Qt::AlignVCenter);
  }

  Widget buildStack(const QJsonObject& node, const ViewEnvironment& inside,
                    Qt::Orientation orientation) {
    const double spacing =
        numberFromJson(node["spacing"_L1], 0, kLargestSpacing).value_or(kDefaultSpacing);
    const auto across =
        orientation == Qt::Horizontal ? Qt::AlignVertical_Mask : Qt::AlignHorizontal_Mask;
    const Qt::Alignment alignment = alignmentFromJson(node["alignment"_L1]) & across;
    auto stack = std::make_unique<QWidget>();
    auto* layout = new StackLayout(orientation, qRound(spacing), stack.get());
    for (const QJsonValue& child : node["children"_L1].toArray()) {
      if (Widget widget = build(child.toObject(), inside, orientation)) {
        addTo(*layout, std::move(widget), alignment);
      }
    }
    return stack;
  }

  static void addTo(StackLayout& layout, Widget child, Qt::Alignment alignment) {
    layout.addWidget(child.release());
    alignUnlessExpanding(*layout.itemAt(layout.count() - 1), alignment);
  }

  static Widget buildSpacer(std::optional<Qt::Orientation> axis) {
    auto spacer = std::make_unique<QWidget>();
    const auto along = [&](Qt::Orientation direction) {
      return axis.value_or(direction) == direction ? QSizePolicy::Expanding : QSizePolicy::Fixed;
    };
    spacer->setSizePolicy(along(Qt::Horizontal), along(Qt::Vertical));
    return spacer;
  }

  Widget buildButton(const QJsonObject& node, const ViewEnvironment& inside) {
    const QJsonValue intent = node["intent"_L1];
    const IntentCall call{intent["name"_L1].toString(), intent["activityId"_L1].toString(),
                          intent["operation"_L1].toString()};
    const QString what = call.name + u' ' + call.activityId + u' ' + call.operation;
    auto button =
        buildControl(node, inside, {what, call.operation}, [call, run = context_.runIntent] {
          if (run) run(call);
        });
    if (button) button->setEnabled(!call.activityId.isEmpty());
    return button;
  }

  Widget buildLink(const QJsonObject& node, const ViewEnvironment& inside) {
    const QString destination = node["destination"_L1].toString();
    const QUrlQuery query(destination.section(u'?', 1));
    auto link = buildControl(node, inside, {destination, query.queryItemValue(u"action"_s)},
                             [destination, open = context_.openLink] {
                               if (open) open(destination);
                             });
    const bool isOfNothing =
        query.hasQueryItem(u"activity"_s) && query.queryItemValue(u"activity"_s).isEmpty();
    if (link) link->setEnabled(!isOfNothing);
    return link;
  }

  // What a control does: in full, which tells it from every other, and the word for it.
  struct Deed {
    QString what, operation;
  };

  Widget buildControl(const QJsonObject& node, const ViewEnvironment& inside, const Deed& deed,
                      std::function<void()> act) {
    inControl_ = true;
    Widget label = build(node["label"_L1].toObject(), inside);
    inControl_ = false;
    if (!label) return nullptr;
    auto control = std::make_unique<Control>(std::move(label));
    control->setObjectName(deed.what);
    control->setAccessibleName(spokenOperation(deed.operation));
    control->setProperty(kOperation, deed.operation);
    QObject::connect(control.get(), &Control::clicked, control.get(), std::move(act));
    return control;
  }

  // What the cards are filled with, or darker.
  [[nodiscard]] QColor ground() const {
    return context_.colorScheme == ColorScheme::kDark ? QColor(28, 28, 30) : QColor(Qt::white);
  }

  const DrawingContext& context_;
  Qt::LayoutDirection direction_;
  qsizetype depth_ = 0, nodes_ = 0;
  qint64 pixels_ = kMostPixels;       // that its pictures may still have
  qsizetype letters_ = kMostLetters;  // and its texts
  bool inControl_ = false;
};

}  // namespace

std::unique_ptr<QWidget> buildView(const QJsonObject& view, const DrawingContext& context) {
  ViewEnvironment environment;
  environment.foregroundColor = context.colorScheme == ColorScheme::kDark ? Qt::white : Qt::black;
  Widget widget = Builder(context).build(view, environment);
  if (!widget) widget = std::make_unique<QWidget>();
  widget->setLayoutDirection(context.locale.textDirection());
  return widget;
}

}  // namespace brevant
