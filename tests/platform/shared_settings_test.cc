// SPDX-License-Identifier: MIT
#include "platform/linux/shared_settings.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/linux/durable_file.h"
#include "platform/linux/file_lock.h"
#include "platform/linux/property_list.h"
#include "tests/support/failing_disk.h"
#include "tests/support/fake_platform.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_data.h"

namespace brevant {
namespace {

using test::testData;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kPlist = "Library/Preferences/group.brevant.plist";
const std::string kFlag = "widgetUpdatedActivity";
constexpr uid_t kSomebody = 65534;

class SharedSettingsTest : public testing::Test {
 protected:
  std::unique_ptr<SharedSettings> open() { return makeSharedSettings(folder.path, clock, log); }

  // As long after the last read as its answer counts as current.
  void letTimePass() { clock.monotonic += 0.01; }

  const test::TemporaryFolder folder;
  test::FakeClock clock;
  test::FakeLog log;
};

class SettingsContract : public SharedSettingsTest, public testing::WithParamInterface<bool> {
 protected:
  std::unique_ptr<SharedSettings> settings =
      GetParam() ? open() : std::make_unique<test::FakeSettings>();
};

TEST_P(SettingsContract, ReadsItsOwnWritesAtOnceAndKeepsSnapshots) {
  EXPECT_FALSE(settings->boolean(kFlag));
  EXPECT_EQ(settings->integer(kFlag), 0);
  EXPECT_EQ(settings->object(kFlag), nullptr);
  settings->setBool(true, kFlag);
  const auto snapshot = settings->object(kFlag);
  EXPECT_TRUE(settings->boolean(kFlag));
  EXPECT_EQ(settings->integer(kFlag), 1);
  EXPECT_EQ(settings->synchronize(), SaveOutcome());
  settings->setBool(false, kFlag);
  EXPECT_FALSE(settings->boolean(kFlag));
  ASSERT_NE(snapshot, nullptr);
  EXPECT_EQ(*snapshot, PropertyValue{true});
}

INSTANTIATE_TEST_SUITE_P(RealAndFake, SettingsContract, testing::Bool());

TEST_F(SharedSettingsTest, KeepsEverythingElseInBothFormats) {
  for (const std::string name : {"settings_binary.plist", "settings_xml.plist"}) {
    const std::string before = testData(name);
    const std::string path = folder.write(kPlist, before);
    chmod(path.c_str(), 0640);
    const bool isRoot = chown(path.c_str(), kSomebody, kSomebody) == 0 &&
                        chown(folder.path.c_str(), kSomebody, kSomebody) == 0;
    const auto settings = open();
    settings->setBool(true, kFlag);
    ASSERT_TRUE(settings->synchronize().isSaved());

    auto expected = parsePropertyList(before);
    ASSERT_TRUE(expected);
    EXPECT_EQ(expected->size(), 12);
    EXPECT_EQ(expected->at("unsigned"), PropertyValue{UINT64_MAX});
    EXPECT_EQ(expected->at("negative"), PropertyValue{std::int64_t{-5}});
    EXPECT_EQ(expected->at("date"), PropertyValue{dateFromSeconds(1699146123)});
    expected->at(kFlag) = {true};
    const std::string after = folder.read(kPlist);
    EXPECT_EQ(parsePropertyList(after), expected);
    EXPECT_EQ(after.substr(0, 8), before.substr(0, 8));
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    EXPECT_EQ(status.st_uid, isRoot ? kSomebody : geteuid());
    EXPECT_FALSE(std::filesystem::exists(path + ".new"));
  }
}

TEST_F(SharedSettingsTest, SeesAnotherProcessWithinTenMillisecondsAndAsksTheDiskNoMoreOften) {
  const auto ours = open(), theirs = open();
  EXPECT_FALSE(ours->boolean(kFlag));
  theirs->setBool(true, kFlag);
  ASSERT_TRUE(theirs->synchronize().isSaved());
  EXPECT_FALSE(ours->boolean(kFlag));
  letTimePass();
  EXPECT_TRUE(ours->boolean(kFlag));

  // Written in place, within one step of the file system's clock and with the same size.
  std::string swapped = folder.read(kPlist);
  swapped[swapped.find('\x09')] = '\x08';
  folder.write(kPlist, swapped);
  letTimePass();
  EXPECT_FALSE(ours->boolean(kFlag));
}

TEST_F(SharedSettingsTest, NeverOverwritesABrokenFile) {
  std::string deep = "<plist version=\"1.0\"><dict><key>a</key>";
  for (int i = 0; i < 15000; ++i) deep += "<array>";
  for (int i = 0; i < 15000; ++i) deep += "</array>";
  const std::string broken[] = {
      "",
      "no property list",
      "bplist00",
      testData("settings_binary.plist").substr(0, 500),
      testData("settings_xml.plist").substr(0, 500),
      "<plist version=\"1.0\"><array/></plist>",
      deep + "</dict></plist>",
      testData("doubling.plist"),
      testData("circular.plist"),
      testData("settings_xml.plist") + std::string(kMaxPropertyListSize, ' '),
  };
  for (const std::string& contents : broken) {
    const std::string path = folder.write(kPlist, contents);
    const auto settings = open();
    EXPECT_EQ(settings->integer("activityMinDuration"), 0);
    settings->setBool(true, kFlag);
    EXPECT_THAT(settings->problem(), HasSubstr(kPlist));
    EXPECT_THAT(settings->synchronize().why, HasSubstr(path));
    EXPECT_EQ(folder.read(kPlist), contents);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr(path)));
    log.lines.clear();
  }
}

