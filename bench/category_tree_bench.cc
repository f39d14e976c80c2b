// SPDX-License-Identifier: MIT

// The category tree of 1,000 to 100,000 entries, built and flattened: linear in every shape.
#include <algorithm>
#include <benchmark/benchmark.h>

#include "manager/category_tree.h"

namespace {

using brevant::TypeList;
using brevant::WidgetGroup;
using brevant::WidgetType;

// The first entries are groups. `parentOf` gives the number of an entry's parent; entry 0 has none.
template <typename ParentOf>
TypeList tree(std::size_t count, std::size_t groupCount, ParentOf parentOf) {
  std::vector<std::unique_ptr<WidgetType>> records;
  for (std::size_t i = 0; i < count; ++i) {
    records.push_back(i < groupCount ? std::make_unique<WidgetGroup>()
                                     : std::make_unique<WidgetType>());
    records.back()->guid = "0F8FAD5B-D9CB-469F-A165-" + std::to_string(100'000'000'000 + i);
    if (i > 0) records.back()->parentGuid = records[parentOf(i)]->guid;
  }
  return brevant::sharedTypes(std::move(records));
}

void measure(benchmark::State& state, const TypeList& types) {
  for (auto _ : state) {
    brevant::buildTree(types);
    const TypeList all = brevant::flatten(brevant::rootsOf(types));
    if (all.size() != types.size()) state.SkipWithError("not every entry is in the tree");
  }
  state.SetComplexityN(static_cast<std::int64_t>(types.size()));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(types.size()));
}

void oneGroup(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  measure(state, tree(count, 1, [](std::size_t) { return std::size_t{0}; }));
}

void tenChildrenEach(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  measure(state, tree(count, count / 10, [](std::size_t i) { return (i - 1) / 10; }));
}

void oneChain(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  measure(state, tree(count, count, [](std::size_t i) { return i - 1; }));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(10)->Range(1000, 100'000)->Unit(benchmark::kMicrosecond);
  benchmark->Complexity(benchmark::oN);
}

BENCHMARK(oneGroup)->Name("category_tree/one_group")->Apply(sizes);
BENCHMARK(tenChildrenEach)->Name("category_tree/ten_children_each")->Apply(sizes);
BENCHMARK(oneChain)->Name("category_tree/one_chain")->Apply(sizes);

}  // namespace
