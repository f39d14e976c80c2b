// SPDX-License-Identifier: MIT
#include "platform/linux/cloud_database.h"

#include <gmock/gmock.h>

#include "tests/support/fake_platform.h"
#include "tests/support/temporary_folder.h"

namespace brevant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string kContainer = "iCloud.brevant";

CloudRecord update(const std::string& name) {
  return {"WidgetUpdate", name, {{"deviceGuid", ""}}};
}

class CloudDatabaseTest : public testing::Test {
 protected:
  std::string save(const CloudRecord& record) {
    std::string problem = "not called";
    cloud->save(kContainer, record, [&](const std::string& error) { problem = error; });
    EXPECT_EQ(problem, "not called");  // it is stored in the background
    tasks.waitUntilIdle();
    return problem;
  }

  std::vector<CloudRecord> listed(const std::string& cloudContainer) {
    return savedCloudRecords(folder.path, cloudContainer,
                             [this](const std::string& problem) { problems.push_back(problem); });
  }

  std::vector<std::string> problems;
  const test::TemporaryFolder folder;
  test::FakeTasks tasks;
  const std::unique_ptr<CloudDatabase> cloud = makeCloudDatabase(folder.path, tasks);
};

TEST_F(CloudDatabaseTest, StoresAFilePerRecord) {
  EXPECT_EQ(save(update("B")), "");
  EXPECT_EQ(save(update("A")), "");
  EXPECT_EQ(folder.read("iCloud.brevant/private/WidgetUpdate/A.json"),
            R"({"recordType":"WidgetUpdate","recordName":"A","fields":{"deviceGuid":""}})"
            "\n");
  folder.write("iCloud.brevant/private/WidgetUpdate/A.json.part", "{}");
  EXPECT_THAT(listed(kContainer), ElementsAre(update("A"), update("B")));
  EXPECT_THAT(listed("another"), testing::IsEmpty());
  EXPECT_THAT(problems, testing::IsEmpty());
}

TEST_F(CloudDatabaseTest, PassesOverWhatIsNoRecordAndSaysWhy) {
  EXPECT_EQ(save(update("A")), "");
  std::string many = R"({"recordType":"T","recordName":"N","fields":{)";
  for (int i = 0; i < 65; ++i) many += "\"" + std::to_string(i) + "\":\"\",";
  many.back() = '}';
  const std::pair<std::string, const char*> broken[] = {
      {R"({"recordType":5})", "is no cloud record"},
      {many + "}", "more than 64 fields"},
      {std::string((std::size_t{1} << 20U) + 1, ' '), "larger than 1024 KiB"},
      {R"({"recordType":"T","recordName":"N","fields":{}})" + std::string("\0x", 2), "NUL"},
      {std::string(65, '[') + std::string(65, ']'), "64 levels"},
  };
  for (const auto& [contents, why] : broken) {
    problems.clear();
    folder.write("iCloud.brevant/private/WidgetUpdate/C.json", contents);
    EXPECT_THAT(listed(kContainer), ElementsAre(update("A")));
    EXPECT_THAT(problems, ElementsAre(HasSubstr(why)));
  }
  for (const char* const name : {"C", "D", "E"}) {
    folder.write(std::string("iCloud.brevant/private/WidgetUpdate/") + name + ".json",
                 std::string(std::size_t{1} << 20U, ' '));
  }
  problems.clear();
  listed(kContainer);
  EXPECT_THAT(problems, testing::Contains(HasSubstr("after 2048 KiB")));
}

TEST_F(CloudDatabaseTest, NeverWritesOutsideItsFolderAndReportsFailure) {
  for (const char* const name : {"", "..", "../A", "a/b", ".hidden"}) {
    EXPECT_NE(save(update(name)), "") << name;
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path));
  folder.write("iCloud.brevant", "a file where the folder should be");
  EXPECT_THAT(save(update("A")), HasSubstr("iCloud.brevant"));
}

}  // namespace
}  // namespace brevant
