// SPDX-License-Identifier: MIT
#include <functional>
#include <gmock/gmock.h>

#include "store/fm_database.h"
#include "store/widget_activity.h"
#include "store/widget_type.h"
#include "tests/support/fake_platform.h"

namespace brevant::test {
namespace {

using testing::IsEmpty;

std::optional<Date> at(double seconds) {
  return dateFromSeconds(seconds);
}

// A cursor on the one row of a SELECT.
class Row {
 public:
  explicit Row(const std::string& sql) {
    db_.open();
    cursor_ = db_.executeQuery(sql);
    EXPECT_TRUE(cursor_ && cursor_->next());
  }
  ~Row() { EXPECT_THAT(fakes.log.lines, IsEmpty()); }

  FMResultSet& operator*() { return *cursor_; }

  FakePlatform fakes;

 private:
  FMDatabase db_{std::nullopt, fakes.clock, fakes.random, fakes.log};
  std::unique_ptr<FMResultSet> cursor_;
};

TEST(WidgetTypeTest, TakesWhateverTheColumnsHold) {
  const std::pair<const char*, bool> kCases[] = {
      {"1", true}, {"-3", true}, {"NULL", false}, {"0", false}, {"'yes'", false}};
  for (const auto& [isGroup, expected] : kCases) {
    Row row(std::string("SELECT NULL AS guid, x'00' AS name, -1 AS color, 3.9 AS image_guid, "
                        "'12x' AS order_num, 'p' AS parent_guid, ") +
            isGroup + " AS is_group");
    const auto type = WidgetType::typeFromResultSet(*row);
    const auto* const group = dynamic_cast<WidgetGroup*>(type.get());
    EXPECT_EQ(group != nullptr, expected) << isGroup;
    EXPECT_TRUE(!group || !group->children);
    EXPECT_EQ(type->guid, std::nullopt);
    EXPECT_EQ(type->name, std::string(1, '\0'));
    EXPECT_EQ(type->imageGuid, "3.9");
    EXPECT_EQ(type->parentGuid, "p");
    EXPECT_EQ(type->color, UINT64_MAX);  // the 32-bit number, widened
    EXPECT_EQ(type->order, 12U);
  }
}

TEST(WidgetTypeTest, ComparesWhatIsShown) {
  WidgetType sample;
  sample.guid = "g";
  sample.name = "n";
  sample.imageGuid = "i";
  WidgetType same = sample;
  same.parentGuid = "";
  same.nestingLevel = 1;
  same.revision = same.updatedOn = 2;
  EXPECT_TRUE(sample.isEqual(same));
  EXPECT_TRUE(same.isEqual(sample));
  std::vector<WidgetType> changed(6, sample);
  changed[0].guid = "G";
  changed[1].name = "N";
  changed[2].imageGuid = std::nullopt;
  changed[3].parentGuid = "p";
  changed[4].color = 1;
  changed[5].order = 1;
  for (const WidgetType& other : changed) {
    EXPECT_FALSE(sample.isEqual(other)) << &other - changed.data();
    EXPECT_FALSE(other.isEqual(sample)) << &other - changed.data();
  }
  WidgetGroup group;
  static_cast<WidgetType&>(group) = sample;
  EXPECT_FALSE(sample.isEqual(group));
  EXPECT_FALSE(group.isEqual(sample));
  WidgetType nameless = sample;
  nameless.name = std::nullopt;
  EXPECT_TRUE(nameless.isEqual(nameless));
  EXPECT_FALSE(nameless.isEqual(WidgetType(nameless)));
}

TEST(WidgetGroupTest, ComparesItsChildrenAlone) {
  WidgetType child;
  child.guid = child.name = child.imageGuid = "c";
  WidgetType sameChild = child;
  WidgetGroup a;
  WidgetGroup b;
  a.guid = "differs";
  EXPECT_FALSE(a.isEqual(b));  // nothing to compare
  a.children = b.children = std::vector<WidgetType*>{};
  EXPECT_TRUE(a.isEqual(b));
  a.children->push_back(&child);
  EXPECT_FALSE(a.isEqual(b));
  b.children->push_back(&sameChild);
  EXPECT_TRUE(a.isEqual(b));
  sameChild.order = 1;
  EXPECT_FALSE(a.isEqual(b));
}

TEST(WidgetGroupTest, ComparesDeepAndCircularNesting) {
  constexpr std::size_t kDepth = 10'000;
  const auto chain = [](std::vector<WidgetGroup>& groups) {
    for (std::size_t i = 0; i < groups.size(); ++i) {
      groups[i].children = std::vector<WidgetType*>{&groups[(i + 1) % groups.size()]};
    }
  };
  std::vector<WidgetGroup> a(kDepth);
  std::vector<WidgetGroup> b(kDepth);
  chain(a);
  chain(b);
  EXPECT_TRUE(a.front().isEqual(b.front()));
  b.back().children->clear();
  EXPECT_FALSE(a.front().isEqual(b.front()));
}

TEST(WidgetIntervalTest, IsReadInTheConfiguredPrecision) {
  const std::pair<std::optional<std::int64_t>, double> kCases[] = {
      {std::nullopt, 90.5}, {0, 90.5}, {1, 60}, {2, 90.5}, {INT64_C(0x100000001), 90.5}};
  Row row("SELECT 'i' AS guid, 90.5 AS start, NULL AS finish, 60.0 AS start_m, NULL AS finish_m");
  for (const auto& [precision, from] : kCases) {
    if (precision) row.fakes.settings.values["dateTimePrecision"] = {*precision};
    const auto interval = WidgetInterval::intervalFromResultSet(*row, row.fakes.settings);
    EXPECT_EQ(interval.guid, "i");
    EXPECT_EQ(interval.from, at(from));
    EXPECT_EQ(interval.to, std::nullopt);
  }
}

TEST(WidgetIntervalTest, LastsWholeSecondsAndNeverLessThanNone) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::tuple<std::optional<Date>, std::optional<Date>, std::uint64_t> kCases[] = {
      {at(10), at(19.9), 9},
      {at(20), at(10), 0},
      {at(10), std::nullopt, 0},
      {std::nullopt, at(1'700'000'000.5), 1'700'000'000},
      {at(-10), std::nullopt, 10},
      {at(0), at(1e300), UINT64_MAX},
      {at(kInfinity), at(kInfinity), 0},
  };
  for (const auto& [from, to, duration] : kCases) {
    WidgetInterval interval;
    interval.from = from;
    interval.to = to;
    EXPECT_EQ(interval.duration(), duration);
  }
}

TEST(WidgetActivityTest, ComparesTheStartOnlyWhileRunning) {
  const auto interval = std::make_shared<WidgetInterval>();
  interval->guid = "i";
  interval->from = at(1);
  interval->to = at(2);
  WidgetActivity sample;
  sample.guid = sample.categoryGuid = "g";
  sample.state = kStatePaused;
  sample.start = at(5);
  sample.intervals = IntervalList{interval};
  const auto intervalWith = [&](auto field, const auto& value) {
    auto changed = std::make_shared<WidgetInterval>(*interval);
    (*changed).*field = value;
    return [changed](WidgetActivity& a) { a.intervals = IntervalList{changed}; };
  };
  using Change = std::function<void(WidgetActivity&)>;
  const std::tuple<const char*, Change, bool, bool> kCases[] = {
      {"none", [](WidgetActivity&) {}, true, true},
      {"comment", [](WidgetActivity& a) { a.comment = "x"; }, true, true},
      {"start", [](WidgetActivity& a) { a.start = at(6); }, true, false},
      {"no start", [](WidgetActivity& a) { a.start.reset(); }, true, false},
      {"state", [](WidgetActivity& a) { a.state = kStateStopped; }, false, false},
      {"guid", [](WidgetActivity& a) { a.guid.reset(); }, false, false},
      {"category", [](WidgetActivity& a) { a.categoryGuid = "x"; }, false, false},
      {"equal interval", intervalWith(&WidgetInterval::updatedOn, 9U), true, true},
      {"interval's end", intervalWith(&WidgetInterval::to, at(3)), false, false},
      {"interval's start", intervalWith(&WidgetInterval::from, at(0)), false, false},
      {"fewer intervals", [](WidgetActivity& a) { a.intervals->clear(); }, false, false},
  };
  for (const auto& [change, apply, equalPaused, equalRunning] : kCases) {
    for (const std::int32_t state : {kStatePaused, kStateRunning}) {
      sample.state = state;
      WidgetActivity other = sample;
      apply(other);
      EXPECT_EQ(sample.isEqual(other), state == kStatePaused ? equalPaused : equalRunning)
          << change << " in state " << state;
    }
  }
}

TEST(WidgetActivityTest, CopiesItsListButSharesTheIntervals) {
  WidgetActivity activity;
  activity.guid = "g";
  activity.comment = "c";
  activity.state = kStateRunning;
  activity.revision = activity.updatedOn = 5;
  activity.intervals = IntervalList{std::make_shared<WidgetInterval>()};
  const auto copy = activity.copy();
  EXPECT_EQ(copy->guid, "g");
  EXPECT_EQ(copy->comment, "c");
  EXPECT_EQ(copy->state, kStateRunning);
  EXPECT_EQ(copy->revision + copy->updatedOn, 0U);
  EXPECT_EQ(copy->intervals->front(), activity.intervals->front());
  copy->intervals->clear();
  EXPECT_EQ(activity.intervals->size(), 1U);
  EXPECT_EQ(activity.description(), "guid=g, start=(null), state=1");
}

}  // namespace
}  // namespace brevant::test
