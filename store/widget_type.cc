// SPDX-License-Identifier: MIT
#include "store/widget_type.h"

#include <set>
#include <typeinfo>
#include <utility>

#include "store/equality.h"
#include "store/fm_result_set.h"

namespace brevant {
namespace {

using Pair = std::pair<const WidgetType*, const WidgetType*>;

}  // namespace

std::unique_ptr<WidgetType> WidgetType::typeFromResultSet(FMResultSet& row) {
  std::unique_ptr<WidgetType> type;
  if (row.boolForColumn("is_group")) {
    type = std::make_unique<WidgetGroup>();
  } else {
    type = std::make_unique<WidgetType>();
  }
  type->guid = row.stringForColumn("guid");
  type->name = row.stringForColumn("name");
  type->imageGuid = row.stringForColumn("image_guid");
  type->color = static_cast<std::uint64_t>(row.intForColumn("color"));
  type->order = static_cast<std::uint64_t>(row.intForColumn("order_num"));
  type->parentGuid = row.stringForColumn("parent_guid");
  return type;
}

const std::shared_ptr<WidgetType>& WidgetType::upType() {
  static const auto kUpType = std::make_shared<WidgetType>();
  return kUpType;
}

bool WidgetType::isEqual(const WidgetType& other) const {
  if (this == &other) return true;
  return typeid(*this) == typeid(other) && arePresentAndEqual(guid, other.guid) &&
         arePresentAndEqual(name, other.name) && arePresentAndEqual(imageGuid, other.imageGuid) &&
         color == other.color && order == other.order &&
         parentGuid.value_or("") == other.parentGuid.value_or("");
}

// Walks both trees with a stack of its own and takes each pair of groups once, as groups may be
// nested without limit or contain themselves.
bool WidgetGroup::isEqual(const WidgetType& other) const {
  std::vector<Pair> pending{{this, &other}};
  std::set<Pair> taken;
  while (!pending.empty()) {
    const auto [a, b] = pending.back();
    pending.pop_back();
    const auto* const group = dynamic_cast<const WidgetGroup*>(a);
    if (!group) {
      if (!a->isEqual(*b)) return false;
      continue;
    }
    if (a == b || !taken.emplace(a, b).second) continue;
    if (typeid(*a) != typeid(*b)) return false;
    const auto& mine = group->children;
    const auto& theirs = static_cast<const WidgetGroup*>(b)->children;
    if (!mine || !theirs || mine->size() != theirs->size()) return false;
    for (std::size_t i = 0; i < mine->size(); ++i) pending.emplace_back((*mine)[i], (*theirs)[i]);
  }
  return true;
}

TypeList sharedTypes(std::vector<std::unique_ptr<WidgetType>> records) {
  const auto owner =
      std::make_shared<const std::vector<std::unique_ptr<WidgetType>>>(std::move(records));
  TypeList types;
  types.reserve(owner->size());
  for (const auto& record : *owner) types.emplace_back(owner, record.get());
  return types;
}

}  // namespace brevant
