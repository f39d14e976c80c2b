// SPDX-License-Identifier: MIT
#include "manager/category_tree.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <typeinfo>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace brevant {
namespace {

template <typename Class>
bool isExactly(const WidgetType& type) {
  return typeid(type) == typeid(Class);
}

// A walk down from one entry after another, with a path of its own in place of the call stack.
class Flattening {
 public:
  void add(const TypeRef& top) {
    enter(top, *top);
    while (!path_.empty()) {
      auto& [group, next] = path_.back();
      if (next == group->children->size()) {
        onPath_.erase(group);
        path_.pop_back();
      } else {
        enter(top, *(*group->children)[next++]);
      }
    }
  }

  TypeList result() { return std::move(result_); }

 private:
  struct Step {
    const WidgetGroup* group;
    std::size_t next;  // index of the child to enter next
  };

  void enter(const TypeRef& owner, WidgetType& entry) {
    if (onPath_.contains(&entry)) return;
    result_.emplace_back(owner, &entry);
    const auto* group = dynamic_cast<const WidgetGroup*>(&entry);
    if (!group || !group->children) return;
    path_.push_back({group, 0});
    onPath_.insert(group);
    for (WidgetType* child : *group->children) {
      if (!onPath_.contains(child)) child->nestingLevel = group->nestingLevel + 1;
    }
  }

  TypeList result_;
  std::vector<Step> path_;
  std::unordered_set<const WidgetType*> onPath_;
};

template <typename Predicate>
TypeList filtered(const TypeList& types, Predicate keep) {
  TypeList result;
  std::copy_if(types.begin(), types.end(), std::back_inserter(result), keep);
  return result;
}

}  // namespace

void buildTree(const TypeList& types) {
  std::unordered_map<std::string_view, WidgetGroup*> byGuid;
  for (const TypeRef& type : types) {
    if (isExactly<WidgetGroup>(*type)) static_cast<WidgetGroup&>(*type).children.reset();
    if (!type->guid) continue;
    if (auto* group = dynamic_cast<WidgetGroup*>(type.get())) {
      byGuid.insert_or_assign(*type->guid, group);
    } else {
      byGuid.erase(*type->guid);  // it hides an earlier group, and takes no children
    }
  }
  for (const TypeRef& type : types) {
    if (!type->parentGuid) continue;
    const auto parent = byGuid.find(*type->parentGuid);
    if (parent == byGuid.end()) continue;
    std::optional<std::vector<WidgetType*>>& children = parent->second->children;
    if (!children) children.emplace();
    children->push_back(type.get());
  }
}

TypeList rootsOf(const TypeList& types) {
  return filtered(types, [](const TypeRef& type) { return !type->parentGuid; });
}

TypeList flatten(const TypeList& types) {
  Flattening flattening;
  for (const TypeRef& type : types) flattening.add(type);
  return flattening.result();
}

void setNestingLevels(const TypeList& types) {
  std::unordered_set<const WidgetType*> nested;
  for (const TypeRef& type : types) {
    const auto* group = dynamic_cast<const WidgetGroup*>(type.get());
    if (group && group->children) nested.insert(group->children->begin(), group->children->end());
  }
  flatten(filtered(types, [&](const TypeRef& type) { return !nested.contains(type.get()); }));
}

TypeList categoriesOf(const TypeList& types) {
  return filtered(types, [](const TypeRef& type) { return isExactly<WidgetType>(*type); });
}

}  // namespace brevant
