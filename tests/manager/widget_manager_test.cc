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
  const TestDatabase database;
  database.run("INSERT INTO categories (guid) VALUES ('C')");
  FakePlatform fakes;
  fakes.files.container = database.folder;
  const std::string spelled = "//" + database.path;
  fakes.files.files[database.path] = "";
  EXPECT_EQ(WidgetManager::open(fakes.platform())->findAllTypes().size(), 1U);

  fakes.files.container = "/a b";  // escaped in the URL, and so not found
  fakes.files.files["/a b/database.sqlite"] = "";
  EXPECT_EQ(WidgetManager::open(fakes.platform())->dao->db, nullptr);
  fakes.files.container.reset();
  EXPECT_THAT(WidgetManager::open(fakes.platform())->findActivities(), IsEmpty());
}

TEST(WidgetManager, RunningActivitiesKeepTheOrderOfAll) {
  ManagerOnDatabase on;
  on.database.run(R"(INSERT INTO logs (guid, state, start_date) VALUES
    ('old', 1, 100), ('paused', 2, NULL), ('new', 1, 200), ('stopped', 0, NULL))");
  EXPECT_THAT(guidsOf(on.manager.findActivities()), ElementsAre("new", "old", "paused"));
  EXPECT_THAT(guidsOf(on.manager.findRunningActivities()), ElementsAre("new", "old"));
}

struct Categories : testing::Test, ManagerOnDatabase {
  Categories() {
    database.run(R"(INSERT INTO categories (order_num, guid, name, parent_guid, is_group) VALUES
      (1, 'leaf',   'Deep',  'sub',    0),
      (2, 'sub',    'Sub',   'top',    1),
      (3, 'top',    'Work',  NULL,     1),
      (4, 'lone',   'WORK',  NULL,     0),
      (5, 'orphan', 'Lost',  'gone',   1),
      (6, 'below',  'Found', 'orphan', 0),
      (7, 'lone',   NULL,    '',       0),
      (8, 'ring a', 'Ring',  'ring b', 1),
      (9, 'ring b', 'Ring',  'ring a', 1))");
  }
};

TEST_F(Categories, AreRootsWithoutAParentAndAreFoundByGuidAsItIsSpelled) {
  EXPECT_THAT(guidsOf(manager.findRoot()), ElementsAre("top", "lone"));
  EXPECT_THAT(guidsOf(manager.findCategoriesOnly()), ElementsAre("leaf", "lone"));
  EXPECT_EQ(manager.findById("lone")->name, "WORK");
  EXPECT_EQ(manager.findById("ring b")->name, "Ring");
  for (const char* const unknown : {"TOP", "to", "gone", ""}) {
    EXPECT_EQ(manager.findById(unknown), nullptr) << unknown;
  }
}

TEST_F(Categories, AreFoundByNameWhateverItsCaseAndKnowTheirDepth) {
  struct Case {
    const char* name;
    const char* guid;
    int nestingLevel;
  };
  const Case cases[] = {{"work", "top", 0},
                        {"DEEP", "leaf", 2},
                        {"lost", "orphan", 0},
                        {"found", "below", 1},
                        {"ring", "ring a", 0}};
  for (const auto& [name, guid, nestingLevel] : cases) {
    SCOPED_TRACE(name);
    const TypeRef found = manager.findByName(name);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->guid, guid);
    EXPECT_EQ(found->nestingLevel, nestingLevel);
  }
  EXPECT_EQ(manager.findByName(""), nullptr);
  EXPECT_EQ(manager.findByName("Wor"), nullptr);
}

}  // namespace
}  // namespace brevant::test
