#pragma once

#include <QJsonObject>

namespace brevant {

// An archived view tree is made for a phone, and says what it shows; these change how a desktop
// shows it, from one tree to another. What they do not recognise they leave as it is.

// `view` of an entry with the name of nothing, while nothing runs: says so.
[[nodiscard]] QJsonObject namedWhereNothingRuns(QJsonObject view);

// `view` of an entry with "+2" beside its name: so many more activities run than it shows.
[[nodiscard]] QJsonObject countingOthers(QJsonObject view, const QString& name, int others);

}  // namespace brevant