// Somebody keeps it elsewhere, with the rest of their settings.
TEST_F(SharedSettingsTest, ChangesTheTargetOfALinkAndLeavesNothingElseBehind) {
  const std::string target = folder.write("elsewhere/mine", testData("settings_xml.plist"));
  std::filesystem::create_directories(folder.path / "Library/Preferences");
  std::filesystem::create_symlink(target, folder.path / kPlist);
  const auto settings = open();
  settings->setBool(true, kFlag);
  std::filesystem::create_directory(target + ".new");  // in the way of the write
  EXPECT_FALSE(settings->synchronize().isSaved());
  std::filesystem::remove(target + ".new");
  EXPECT_TRUE(settings->synchronize().isSaved());
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path / kPlist));
  EXPECT_EQ(parsePropertyList(folder.read("elsewhere/mine"))->at(kFlag), PropertyValue{true});

  ASSERT_TRUE(std::filesystem::remove(target) && std::filesystem::create_directory(target));
  EXPECT_FALSE(replaceFile(target, std::nullopt, "contents"));
  EXPECT_FALSE(std::filesystem::exists(target + ".new"));
}

TEST_F(SharedSettingsTest, LosesNothingWhenTwoProcessesWrite) {
  folder.write(kPlist, testData("settings_xml.plist"));
  EXPECT_TRUE(test::runTogether(2, [this](int process) {
    const std::string key = "process" + std::to_string(process);
    for (int round = 0; round < 1000; ++round) {
      const bool value = round % 2 == 0;
      const auto settings = open();
      if (round > 0 && settings->boolean(key) == value) _exit(1);  // what we wrote is gone
      settings->setBool(value, key);
      if (!settings->synchronize().isSaved()) _exit(1);
    }
  }));
  EXPECT_EQ(parsePropertyList(folder.read(kPlist))->size(), 14);
}

