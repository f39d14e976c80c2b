// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QWidget>
#include <memory>

#include "desktop/drawing_context.h"

namespace brevant {

// The property of a control with the word for what it does, such as "pause".
inline constexpr char kOperation[] = "operation";

// Turns an archived view tree into widgets, one per node, laid out by Qt. The tree comes from
// another process, so nothing in it is trusted: what is unknown or malformed is left out, each kind
// of it reported once on stderr, and a tree that is nested absurdly deep is cut off.
//
// Texts that show elapsed time advance by themselves while they are visible.
[[nodiscard]] std::unique_ptr<QWidget> buildView(const QJsonObject& view, const DrawingContext&);

}  // namespace brevant
