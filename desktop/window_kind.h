// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>

namespace brevant {

// The windows of the host.
enum class WindowKind { kSmall, kMedium, kLockScreen, kIsland };

inline constexpr std::array kAllWindows{WindowKind::kSmall, WindowKind::kMedium,
                                        WindowKind::kLockScreen, WindowKind::kIsland};

// A stable word, for settings and for window managers' rules.
[[nodiscard]] QString wordOf(WindowKind kind);
// What people call it.
[[nodiscard]] QString titleOf(WindowKind kind);

}  // namespace brevant
