#include "desktop/arrangement.h"

#include <QJsonArray>
#include <functional>

#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// A hostile tree is cut off further down anyway, when it is built.
constexpr int kDeepest = 16;

using Change = std::function<QJsonValue(const QJsonObject&)>;

// The tree with `change` in place of its first text with those letters.
bool changeText(QJsonObject& node, const QString& letters, const Change& change, int depth = 0) {
  QJsonArray children = node["children"_L1].toArray();
  for (QJsonValueRef child : children) {
    QJsonObject inside = child.toObject();
    if (inside["view"_L1] == "Text"_L1 && inside["text"_L1] == letters) {
      child = change(inside);
    } else if (depth >= kDeepest || !changeText(inside, letters, change, depth + 1)) {
      continue;
    } else {
      child = inside;
    }
    node["children"_L1] = children;
    return true;
  }
  return false;
}

}  // namespace

QJsonObject namedWhereNothingRuns(QJsonObject view) {
  changeText(view, {}, [](QJsonObject text) {
    text["text"_L1] = translate("complication.no_running");
    return text;
  });
  return view;
}

QJsonObject countingOthers(QJsonObject view, const QString& name, int others) {
  changeText(view, name, [others](const QJsonObject& text) {
    QJsonObject count = text;
    QJsonArray modifiers = text["modifiers"_L1].toArray();
    modifiers << QJsonObject{{u"opacity"_s, 0.6}};
    count["modifiers"_L1] = modifiers;
    count["text"_L1] = u'+' + QString::number(others);
    return QJsonObject{
        {u"view"_s, u"HStack"_s}, {u"spacing"_s, 6}, {u"children"_s, QJsonArray{text, count}}};
  });
  return view;
}

}  // namespace brevant
