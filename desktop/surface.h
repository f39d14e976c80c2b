// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QWidget>
#include <memory>
#include <optional>

#include "desktop/drawing_context.h"

namespace brevant {

// The places of a phone's screen that are drawn here.
enum class Surface {
  kSmall,
  kMedium,
  kLockScreen,
  kIslandCompact,
  kIslandMinimal,
  kIslandExpanded,
};

// The host's own key in an entry: how many activities run besides the one that it shows.
inline constexpr QLatin1StringView kOthers("others");

// Another in a presentation whose activity runs no longer: {"state":"paused"|"stopped"}, and "at",
// in seconds since 1970, where that is known.
inline constexpr QLatin1StringView kHalt("halt");

// By the names of the command line: "small", "medium", "lock-screen", "island-compact",
// "island-minimal", "island-expanded".
[[nodiscard]] std::optional<Surface> surfaceFromName(const QString& name);

// The whole card of a surface, its shadow's margin included, at the size it wants to have. The
// window around it should be transparent.
//
// `answer` is one entry of `brevant timeline --json` for the small and the medium surface, and the
// answer of `brevant live show --json` for the others. An object without views gives an empty card.
[[nodiscard]] std::unique_ptr<QWidget> buildSurface(Surface, const QJsonObject& answer,
                                                    const DrawingContext&);

}  // namespace brevant
