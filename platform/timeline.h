// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace brevant {

enum class ReloadPolicy { kAtEnd };

template <typename Entry>
struct Timeline {
  std::vector<Entry> entries;
  ReloadPolicy policy = ReloadPolicy::kAtEnd;
};

// Called at most once; not at all when the provider has nothing to deliver.
template <typename Entry>
using TimelineCompletion = std::function<void(Timeline<Entry>)>;

}  // namespace brevant
