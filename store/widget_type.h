// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/widget_model.h"

namespace brevant {

class FMResultSet;

// A category. Plain value holder; `WidgetGroup` below is the only class derived from it.
struct WidgetType : WidgetModel {
  WidgetType() = default;
  WidgetType(const WidgetType&) = default;
  WidgetType& operator=(const WidgetType&) = default;
  virtual ~WidgetType() = default;

  std::optional<std::string> name;
  std::optional<std::string> imageGuid;
  std::optional<std::string> parentGuid;
  std::int32_t nestingLevel = 0;  // set when the tree is flattened
  std::uint64_t color = 0;        // 0xRRGGBB
  std::uint64_t order = 0;

  // From the cursor's current row; a `WidgetGroup` where the row says so.
  static std::unique_ptr<WidgetType> typeFromResultSet(FMResultSet& row);

  // The one shared "up" category, all of it absent or zero.
  static const std::shared_ptr<WidgetType>& upType();

  // The very same object, or the same class with equal guid, name, imageGuid, color, order and
  // parent; two absent texts are unequal, but an absent parent equals an empty one.
  [[nodiscard]] virtual bool isEqual(const WidgetType& other) const;
};

// A category that contains categories.
struct WidgetGroup : WidgetType {
  WidgetGroup() = default;
  WidgetGroup(const WidgetGroup&) = delete;  // a copy would outlive its children
  WidgetGroup& operator=(const WidgetGroup&) = delete;

  // Borrowed: the records of one query live and die together (see `TypeList`), so that neither
  // deep nor circular parents can leak or overflow anything. Filled by the manager.
  std::optional<std::vector<WidgetType*>> children;

  // Only the children count, element by element.
  [[nodiscard]] bool isEqual(const WidgetType& other) const override;
};

// The categories of one query. Each reference keeps every record of its query alive.
using TypeRef = std::shared_ptr<WidgetType>;
using TypeList = std::vector<TypeRef>;

// References to `records` that share their ownership as a whole.
TypeList sharedTypes(std::vector<std::unique_ptr<WidgetType>> records);

}  // namespace brevant
