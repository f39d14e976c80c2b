// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "tests/support/fake_platform.h"
#include "tests/support/view_outline.h"
#include "widget/activities_widget_entry_view.h"
#include "widget/medium_running_activity_view.h"
#include "widget/running_widget.h"
#include "widget/small_running_activity_view.h"

namespace brevant::test {
namespace {

using testing::HasSubstr;

class WidgetViews : public testing::Test {
 protected:
  std::string small() { return outline(SmallRunningActivityView{model}.body(fakes.platform())); }
  std::string medium(ColorScheme scheme = ColorScheme::kLight) {
    return outline(MediumRunningActivityView{scheme, model}.body(fakes.platform()));
  }

  FakePlatform fakes;
  std::optional<WidgetContent> model =
      WidgetContent{"abc",
                    fakes.clock.time,
                    "Reading",
                    std::make_shared<Image>(Image{1, 1, 1, {}, ""}),
                    dateFromSeconds(1000.5),
                    180};
};

TEST_F(WidgetViews, SmallShowsCategoryAndBothTimes) {
  EXPECT_EQ(
      small(),
      R"(VStack leading 2 .frame(maxWidth infinity maxHeight infinity alignment leading) .padding(top 16 leading 16 bottom 16 trailing 16) .containerBackground(color clear placement widget alignment center)
  HStack center 6
    Image
    Text "Reading" .font(style title3) .monospacedDigit .lineLimit(1) .minimumScaleFactor(0.5)
  Spacer
  Text 1000.5 timer .font(style largeTitle) .monospacedDigit .lineLimit(1) .minimumScaleFactor(0.5)
  Text 820.5 timer .font(style subheadline) .monospacedDigit .lineLimit(1) .opacity(0.6)
)");
}

TEST_F(WidgetViews, MediumShowsTheControlsToo) {
  EXPECT_EQ(
      medium(),
      R"(VStack leading 4 .padding(top 16 leading 16 bottom 16 trailing 16) .containerBackground(color clear placement widget alignment center)
  HStack center 6
    Image .resizable .frame(width 20 height 20 alignment center)
    Text "Reading" .font(style body) .lineLimit(1)
  HStack center 12
    VStack leading 4
      Text 1000.5 timer .font(size 44 weight regular design default) .fontWeight(semibold) .monospacedDigit .lineLimit(1) .minimumScaleFactor(0.5)
      Text 820.5 timer .font(style subheadline) .monospacedDigit .lineLimit(1) .opacity(0.6)
    Spacer
    HStack center 12
      Button name StopActivityIntent activityId abc operation pause .buttonStyle(plain)
        Image pause.fill .frame(width 18 height 18 alignment center) .padding(top 4 leading 4 bottom 4 trailing 4) .background(roundedRectangle cornerRadius 20 style continuous fill red 0.95 green 0.95 blue 0.95 alpha 1)
      Button name StopActivityIntent activityId abc operation stop .buttonStyle(plain)
        Image stop.fill .frame(width 18 height 18 alignment center) .padding(top 4 leading 4 bottom 4 trailing 4) .background(roundedRectangle cornerRadius 20 style continuous fill red 0.95 green 0.95 blue 0.95 alpha 1)
)");
  EXPECT_THAT(medium(ColorScheme::kDark), HasSubstr("fill red 0.2 green 0.2 blue 0.2 alpha 1"));
}

TEST_F(WidgetViews, FollowTheSystemVersion) {
  constexpr const char* kPauseLink =
      "Link brevant:///widget?type=running&action=pause&activity=abc\n        Image pause.fill";
  constexpr const char* kStopLink =
      "Link brevant:///widget?type=running&action=stop&activity=abc\n        Image stop.fill";
  const std::tuple<SystemVersion, const char*, bool> cases[] = {
      {{15, 4}, "timer", false}, {{16, 0}, "relative", false}, {{16, 1}, "timer", false},
      {{16, 4}, "timer", false}, {{17, 0}, "timer", true},     {{18, 2}, "timer", true},
  };
  for (const auto& [version, timer, isInteractive] : cases) {
    fakes.process.version = version;
    SCOPED_TRACE(fakes.process.systemVersionString());
    for (const std::string& view : {small(), medium()}) {
      EXPECT_THAT(view, HasSubstr(std::string("1000.5 ") + timer));
      EXPECT_THAT(view, HasSubstr(std::string("820.5 ") + timer));
      EXPECT_EQ(view.find("containerBackground") != std::string::npos, isInteractive);
    }
    EXPECT_EQ(medium().find("Button") != std::string::npos, isInteractive);
    EXPECT_EQ(medium().find(kPauseLink) < medium().find(kStopLink), !isInteractive);
  }
}

TEST_F(WidgetViews, ShowTheWholeTimeOnceThereAreEarlierStretches) {
  for (const std::uint64_t duration : {0U, 1U}) {
    model->duration = duration;
    for (const std::string& view : {small(), medium()}) {
      EXPECT_EQ(view.find("999.5 timer") != std::string::npos, duration == 1) << view;
      EXPECT_EQ(view.find("subheadline") != std::string::npos, duration == 1) << view;
    }
  }
}

TEST_F(WidgetViews, PauseControlCanBeSwitchedOff) {
  const std::pair<PropertyValue, bool> cases[] = {
      {{true}, true}, {{std::string("no")}, false}, {{PropertyArray{}}, false}};
  EXPECT_THAT(medium(), HasSubstr("pause.fill"));
  for (const auto& [stored, isShown] : cases) {
    fakes.settings.values["pauseEnabled"] = stored;
    EXPECT_EQ(medium().find("pause.fill") != std::string::npos, isShown);
    EXPECT_THAT(medium(), HasSubstr("stop.fill"));
  }
}

TEST(RunningWidget, SaysWhatTheGalleryShows) {
  FakePlatform fakes;
  const StaticConfiguration widget = RunningWidget(fakes.platform()).body();
  EXPECT_EQ(widget.displayName, "Runnning activity");
  EXPECT_EQ(widget.description, "Displays most recent started activity");
  EXPECT_EQ(widget.supportedFamilies,
            (std::vector{WidgetFamily::kSystemSmall, WidgetFamily::kSystemMedium}));
}

TEST_F(WidgetViews, FillTheFamilyOfTheWidget) {
  const StaticConfiguration widget = RunningWidget(fakes.platform()).body();
  const auto filled = [&](WidgetFamily family) {
    return outline(widget.content(*model, {ColorScheme::kDark, family}));
  };
  const std::string frame = " .frame(maxWidth infinity maxHeight infinity alignment center)\n";
  const auto framed = [&](std::string view) { return view.replace(view.find('\n'), 1, frame); };
  EXPECT_EQ(filled(WidgetFamily::kSystemSmall), framed(small()));
  EXPECT_EQ(filled(WidgetFamily::kSystemMedium), framed(medium(ColorScheme::kDark)));
}

TEST_F(WidgetViews, WithoutAnEntrySayThatNothingRuns) {
  model.reset();
  fakes.bundle.texts["complication.no_running"] = "Nichts";
  EXPECT_EQ(
      small(),
      "Text \"Nichts\" .containerBackground(color clear placement widget alignment center)\n");
  fakes.process.version = {16, 4};
  EXPECT_EQ(medium(), "Text \"Nichts\"\n");
}

}  // namespace
}  // namespace brevant::test
