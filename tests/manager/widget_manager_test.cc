// SPDX-License-Identifier: MIT
#include "manager/widget_manager.h"

#include <gmock/gmock.h>

#include "tests/manager/manager_on_database.h"

namespace brevant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> guidsOf(const auto& records) {
  std::vector<std::string> guids;
  guids.reserve(records.size());
  for (const auto& record : records) guids.push_back(record->guid.value_or("-"));
  return guids;
}

TEST(WidgetManager, OpensTheDatabaseWhereTheContainersUrlSpellsIt) {
  FakePlatform fakes;
  const TestDatabase database(fakes);
  database.run("INSERT INTO categories (guid) VALUES ('C')");
  EXPECT_EQ(WidgetManager::open(fakes.platform())->findAllTypes().size(), 1U);

  fakes.files.container = "/a b";  // escaped in the URL, and so not found
  fakes.files.files["/a b/database.sqlite"] = "";
  EXPECT_EQ(WidgetManager::open(fakes.platform())->dao->db, nullptr);
  fakes.files.container.reset();
  EXPECT_THAT(WidgetManager::open(fakes.platform())->findActivities(), IsEmpty());
}

TEST(WidgetManager, FindsCategoriesByGuidAsItIsSpelledAndByNameWhateverItsCase) {
  ManagerOnDatabase on;
  on.database.run(R"(INSERT INTO categories (order_num, guid, name, parent_guid, is_group) VALUES
    (1, 'leaf', 'Deep', 'sub', 0), (2, 'sub', 'Sub', 'top', 1), (3, 'top', 'Work', NULL, 1),
    (4, 'lone', 'WORK', NULL, 0), (5, 'orphan', 'Lost', 'gone', 1),
    (6, 'below', 'Found', 'orphan', 0), (7, 'lone', NULL, '', 0))");
  const WidgetManager& manager = on.manager;
  EXPECT_THAT(guidsOf(manager.findRoot()), ElementsAre("top", "lone"));
  EXPECT_THAT(guidsOf(manager.findCategoriesOnly()), ElementsAre("leaf", "lone"));
  EXPECT_EQ(manager.findById("lone")->name, "WORK");
  for (const char* const unknown : {"TOP", "to", "gone", ""}) {
    EXPECT_EQ(manager.findById(unknown), nullptr) << unknown;
  }
  const std::tuple<const char*, const char*, int> cases[] = {
      {"work", "top", 0}, {"DEEP", "leaf", 2}, {"lost", "orphan", 0}, {"found", "below", 1}};
  for (const auto& [name, guid, nestingLevel] : cases) {
    const TypeRef found = manager.findByName(name);
    ASSERT_TRUE(found) << name;
    EXPECT_EQ(found->guid, guid);
    EXPECT_EQ(found->nestingLevel, nestingLevel) << name;
  }
  EXPECT_EQ(manager.findByName(""), nullptr);
  EXPECT_EQ(manager.findByName("Wor"), nullptr);
}

}  // namespace
}  // namespace brevant::test
