// SPDX-License-Identifier: MIT
#include "manager/category_tree.h"

#include <gmock/gmock.h>
#include <sstream>

namespace brevant {
namespace {

// Entries in order, separated by blanks: a guid, in brackets for a group, and ":parent" where it
// has one.
TypeList builtFrom(const std::string& rows) {
  std::vector<std::unique_ptr<WidgetType>> records;
  std::istringstream in(rows);
  for (std::string row; in >> row;) {
    const bool isGroup = row.starts_with('[');
    records.push_back(isGroup ? std::make_unique<WidgetGroup>() : std::make_unique<WidgetType>());
    const std::size_t colon = row.find(':');
    if (colon != std::string::npos) records.back()->parentGuid = row.substr(colon + 1);
    row.resize(std::min(colon, row.size()));
    records.back()->guid = isGroup ? row.substr(1, row.size() - 2) : row;
  }
  TypeList types = sharedTypes(std::move(records));
  buildTree(types);
  return types;
}

// Each as "guid:level".
std::string labels(const TypeList& types) {
  std::string result;
  for (const TypeRef& type : types) {
    if (!result.empty()) result += ' ';
    result += *type->guid + ':' + std::to_string(type->nestingLevel);
  }
  return result;
}

const auto& childrenOf(const TypeRef& type) {
  return dynamic_cast<const WidgetGroup&>(*type).children;
}

TEST(CategoryTree, FlattensParentsFirstWithTheirDepth) {
  const TypeList types = builtFrom("leaf:sub [top] [sub]:top [empty] second:top lone");
  EXPECT_FALSE(childrenOf(types[3]));
  buildTree(types);  // again, and no child comes twice
  const TypeList all = flatten(rootsOf(types));
  EXPECT_EQ(labels(all), "top:0 sub:1 leaf:2 second:1 empty:0 lone:0");
  EXPECT_EQ(labels(categoriesOf(all)), "leaf:2 second:1 lone:0");
}

TEST(CategoryTree, ParentsThatAreNoneMakeOrphans) {
  const TypeList types = builtFrom("plain a:plain [b]:gone below:b twin:plain [plain] plain");
  EXPECT_EQ(labels(flatten(rootsOf(types))), "plain:0 plain:0 plain:0");
  setNestingLevels(types);
  EXPECT_EQ(types[3]->nestingLevel, 1);
}

TEST(CategoryTree, TheLastOfEqualGuidsGetsTheChildren) {
  const TypeList types = builtFrom("[g] a:g [g]");
  EXPECT_FALSE(childrenOf(types[0]));
  EXPECT_EQ(childrenOf(types[2])->size(), 1U);
}

TEST(CategoryTree, CircularParentsEndWhereTheyWouldRepeat) {
  const TypeList types = builtFrom("[a]:b [b]:a leaf:b [self]:self");
  EXPECT_EQ(labels(rootsOf(types)), "");
  EXPECT_EQ(labels(flatten({types[0], types[3]})), "a:0 b:1 leaf:2 self:0");
  EXPECT_EQ(labels(flatten({types[0], types[0]})), "a:0 b:1 leaf:2 a:0 b:1 leaf:2");
  setNestingLevels(types);
}

TEST(CategoryTree, DeepAndWideTreesDoNotExhaustTheStackAndLiveAsLongAsAnyEntry) {
  std::string rows = "[0] ";
  for (int i = 1; i < 110'000; ++i) {
    const std::string guid = std::to_string(i);
    rows += (i < 10'000 ? "[" + guid + "]:" : guid + ":") + std::to_string(std::min(i, 10'000) - 1);
    rows += ' ';
  }
  TypeList all = flatten(rootsOf(builtFrom(rows)));
  ASSERT_EQ(all.size(), 110'000U);
  all.erase(all.begin(), all.end() - 1);
  EXPECT_EQ(labels(all), "109999:10000");
}

}  // namespace
}  // namespace brevant
