// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <optional>

namespace brevant {

// What an answer stands for, a lone value such as null included; absent when it is no JSON, or is
// beyond answer_limits.h.
[[nodiscard]] std::optional<QJsonValue> jsonFromAnswer(const QByteArray& text);

}  // namespace brevant
