// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace brevant {

// Shows the message as a notification of the desktop, for what nobody would see elsewhere. Waits a
// moment for the desktop; false when it shows none.
bool notify(const QString& message);

}  // namespace brevant
