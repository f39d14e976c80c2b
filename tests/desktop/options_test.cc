// SPDX-License-Identifier: MIT
#include "desktop/options.h"

#include <gmock/gmock.h>

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(Options, RefusesWhatWouldSilentlyBeIgnored) {
  const struct {
    const char* words;
    const char* said;
  } kCases[] = {
      {"--picture large -o x.png", "not a value of --picture: large"},
      {"--picture small", "--picture needs -o FILE.png"},
      {"--picture small -o x.png --scale 4", "not a value of --scale: 4"},
      {"--picture small -o x.png --do pause", "--picture and --do exclude each other"},
      {"--open brevant:///x --do pause", "--do and --open exclude each other"},
      {"--picture small -o x.png --output y.png", "--output is given twice"},
      {"--ios-app-on-mac --ios-app-on-mac", "--ios-app-on-mac is given twice"},
      {"--scale 2", "--scale belongs to --picture"},
      {"-o x.png", "--output belongs to --picture"},
      {"--do sleep", "not a value of --do: sleep"},
      {"--now soon", "not a value of --now: soon"},
      {"--color-scheme blue", "not a value of --color-scheme: blue"},
      {"--frobnicate", "Unknown option"},
      {"--help-all", "Unknown option"},
      {"--help more", "unknown word: more"},
  };
  for (const auto& [words, said] : kCases) {
    const auto parsed = parseOptions((u"x "_s + QString::fromLatin1(words)).split(u' '));
    const auto* refusal = std::get_if<Refusal>(&parsed);
    ASSERT_TRUE(refusal) << words;
    EXPECT_EQ(refusal->exitCode, 2) << words;
    EXPECT_THAT(refusal->message.toStdString(), testing::HasSubstr(said));
  }
}

TEST(Options, TellsItsUsageByItsOwnName) {
  const auto help = std::get<Refusal>(parseOptions({u"x"_s, u"-h"_s}));
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_TRUE(help.message.startsWith(u"Usage: brevant-desktop [options]"_s));
  EXPECT_FALSE(help.message.contains(u"help-all"_s));
  const auto version = std::get<Refusal>(parseOptions({u"x"_s, u"--version"_s}));
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_TRUE(version.message.startsWith(u"brevant-desktop 0."_s));
}

}  // namespace
}  // namespace brevant
