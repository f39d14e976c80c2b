#include "widget/widgets_collection.h"

#include <gtest/gtest.h>

#include "tests/support/fake_platform.h"
#include "tests/support/view_outline.h"

namespace brevant {
namespace {

TEST(WidgetsCollection, OffersTheLiveActivityWhereTheSystemHasIt) {
  test::FakePlatform fakes;
  const std::pair<SystemVersion, std::string> cases[] = {
      {{15, 4}, "running_widget"},
      {{16, 0}, "running_widget"},
      {{16, 1}, "running_widget live"},
      {{17, 0}, "running_widget live"},
  };
  for (const auto& [version, expected] : cases) {
    fakes.process.version = version;
    std::string kinds;
    const WidgetsCollection bundle(fakes.platform(), [] { return BundledWidget{"live"}; });
    for (const BundledWidget& widget : bundle.body()) {
      kinds += (kinds.empty() ? "" : " ") + widget.kind;
    }
    EXPECT_EQ(kinds, expected) << fakes.process.systemVersionString();
  }
}

TEST(RunningWidget, SaysWhatTheGalleryShows) {
  test::FakePlatform fakes;
  const StaticConfiguration widget = RunningWidget(fakes.platform()).body();
  EXPECT_EQ(widget.displayName, "Runnning activity");
  EXPECT_EQ(widget.description, "Displays most recent started activity");
  EXPECT_EQ(widget.supportedFamilies,
            (std::vector{WidgetFamily::kSystemSmall, WidgetFamily::kSystemMedium}));
}

TEST(RunningWidget, FillsItsFamilyWithTheEntry) {
  test::FakePlatform fakes;
  const StaticConfiguration widget = RunningWidget(fakes.platform()).body();
  const WidgetContent entry{"a", fakes.clock.time, "", std::make_shared<Image>(), fakes.clock.time};
  const std::string small =
      test::outline(widget.content(entry, {ColorScheme::kDark, WidgetFamily::kSystemSmall}));
  const std::string medium =
      test::outline(widget.content(entry, {ColorScheme::kDark, WidgetFamily::kSystemMedium}));
  for (const std::string& view : {small, medium}) {
    const std::string root = view.substr(0, view.find('\n'));
    EXPECT_TRUE(root.ends_with(" .frame(maxWidth infinity maxHeight infinity alignment center)"))
        << root;
  }
  EXPECT_EQ(small.find("Button"), std::string::npos);
  EXPECT_NE(medium.find("fill red 0.2"), std::string::npos) << medium;
}

}  // namespace
}  // namespace brevant
