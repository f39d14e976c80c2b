// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace brevant {

// $BREVANT, else the program beside this one, else the one on PATH.
[[nodiscard]] QString findBrevant();

// Whether there is such a program, by its path or on PATH, and it may be run. To be asked before
// a QProcess is started: each start that fails leaves descriptors of the toolkit open for good, and
// what is retried for days would use them up.
[[nodiscard]] bool canRun(const QString& program);

}  // namespace brevant
