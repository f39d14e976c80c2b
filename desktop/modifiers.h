// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <QString>
#include <QWidget>
#include <memory>

#include "desktop/view_environment.h"

namespace brevant {

// "leading", "topTrailing", "center" and so on; the middle for what is not known.
[[nodiscard]] Qt::Alignment alignmentFromJson(const QJsonValue& json);

// What a view with these modifiers passes on to what is inside it.
[[nodiscard]] ViewEnvironment environmentInside(const QJsonArray& modifiers,
                                                ViewEnvironment outside);

// Whether a modifier without a value is among them.
[[nodiscard]] bool hasModifier(const QJsonArray& modifiers, QLatin1StringView name);

// Puts what the modifiers say around the view, the innermost first. What only concerns the
// environment leaves no trace here.
[[nodiscard]] std::unique_ptr<QWidget> modified(std::unique_ptr<QWidget> content,
                                                const QJsonArray& modifiers,
                                                const ViewEnvironment& outside,
                                                Qt::LayoutDirection direction);

}  // namespace brevant
