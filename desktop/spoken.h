// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace brevant {

// "1 hour 5 minutes", for people who listen; below a minute in seconds, and never negative.
[[nodiscard]] QString spokenDuration(double seconds);

// "Reading, 1 hour 5 minutes": what is said of an activity. `now` counts seconds since 1970.
// Of an entry of the timeline; of one that shows no activity, that none runs.
[[nodiscard]] QString spokenEntry(const QJsonObject& entry, double now);
// The same with all its stretches, and how many more run.
[[nodiscard]] QString spokenTotal(const QJsonObject& entry, double now);
// Of the presentations of Live Activities, one after the other.
[[nodiscard]] QString spokenPresentations(const QJsonArray& presentations, double now);

}  // namespace brevant