// The tracker replaces its settings and has never heard of our lock.
TEST_F(SharedSettingsTest, KeepsWhatIsSavedWithoutTheLockMeanwhile) {
  const std::string path = folder.write(kPlist, testData("settings_xml.plist"));
  const auto save = [&](bool value) {
    const std::string theirs =
        folder.write("theirs", *mergedPropertyList(folder.read(kPlist), {{"theirs", value}}));
    std::filesystem::rename(theirs, path);
  };
  const auto settings = open();
  settings->setBool(true, kFlag);
  {
    const test::AtExchange hook([&](int call) {
      if (call <= 2) save(call == 2);  // before ours comes, and before theirs is put back
      return 0;
    });
    EXPECT_EQ(settings->synchronize(), SaveOutcome());
  }
  EXPECT_TRUE(settings->boolean("theirs") && settings->boolean(kFlag));
  settings->setBool(false, kFlag);
  {
    const test::AtExchange hook([&](int call) {
      if (call == 1) save(false);
      return call == 1 ? 0 : EIO;
    });
    EXPECT_THAT(settings->synchronize().why, HasSubstr(path + ".new"));
  }
  const std::string theirs = folder.read(kPlist + ".new");
  EXPECT_EQ(parsePropertyList(theirs)->at("theirs"), PropertyValue{false});
  const test::AtExchange forbidden([](int) { return EPERM; });
  EXPECT_EQ(settings->synchronize(), SaveOutcome());
  EXPECT_EQ(folder.read(kPlist + ".left"), theirs);
}

TEST_F(SharedSettingsTest, PutsBackWhatCannotBeReadAnyMore) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizers need the descriptors that are taken away here";
#endif
  folder.write(kPlist, testData("settings_xml.plist"));
  const auto settings = open();
  settings->setBool(true, kFlag);
  rlimit before{};
  getrlimit(RLIMIT_NOFILE, &before);
  int exchanges = 0;
  {
    const test::AtExchange hook([&](int call) {
      exchanges = call;
      const rlimit none{0, before.rlim_max};
      setrlimit(RLIMIT_NOFILE, call < 100 ? &none : &before);
      return 0;
    });
    EXPECT_THAT(settings->synchronize().why, HasSubstr("cannot be read"));
  }
  setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_EQ(exchanges, 2);
  EXPECT_EQ(folder.read(kPlist), testData("settings_xml.plist"));
  EXPECT_FALSE(fileExists(folder.path / (kPlist + ".new")));
}

TEST_F(SharedSettingsTest, SaysWhyNothingIsSavedAndWhatIsSavedButPerhapsNotForEver) {
  const std::string path = folder.write(kPlist, testData("settings_xml.plist"));
  const std::string lock = path + ".lock";
  const auto settings = open();
  settings->setBool(true, kFlag);
  ASSERT_EQ(mkfifo(lock.c_str(), 0600), 0);
  EXPECT_EQ(settings->synchronize(), notSaved(lock + ": cannot be locked: this is no file"));
  std::filesystem::remove(lock);
  {
    const FileLock held(lock);
    const SaveOutcome outcome = settings->synchronize();  // rather than wait for ever
    EXPECT_EQ(outcome, notSaved(lock + ": cannot be locked: another program holds the lock"));
    EXPECT_EQ(folder.read(kPlist), testData("settings_xml.plist"));
  }
  const test::FoldersCannotBeFlushed faulty;
  const SaveOutcome outcome = settings->synchronize();
  EXPECT_EQ(outcome.state, SaveOutcome::State::kUnconfirmed);
  EXPECT_THAT(outcome.why, HasSubstr(path));
  EXPECT_EQ(parsePropertyList(folder.read(kPlist))->at(kFlag), PropertyValue{true});
  EXPECT_THAT(log.lines, testing::SizeIs(3));
}

TEST_F(SharedSettingsTest, IsAsBeforeOrAsAfterWhenKilled) {
  const std::string before = testData("settings_binary.plist");
  std::set<std::string> seen;
  for (int call = 1;; ++call) {
    folder.write(kPlist, before);
    const test::End end = test::runKilledAt(call, [this] {
      const auto settings = open();
      settings->setBool(true, kFlag);
      settings->synchronize();
    });
    if (end == test::End::kUntraceable) GTEST_SKIP() << "this system lets nobody trace a process";
    seen.insert(folder.read(kPlist));
    if (end == test::End::kFinished) break;
  }
  ASSERT_EQ(seen.size(), 2);
  EXPECT_TRUE(seen.contains(before));
  auto after = parsePropertyList(before);
  after->at(kFlag) = {true};
  seen.erase(before);
  EXPECT_EQ(parsePropertyList(*seen.begin()), after);
}

}  // namespace
}  // namespace brevant
