// SPDX-License-Identifier: MIT

// Work in processes of its own, to show what sharing files and being killed do.
#pragma once

#include <functional>

namespace brevant::test {

// Does `work(0)` to `work(count - 1)` in a process each, at the same time. True when all came to
// their end.
bool runTogether(int count, const std::function<void(int)>& work);

enum class End { kFinished, kKilled, kUntraceable };

// Does `work` in a process that is killed when it enters its n-th system call.
End runKilledAt(int call, const std::function<void()>& work);

}  // namespace brevant::test
