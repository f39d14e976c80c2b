// SPDX-License-Identifier: MIT
#include "manager/tint.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

// The loop over the pixels is compiled for several generations of processors; the loader chooses,
// before the thread sanitizer is ready for it.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__gnu_linux__) && \
    !defined(__SANITIZE_THREAD__)
#define BREVANT_EVERY_PROCESSOR \
  __attribute__((target_clones("arch=x86-64-v4", "avx2", "sse4.1", "default")))
#else
#define BREVANT_EVERY_PROCESSOR
#endif

namespace brevant {
namespace {

// A pixel is handled as one 32-bit number, red in the lowest byte.
static_assert(std::endian::native == std::endian::little);

// A solid colour as fractions of 2^24: times a coverage of up to 255 it just fits 32 bits, and is
// exact enough to round to the nearest byte.
struct Fill {
  std::uint32_t red, green, blue;
};

std::uint32_t fraction(double component) {
  const auto single = static_cast<float>(component);
  if (!(single > 0)) return 0;  // also what is no number
  return static_cast<std::uint32_t>(std::lround(std::min(single, 1.0F) * 0x1p24F));
}

Fill fillOf(const Color& color) {
  const std::vector<double>& components = color.components;
  if (components.empty()) return {};
  const std::uint32_t first = fraction(components[0]);
  if (components.size() < 4) return {first, first, first};  // grey
  return {first, fraction(components[1]), fraction(components[2])};
}

BREVANT_EVERY_PROCESSOR void tint(const std::uint8_t* source, std::size_t pixels, Fill fill,
                                  std::uint8_t* target) {
  constexpr std::uint32_t kHalf = 1U << 23U;
  for (std::size_t i = 0; i < pixels; ++i) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, source + 4 * i, 4);
    const std::uint32_t coverage = pixel >> 24U;
    const std::uint32_t red = (coverage * fill.red + kHalf) >> 24U;
    const std::uint32_t green = ((coverage * fill.green + kHalf) >> 16U) & 0x0000FF00U;
    const std::uint32_t blue = ((coverage * fill.blue + kHalf) >> 8U) & 0x00FF0000U;
    const std::uint32_t tinted = (pixel & 0xFF000000U) | blue | green | red;
    std::memcpy(target + 4 * i, &tinted, 4);
  }
}

// Goes through a small block that stays in the nearest cache: a vector of the full size would first
// be filled with zeros, which costs as much as the tinting.
std::vector<std::uint8_t> tinted(const std::vector<std::uint8_t>& source, Fill fill) {
  std::array<std::uint8_t, 4096> block{};
  std::vector<std::uint8_t> target;
  target.reserve(source.size());
  for (std::size_t at = 0; at < source.size(); at += block.size()) {
    const std::size_t bytes = std::min(block.size(), source.size() - at);
    tint(source.data() + at, bytes / 4, fill, block.data());
    target.insert(target.end(), block.data(), block.data() + bytes);
  }
  return target;
}

// Every coverage in that colour.
Silhouette::Palette paletteOf(Fill fill) {
  std::array<std::uint8_t, std::size_t{4} * 256> coverages{};
  for (std::size_t i = 0; i < 256; ++i) coverages[4 * i + 3] = static_cast<std::uint8_t>(i);
  Silhouette::Palette palette{};
  tint(coverages.data(), palette.size(), fill, palette.front().data());
  return palette;
}

}  // namespace

Color colorFromInt(std::uint64_t value) {
  const auto component = [](std::uint64_t part) {
    return static_cast<double>(static_cast<float>(part) / 255.0F);
  };
  return Color::rgb(component(value >> 16U), component((value >> 8U) & 255U),
                    component(value & 255U), 1);
}

ImageRef extensionImageWithColor(const ImageRef& image, const std::optional<Color>& color) {
  if (!image || !color) return image;
  auto result = std::make_shared<Image>();
  result->pixelWidth = image->pixelWidth;
  result->pixelHeight = image->pixelHeight;
  result->scale = image->scale;
  const Fill fill = fillOf(*color);
  if (image->silhouette) {
    result->silhouette = {image->silhouette->coverage, paletteOf(fill)};
  } else {
    result->pixels = tinted(image->pixels, fill);
  }
  return result;
}

ImageRef extensionImageWithIntColor(const ImageRef& image, std::uint64_t color) {
  return extensionImageWithColor(image, colorFromInt(color));
}

}  // namespace brevant
