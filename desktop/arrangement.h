// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>

#include "desktop/drawing_context.h"

namespace brevant {

// An archived view tree is made for a phone, and says what it shows; these change how a desktop
// shows it, from one tree to another. What they do not recognise they leave as it is.

// `view` of an entry with the name of nothing, while nothing runs: says so.
[[nodiscard]] QJsonObject namedWhereNothingRuns(QJsonObject view);

// `view` of an entry with "+2" beside its name: so many more activities run than it shows.
[[nodiscard]] QJsonObject countingOthers(QJsonObject view, const QString& name, int others);

// The small widget with its icon above the name, which has two lines and one size.
[[nodiscard]] QJsonObject arrangedSmall(QJsonObject view);

// The medium widget with its controls beside the large timer, and `since` at the end of the name's
// row.
[[nodiscard]] QJsonObject arrangedMedium(QJsonObject view, const QString& since);

// With its texts at the trailing end of their room.
[[nodiscard]] QJsonObject atTrailingEnd(QJsonObject view);

// With each row of a time of day flush with the controls that end above it.
[[nodiscard]] QJsonObject withTimesAtEnd(QJsonObject view);

// Without the blank texts that make room on a phone.
[[nodiscard]] QJsonObject withoutBlanks(QJsonObject view);
// With these insets instead of its own outermost padding.
[[nodiscard]] QJsonObject withInsets(QJsonObject view, const QJsonObject& insets);

// What has become of the activity of a Live Activity that is still shown.
enum class Halt { kPaused, kStopped };

// The host's own controls are calls without the name of an intent: "resume" of an activity and
// "dismiss" of a Live Activity.
struct HaltedActivity {
  Halt halt;
  QString activityGuid, liveId;
  bool isTimeKnown;  // at which it halted: its timers stand there, else they show nothing
};

// Says so, and offers what is still to be done instead of the controls; "" for no halt.
[[nodiscard]] QJsonObject halted(const QJsonObject& view, const HaltedActivity& activity);
[[nodiscard]] QString wordFor(Halt halt);

}  // namespace brevant
