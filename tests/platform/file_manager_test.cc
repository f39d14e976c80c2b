// SPDX-License-Identifier: MIT
#include "platform/linux/file_manager.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "platform/container_path.h"
#include "tests/support/fake_platform.h"
#include "tests/support/temporary_folder.h"

namespace brevant {
namespace {

class FileManagerContract : public testing::TestWithParam<bool> {
 protected:
  FileManagerContract() {
    folder.write("a", "contents");
    fake.container = root;
    fake.files = {{root + "/a", "contents"}};
  }

  const test::TemporaryFolder folder;
  const std::string root = std::filesystem::canonical(folder.path);
  test::FakeFileManager fake;
  const std::unique_ptr<FileManager> real = makeFileManager(root);
  FileManager* const files = GetParam() ? real.get() : &fake;
};

TEST_P(FileManagerContract, FindsAndReadsFilesByThePathsOfTheSystem) {
  const std::string path = *containerPath(*files, "a");
  EXPECT_EQ(path, "//" + root + "/a");
  EXPECT_TRUE(files->fileExists(path));
  EXPECT_EQ(files->contents(path, 8), "contents");
  EXPECT_EQ(files->contents(path, 7), std::nullopt);
  EXPECT_EQ(files->contents(path + "b", 7), std::nullopt);
  EXPECT_EQ(files->removeFile(path), "");
  EXPECT_FALSE(files->fileExists(path));
  EXPECT_NE(files->removeFile(path), "");
  EXPECT_EQ(files->containerUrl("another.group"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(RealAndFake, FileManagerContract, testing::Bool());

TEST(LinuxFileManagerTest, ReadsNothingButRegularFilesAndNeverWaits) {
  const test::TemporaryFolder folder;
  const auto files = makeFileManager("");
  const std::string pipe = folder.path / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(files->contents(pipe, 10), std::nullopt);
  EXPECT_EQ(files->contents(folder.path, 10), std::nullopt);
  EXPECT_EQ(files->contents("/dev/zero", 10), std::nullopt);
  EXPECT_EQ(files->containerUrl(kAppGroupIdentifier), std::nullopt);
}

TEST(ContainerPathTest, KeepsEscapesAndDeletesEveryScheme) {
  const struct {
    const char* container;
    const char* path;
  } cases[] = {
      {"/data", "///data/database.sqlite"},
      {"/a b/ü?#%[", "///a%20b/%C3%BC%3F%23%25%5B/database.sqlite"},
      {"/-._~!$&'()*+,;=:@", "///-._~!$&'()*+,;=:@/database.sqlite"},
      {"/file:/profile:x", "////prox/database.sqlite"},
  };
  for (const auto& each : cases) {
    test::FakeFileManager files;
    files.container = each.container;
    EXPECT_EQ(containerPath(files, "database.sqlite"), each.path);
    EXPECT_EQ(files.containerUrl(kAppGroupIdentifier)->path(), std::string(each.container) + "/");
  }
}

}  // namespace
}  // namespace brevant
