// SPDX-License-Identifier: MIT

// The category tree: built by parent guids over the flat list of one query, and flattened again.
// All of it is linear in the number of entries and uses no recursion, so neither many categories
// nor deep nesting can hurt.
#pragma once

#include "store/widget_type.h"

namespace brevant {

// Rebuilds the groups' children in the order of `types`. Where several entries share a guid, the
// last of them gets the children. An entry whose parent is missing or no group is nobody's child.
void buildTree(const TypeList& types);

// The entries without a parent guid.
[[nodiscard]] TypeList rootsOf(const TypeList& types);

// Depth-first, parents first. Sets the children's nesting level to one more than their group's and
// leaves that of `types` as it is. An entry is not entered again below itself, so circular parents
// end where they would repeat.
TypeList flatten(const TypeList& types);

// Sets every nesting level to the depth below the outermost group, also under an entry whose parent
// is missing. Entries with circular parents keep theirs.
void setNestingLevels(const TypeList& types);

// Without the groups.
[[nodiscard]] TypeList categoriesOf(const TypeList& types);

}  // namespace brevant
