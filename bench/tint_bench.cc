// SPDX-License-Identifier: MIT

// Tinting against a copy of the same bytes, both into memory of their own.
#include <benchmark/benchmark.h>
#include <cstring>
#include <memory>

#include "manager/tint.h"

namespace {

std::shared_ptr<const brevant::Image> icon(int side) {
  auto image = std::make_shared<brevant::Image>();
  image->pixelWidth = side;
  image->pixelHeight = side;
  image->pixels.resize(4 * static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  std::uint8_t next = 0;
  for (std::uint8_t& byte : image->pixels) byte = next = static_cast<std::uint8_t>(next * 5 + 1);
  return image;
}

void setBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void tint(benchmark::State& state) {
  const auto source = icon(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const brevant::ImageRef result = brevant::extensionImageWithIntColor(source, 0x336699);
    benchmark::DoNotOptimize(result->pixels.data());
  }
  setBytes(state, source->pixels.size());
}

void copy(benchmark::State& state) {
  const auto source = icon(static_cast<int>(state.range(0)));
  const std::size_t bytes = source->pixels.size();
  for (auto _ : state) {
    const std::unique_ptr<std::uint8_t[]> target(new std::uint8_t[bytes]);
    std::memcpy(target.get(), source->pixels.data(), bytes);
    benchmark::DoNotOptimize(target.get());
    benchmark::ClobberMemory();
  }
  setBytes(state, bytes);
}

BENCHMARK(copy)->Name("memcpy")->Arg(512)->Arg(4096)->Unit(benchmark::kMicrosecond);
BENCHMARK(tint)->Name("tint")->Arg(512)->Arg(4096)->Unit(benchmark::kMicrosecond);

}  // namespace
