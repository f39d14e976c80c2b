// SPDX-License-Identifier: MIT
#include "platform/linux/bundle.h"

#include <gtest/gtest.h>
#include <map>

#include "platform/linux/image_codec.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_data.h"

namespace brevant {
namespace {

class BundleTest : public testing::Test {
 protected:
  void add(const std::string& name, int width) const {
    const auto png = codec->encodePng(
        {width, 1, 1, std::vector<std::uint8_t>(static_cast<std::size_t>(width) * 4, 255), ""});
    folder.write("brevant/images/" + name, std::string(png->begin(), png->end()));
  }

  const test::TemporaryFolder folder;
  const std::unique_ptr<ImageCodec> codec = makeImageCodec();
  const std::unique_ptr<Bundle> bundle = makeBundle(folder.path, *codec);
};

TEST_F(BundleTest, PrefersTheBestScaleThatExists) {
  for (const auto& [name, width] : {std::pair("a.png", 1),
                                    {"a@2x.png", 2},
                                    {"a@3x.png", 3},
                                    {"b.png", 1},
                                    {"b@2x.png", 2},
                                    {"c.png", 1}}) {
    add(name, width);
  }
  const std::map<std::string, double> scales = {
      {"a", 3},     {"a.png", 3}, {"a@2x.png", 2},    {"a@3x", 3},
      {"b.png", 2}, {"b@3x", 0},  {"c", 1},           {"d", 0},
      {"", 0},      {".png", 0},  {"../images/a", 0}, {std::string("a\0.png", 6), 0}};
  for (const auto& [name, scale] : scales) {
    const ImageRef image = bundle->imageNamed(name);
    EXPECT_EQ(image ? image->scale : 0, scale) << name;
    if (!image) continue;
    EXPECT_EQ(image->width(), 1);
    EXPECT_EQ(image->name, name);
  }
}

// What the texts are under an environment, in a process of its own: a language is for life.
TEST_F(BundleTest, SpeaksTheLanguageOfTheEnvironment) {
  folder.write("locale/en/LC_MESSAGES/brevant.mo", test::testData("en.mo"));
  folder.write("locale/de/LC_MESSAGES/brevant.mo", test::testData("de.mo"));
  using Texts = std::vector<std::string>;
  const Texts english{"Reminder", "Every minute", "Every %d minutes", "English", "no such key", ""};
  const Texts german{"Erinnerung", "Jede Minute", "Alle %d Minuten", "English", "no such key", ""};
  const std::pair<std::map<std::string, std::string>, Texts> cases[] = {
      {{}, english},
      {{{"LC_ALL", "C"}, {"LANGUAGE", "de"}}, english},
      {{{"LANG", "POSIX"}}, english},
      {{{"LANG", "C.UTF-8"}}, english},
      {{{"LANG", "ja_JP.UTF-8"}}, english},
      {{{"LANGUAGE", "de"}}, german},
      {{{"LANG", "de_AT.ISO-8859-1"}}, german},
      {{{"LANG", "en_US.UTF-8"}, {"LC_MESSAGES", "de_DE.UTF-8"}}, german},
      {{{"LC_MESSAGES", "de_DE"}, {"LC_ALL", "en_US.UTF-8"}}, english},
      {{{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "ja:de"}}, german},
  };
  for (const auto& [environment, expected] : cases) {
    EXPECT_TRUE(test::runTogether(1, [&, &variables = environment, &texts = expected](int) {
      for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) unsetenv(name);
      for (const auto& [name, value] : variables) setenv(name.c_str(), value.c_str(), 1);
      Texts said{bundle->localizedString("Remind")};
      for (const long number : {1, -5})
        said.push_back(bundle->localizedPlural("Every %d minutes", number));
      for (const char* key : {"only English", "no such key", ""})
        said.push_back(bundle->localizedString(key));
      if (said != texts) _exit(1);
    })) << testing::PrintToString(environment);
  }
}

}  // namespace
}  // namespace brevant
