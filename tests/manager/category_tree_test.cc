#include "manager/category_tree.h"

#include <gmock/gmock.h>
#include <map>

namespace brevant {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum class Kind { kCategory, kGroup };

struct Row {
  const char* guid;  // null: absent
  const char* parent;
  Kind kind;
};

TypeList typesOf(const std::vector<Row>& rows) {
  std::vector<std::unique_ptr<WidgetType>> records;
  for (const Row& row : rows) {
    if (row.kind == Kind::kGroup) {
      records.push_back(std::make_unique<WidgetGroup>());
    } else {
      records.push_back(std::make_unique<WidgetType>());
    }
    if (row.guid) records.back()->guid = row.guid;
    if (row.parent) records.back()->parentGuid = row.parent;
  }
  return sharedTypes(std::move(records));
}

TypeList builtFrom(const std::vector<Row>& rows) {
  TypeList types = typesOf(rows);
  buildTree(types);
  return types;
}

std::string labelOf(const WidgetType& type) {
  return type.guid.value_or("-") + ":" + std::to_string(type.nestingLevel);
}

// Each entry as "guid:level".
std::vector<std::string> labels(const TypeList& types) {
  std::vector<std::string> result;
  for (const TypeRef& type : types) result.push_back(labelOf(*type));
  return result;
}

std::vector<std::string> childrenOf(const TypeRef& type) {
  std::vector<std::string> result;
  const auto& group = dynamic_cast<const WidgetGroup&>(*type);
  if (!group.children) return {"none"};
  for (const WidgetType* child : *group.children) result.push_back(child->guid.value_or("-"));
  return result;
}

TEST(CategoryTree, ChildrenKeepTheOrderOfTheListHoweverOftenItIsBuilt) {
  const TypeList types = builtFrom({{"b", "g", Kind::kCategory},
                                    {"g", nullptr, Kind::kGroup},
                                    {"empty", nullptr, Kind::kGroup},
                                    {"a", "g", Kind::kCategory}});
  buildTree(types);
  EXPECT_THAT(childrenOf(types[1]), ElementsAre("b", "a"));
  EXPECT_THAT(childrenOf(types[2]), ElementsAre("none"));
  EXPECT_THAT(labels(rootsOf(types)), ElementsAre("g:0", "empty:0"));
}

TEST(CategoryTree, FlattensParentsFirstWithTheirDepth) {
  const TypeList types = builtFrom({{"leaf", "sub", Kind::kCategory},
                                    {"top", nullptr, Kind::kGroup},
                                    {"sub", "top", Kind::kGroup},
                                    {"second", "top", Kind::kCategory},
                                    {"lone", nullptr, Kind::kCategory}});
  const TypeList all = flatten(rootsOf(types));
  EXPECT_THAT(labels(all), ElementsAre("top:0", "sub:1", "leaf:2", "second:1", "lone:0"));
  EXPECT_THAT(labels(categoriesOf(all)), ElementsAre("leaf:2", "second:1", "lone:0"));
}

TEST(CategoryTree, FlatteningStartsFromTheLevelThatIsThere) {
  const TypeList types = builtFrom({{"g", nullptr, Kind::kGroup}, {"a", "g", Kind::kCategory}});
  types[0]->nestingLevel = 5;
  EXPECT_THAT(labels(flatten(types)), ElementsAre("g:5", "a:6", "a:6"));
}

TEST(CategoryTree, ParentsThatAreNoneMakeOrphans) {
  const TypeList types = builtFrom({{"plain", nullptr, Kind::kCategory},
                                    {"under plain", "plain", Kind::kCategory},
                                    {"under nothing", "gone", Kind::kGroup},
                                    {"below the orphan", "under nothing", Kind::kCategory},
                                    {"under empty", "", Kind::kCategory},
                                    {nullptr, nullptr, Kind::kGroup}});
  EXPECT_THAT(labels(flatten(rootsOf(types))), ElementsAre("plain:0", "-:0"));
  EXPECT_THAT(childrenOf(types[5]), ElementsAre("none"));
  setNestingLevels(types);
  EXPECT_EQ(labelOf(*types[3]), "below the orphan:1");
}

TEST(CategoryTree, TheLastOfEqualGuidsGetsTheChildren) {
  const TypeList types = builtFrom(
      {{"g", nullptr, Kind::kGroup}, {"a", "g", Kind::kCategory}, {"g", nullptr, Kind::kGroup}});
  EXPECT_THAT(childrenOf(types[0]), ElementsAre("none"));
  EXPECT_THAT(childrenOf(types[2]), ElementsAre("a"));
}

TEST(CategoryTree, CircularParentsEndWhereTheyWouldRepeat) {
  const TypeList types = builtFrom({{"a", "b", Kind::kGroup},
                                    {"b", "a", Kind::kGroup},
                                    {"leaf", "b", Kind::kCategory},
                                    {"self", "self", Kind::kGroup}});
  EXPECT_THAT(rootsOf(types), IsEmpty());
  EXPECT_THAT(labels(flatten({types[0]})), ElementsAre("a:0", "b:1", "leaf:2"));
  EXPECT_THAT(labels(flatten({types[3]})), ElementsAre("self:0"));
  setNestingLevels(types);
}

TEST(CategoryTree, AResultKeepsTheWholeQueryAlive) {
  TypeList leaves = categoriesOf(
      flatten(rootsOf(builtFrom({{"g", nullptr, Kind::kGroup}, {"a", "g", Kind::kCategory}}))));
  EXPECT_THAT(labels(leaves), ElementsAre("a:1"));
}

TEST(CategoryTree, DeepAndWideTreesDoNotExhaustTheStack) {
  constexpr std::size_t kDepth = 10'000;
  constexpr std::size_t kWidth = 100'000;
  std::vector<std::unique_ptr<WidgetType>> records;
  for (std::size_t i = 0; i < kDepth + kWidth; ++i) {
    records.push_back(i < kDepth ? std::make_unique<WidgetGroup>()
                                 : std::make_unique<WidgetType>());
    records.back()->guid = std::to_string(i);
    if (i > 0) records.back()->parentGuid = std::to_string(std::min(i, kDepth) - 1);
  }
  const TypeList types = sharedTypes(std::move(records));
  buildTree(types);
  const TypeList all = flatten(rootsOf(types));
  ASSERT_EQ(all.size(), kDepth + kWidth);
  EXPECT_EQ(labelOf(*all.back()), "109999:10000");
  setNestingLevels(types);
  EXPECT_EQ(types[kDepth - 1]->nestingLevel, 9999);
}

}  // namespace
}  // namespace brevant
