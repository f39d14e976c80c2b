// SPDX-License-Identifier: MIT
#include "live/live_activity_widget.h"

#include <gmock/gmock.h>

#include "tests/support/fake_platform.h"
#include "tests/support/view_outline.h"

namespace brevant::test {
namespace {

const ReferenceDate kStart(Seconds(1000.5 - kReferenceDate));

using testing::HasSubstr;
using testing::Not;

class LiveActivityViews : public testing::Test {
 protected:
  LiveActivityViews() {
    for (const char* name :
         {"cat_1.png", "pause_widget@2x.png", "pause_widget_light@2x.png", "stop_widget@2x.png"}) {
      fakes.bundle.images[name] = std::make_shared<Image>(Image{1, 1, 1, {0, 0, 0, 255}, name});
    }
    fakes.bundle.texts["From"] = "Seit";
  }

  LiveActivityPresentation body(ColorScheme scheme = ColorScheme::kLight) {
    return LiveActivityWidget(fakes.platform()).body(state, scheme);
  }

  FakePlatform fakes;
  ContentState state{"abc", "Reading", "cat_1", 255, kStart, "never shown"};
};

TEST_F(LiveActivityViews, LockScreenIsTwoRowsBelowAThinSpace) {
  EXPECT_EQ(outline(body().lockScreen),
            R"(VStack center 8 .padding(leading 16 bottom 10 trailing 10)
  Text " " .font(size 10 weight regular design default)
  HStack center 8
    Text 1000.5 timer .font(style largeTitle) .monospacedDigit .bold .multilineTextAlignment(leading) .lineLimit(1) .invalidatableContent
    HStack center 0
      Button name StopActivityLiveIntent activityId abc operation pause .buttonStyle(plain) .padding(trailing default)
        Image pause_widget_light@2x.png .resizable .frame(width 44 height 44 alignment center)
      Button name StopActivityLiveIntent activityId abc operation stop .buttonStyle(plain)
        Image stop_widget@2x.png .resizable .frame(width 44 height 44 alignment center)
  HStack center 8
    Label
      Text "Reading" .font(style title3) .lineLimit(1) .minimumScaleFactor(0.5)
      Image .resizable .frame(width 20 height 20 alignment center)
    HStack center 0
      Text "Seit : " .font(style footnote)
      Text 1000.5 time .font(style footnote)
      Text " "
)");
}

TEST_F(LiveActivityViews, IslandHasItsRegions) {
  const DynamicIsland island = body().dynamicIsland;
  EXPECT_EQ(
      outline(island.expanded.leading),
      R"(Text 1000.5 timer .font(style title) .monospacedDigit .bold .minimumScaleFactor(0.7) .lineLimit(1) .padding(top default leading default bottom default trailing default) .invalidatableContent
)");
  EXPECT_EQ(outline(island.expanded.trailing), R"(HStack center 8
  Button name StopActivityLiveIntent activityId abc operation pause .buttonStyle(plain)
    Image pause_widget@2x.png .resizable .frame(width 50 height 50 alignment center)
  Button name StopActivityLiveIntent activityId abc operation stop .buttonStyle(plain)
    Image stop_widget@2x.png .resizable .frame(width 50 height 50 alignment center)
)");
  EXPECT_EQ(outline(island.expanded.bottom),
            R"(Label .padding(top default leading default bottom default trailing default)
  Text "Reading" .font(style body) .lineLimit(1) .minimumScaleFactor(0.7)
  Image .resizable .frame(width 16 height 16 alignment center)
)");
  EXPECT_EQ(outline(island.compactLeading), R"(HStack center 8
  Text "  "
  Image .resizable .frame(width 20 height 20 alignment center)
  Text "Reading"
)");
  EXPECT_EQ(outline(island.compactTrailing), "Text 1000.5 timer\n");
  EXPECT_EQ(outline(island.minimal), R"(Image .resizable .frame(width 20 height 20 alignment center)
)");
}

TEST_F(LiveActivityViews, OnlyTheLockScreensPauseFollowsTheColorScheme) {
  const LiveActivityPresentation light = body(ColorScheme::kLight);
  const LiveActivityPresentation dark = body(ColorScheme::kDark);
  std::string lockScreen = outline(light.lockScreen);
  lockScreen.erase(lockScreen.find("_light"), 6);
  EXPECT_EQ(outline(dark.lockScreen), lockScreen);
  EXPECT_EQ(dark.dynamicIsland.expanded.trailing, light.dynamicIsland.expanded.trailing);
}

TEST_F(LiveActivityViews, FollowTheSystemVersion) {
  const std::string link = "Link brevant:///widget?type=live_activity&action=";
  for (const auto& [version, isInteractive] :
       {std::pair(SystemVersion{16, 1}, false), std::pair(SystemVersion{16, 4}, false),
        std::pair(SystemVersion{17, 0}, true)}) {
    fakes.process.version = version;
    SCOPED_TRACE(fakes.process.systemVersionString());
    const LiveActivityPresentation presentation = body();
    const DynamicIsland& island = presentation.dynamicIsland;
    for (const View& timer : {presentation.lockScreen, island.expanded.leading}) {
      EXPECT_EQ(outline(timer).find(".invalidatableContent") != std::string::npos, isInteractive);
    }
    EXPECT_THAT(outline(island.compactTrailing), Not(HasSubstr("invalidatable")));
    for (const View& controls : {presentation.lockScreen, island.expanded.trailing}) {
      const std::string text = outline(controls);
      EXPECT_EQ(text.find("Button") != std::string::npos, isInteractive);
      EXPECT_EQ(text.find(link + "pause&activity=abc") < text.find(link + "stop&activity=abc"),
                !isInteractive);
    }
  }
}

using LiveActivityViewsDeathTest = LiveActivityViews;

TEST_F(LiveActivityViewsDeathTest, WhatTheyCannotDrawIsFatal) {
  state.color = 2147483647;
  static_cast<void>(body());
  state.color = 2147483648;
  EXPECT_DEATH(static_cast<void>(body()), "Fatal error: the Live Activity's color 2147483648");
  state.color = 255;
  state.icon = "D7A1F3C0-0000-4000-8000-000000000001";
  EXPECT_DEATH(static_cast<void>(body()), "Fatal error: the Live Activity's icon has no image");
  state.icon = "";
  fakes.bundle.images.erase("stop_widget@2x.png");
  EXPECT_DEATH(static_cast<void>(body()),
               "Fatal error: the resource image stop_widget@2x.png is missing");
}

}  // namespace
}  // namespace brevant::test
