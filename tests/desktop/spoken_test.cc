// SPDX-License-Identifier: MIT
#include "desktop/spoken.h"

#include <gmock/gmock.h>

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(Spoken, ReadsDurationsAsPeopleSayThem) {
  const struct {
    double seconds;
    const char* spoken;
  } kCases[] = {
      {-5, "0 seconds"},
      {0.9, "0 seconds"},
      {1, "1 second"},
      {59.9, "59 seconds"},
      {60, "1 minute"},
      {3599, "59 minutes"},
      {3600, "1 hour"},
      {3900, "1 hour 5 minutes"},
      {360061, "100 hours 1 minute"},
      {1e300, "596523 hours 14 minutes"},
  };
  for (const auto& [seconds, spoken] : kCases)
    EXPECT_EQ(spokenDuration(seconds).toStdString(), spoken);
}

TEST(Spoken, NamesEverythingOrNothingThatRuns) {
  const double now = 1'700'000'000;
  EXPECT_EQ(spokenEntry({{u"name"_s, QString()}, {u"start"_s, now}}, now),
            u"No running activity"_s);
  // A content state counts from 2001.
  const QJsonObject state{{u"typeName"_s, u"Sport"_s}, {u"start"_s, now - 978307200 - 60}};
  const QJsonObject presentation{{u"contentState"_s, state}};
  EXPECT_EQ(spokenPresentations({presentation, presentation}, now),
            u"Sport, 1 minute; Sport, 1 minute"_s);
}

}  // namespace
}  // namespace brevant
