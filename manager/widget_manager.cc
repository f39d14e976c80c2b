// SPDX-License-Identifier: MIT
#include "manager/widget_manager.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "manager/category_tree.h"
#include "platform/container_path.h"
#include "platform/text.h"
#include "platform/uuid.h"

namespace brevant {

WidgetManager::WidgetManager(const Platform& platform, const std::optional<std::string>& path,
                             StoreListener listener)
    : dao(std::make_unique<WidgetDAO>(platform, path, listener)),
      platform_(platform),
      path_(path),
      listener_(std::move(listener)),
      iconCache_(platform) {}

WidgetManager::~WidgetManager() = default;

std::unique_ptr<WidgetManager> WidgetManager::open(const Platform& platform,
                                                   StoreListener listener) {
  return std::make_unique<WidgetManager>(platform, containerPath(platform.files, "database.sqlite"),
                                         std::move(listener));
}

ActivityList WidgetManager::findActivities() const {
  return dao->findActivities();
}

ActivityList WidgetManager::findRunningActivities() const {
  ActivityList activities = findActivities();
  std::erase_if(activities, [](const ActivityRef& each) { return each->state != kStateRunning; });
  return activities;
}

TypeList WidgetManager::findAllTypes() const {
  TypeList types = dao->findTypes();
  buildTree(types);
  return types;
}

TypeList WidgetManager::findRoot() const {
  return rootsOf(findAllTypes());
}

TypeList WidgetManager::flatten(const TypeList& types) {
  return brevant::flatten(types);
}

TypeList WidgetManager::findCategoriesOnly() const {
  return categoriesOf(flatten(findRoot()));
}

TypeRef WidgetManager::findById(std::string_view guid) const {
  const TypeList types = findAllTypes();
  const auto found = std::find_if(types.begin(), types.end(),
                                  [&](const TypeRef& type) { return type->guid == guid; });
  return found == types.end() ? nullptr : *found;
}

TypeRef WidgetManager::findByName(std::string_view name) const {
  const TypeList types = findAllTypes();
  setNestingLevels(types);
  const CaseMapping& mapping = platform_.caseMapping;
  const std::string wanted = mapping.lowercased(name);
  const auto found = std::find_if(types.begin(), types.end(), [&](const TypeRef& type) {
    return type->name && mapping.lowercased(*type->name) == wanted;
  });
  return found == types.end() ? nullptr : *found;
}

std::string WidgetManager::generateGUID() const {
  return newUuid(platform_.random);
}

}  // namespace brevant
