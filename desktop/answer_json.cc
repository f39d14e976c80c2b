// SPDX-License-Identifier: MIT
#include "desktop/answer_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

#include "desktop/answer_limits.h"

namespace brevant {

namespace {

// Before the parser takes memory for each value and calls itself for each level.
bool isModest(const QByteArray& text) {
  int depth = 0, deepest = 0, values = 0;
  bool isInText = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') isInText = !isInText;
    if (isInText) {
      if (c == '\\') ++i;
      continue;
    }
    if (c == '[' || c == '{') deepest = std::max(deepest, ++depth);
    if (c == ']' || c == '}') --depth;
    if (c == '[' || c == '{' || c == ',') ++values;
  }
  return deepest <= kDeepestJson && values <= kMostJsonValues && !text.contains('\0');
}

}  // namespace

std::optional<QJsonValue> jsonFromAnswer(const QByteArray& text) {
  if (text.size() > kMostOutput || !isModest(text)) return std::nullopt;
  // The parser takes only arrays and objects.
  const QJsonArray values = QJsonDocument::fromJson("[" + text + "]").array();
  if (values.size() != 1) return std::nullopt;
  return values.first();
}

}  // namespace brevant
