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
  folder.write("iCloud.brevant/private/WidgetUpdate/C.json", "{\"recordType\":5}");
  folder.write("iCloud.brevant/private/WidgetUpdate/A.json.part", "{}");
  EXPECT_THAT(savedCloudRecords(folder.path, kContainer), ElementsAre(update("A"), update("B")));
  EXPECT_THAT(savedCloudRecords(folder.path, "another"), testing::IsEmpty());
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
