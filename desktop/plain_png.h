// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace brevant {

// The same picture without anything that it is not drawn from: texts and profiles of a few bytes
// can unfold to gigabytes. Empty when a part claims to be longer than the file.
[[nodiscard]] QByteArray plainPng(const QByteArray& png);

}  // namespace brevant
