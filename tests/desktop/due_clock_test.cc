// SPDX-License-Identifier: MIT
#include "desktop/due_clock.h"

#include <QDateTime>
#include <gmock/gmock.h>

namespace brevant {
namespace {

double at(const char* text) {
  const QDateTime time = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
  return static_cast<double>(time.toSecsSinceEpoch());
}

// What happens between the last load and the next look, such as sleep, plays no part.
TEST(DueClock, IsDueAtTheDaysChangeAndEveryQuarterOfAnHour) {
  const struct {
    const char* loaded;
    const char* looked;
    bool due;
  } kCases[] = {
      {"2024-05-01T12:00:00", "2024-05-01T12:14:59", false},
      {"2024-05-01T12:00:00", "2024-05-01T12:15:00", true},
      {"2024-05-01T23:59:00", "2024-05-01T23:59:59", false},
      {"2024-05-01T23:59:00", "2024-05-02T00:00:00", true},
      {"2024-05-01T12:00:00", "2024-05-09T12:00:01", true},
      {"2024-05-01T12:00:00", "2024-05-01T11:00:00", true},  // the clock was set back
  };
  for (const auto& [loaded, looked, due] : kCases) {
    double now = at(loaded);
    DueClock clock([&now] { return now; });
    int told = 0;
    QObject::connect(&clock, &DueClock::due, [&told] { ++told; });
    now = at(looked);
    clock.look();
    clock.look();
    EXPECT_EQ(told, due ? 1 : 0) << loaded << " to " << looked;
  }
}

}  // namespace
}  // namespace brevant
