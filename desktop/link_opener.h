// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace brevant {

// Has the desktop open a link with whatever is made for its kind, and tells the receiver whether
// that worked: `failure` is one line for people, or empty, also where they know already. Nothing is
// told once the receiver is gone, nor while what has opened the link is still at it.
void openLink(const QString& destination, QObject* receiver,
              std::function<void(const QString& failure)> done);

}  // namespace brevant
