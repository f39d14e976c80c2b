// SPDX-License-Identifier: MIT
#include "manager/pin_disk_cache.h"

#include <gmock/gmock.h>

#include "tests/support/fake_platform.h"
#include "tests/support/replaced_services.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kFolder = "/caches/org.brevant.PINDiskCache.PINDiskCacheShared/";

TEST(PINDiskCache, EachKeyIsOneFileInTheFolder) {
  const std::pair<const char*, const char*> cases[] = {
      {"cat_1.png-16711680", "cat_1%2Epng-16711680"},
      {"../a:b%2E", "%2E%2E%2Fa%3Ab%252E"},
      {"a b\\~é", "a b\\~é"}};
  for (const auto& [key, file] : cases) {
    SCOPED_TRACE(key);
    FakePlatform fakes;
    fakes.files.files[kFolder + file] = "archive";
    const auto image = std::make_shared<const Image>();
    fakes.images.byContents["archive"] = image;
    const PINDiskCache cache(fakes.platform());
    EXPECT_EQ(cache.objectForKey(key), image);
    EXPECT_EQ(cache.objectForKey(file), std::string(key) == file ? image : nullptr);

    EXPECT_THAT(fakes.files.modified, IsEmpty());
    fakes.tasks.waitUntilIdle();
    EXPECT_THAT(fakes.files.modified, ElementsAre(testing::Pair(kFolder + file, fakes.clock.time)));
  }
}

TEST(PINDiskCache, AMissOrAnArchiveWithoutAnImageChangesNoFile) {
  FakePlatform fakes;
  fakes.files.files = {{kFolder, "archive"}, {kFolder + "b", "archive of a text"}};
  fakes.images.byContents["archive of a text"] = nullptr;
  const PINDiskCache cache(fakes.platform());
  for (const char* const key : {"", "a", "b"}) EXPECT_EQ(cache.objectForKey(key), nullptr) << key;
  fakes.files.caches.reset();
  EXPECT_EQ(PINDiskCache(fakes.platform()).objectForKey("b"), nullptr);
  EXPECT_THAT(fakes.tasks.tasks, SizeIs(1));  // the text was used
  EXPECT_THAT(fakes.log.lines, IsEmpty());
  EXPECT_THAT(fakes.files.files, SizeIs(2));
}

TEST(PINDiskCache, WhatIsNoArchiveIsDeletedOrElseLogged) {
  struct ReadOnlyFiles : FakeFileManager {
    std::string removeFile(const std::string&) override { return "Read-only file system"; }
  } readOnly;
  FakePlatform fakes;
  fakes.files.files[kFolder + "a"] = readOnly.files[kFolder + "a"] = "no archive";
  EXPECT_EQ(PINDiskCache(fakes.platform()).objectForKey("a"), nullptr);
  EXPECT_THAT(fakes.files.files, IsEmpty());
  EXPECT_THAT(fakes.log.lines, IsEmpty());

  const PINDiskCache cache(replaced(fakes.platform(), {.files = &readOnly}));
  EXPECT_EQ(cache.objectForKey("a"), nullptr);
  EXPECT_THAT(fakes.log.lines, ElementsAre(testing::MatchesRegex(
                                   "pin_disk_cache.cc .[0-9]+. ERROR: Read-only file system")));
}

}  // namespace
}  // namespace brevant::test
