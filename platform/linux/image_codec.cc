// SPDX-License-Identifier: MIT
#include "platform/linux/image_codec.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "platform/linux/file_bytes.h"
#include "platform/linux/keyed_archive.h"
#include "platform/linux/png_reader.h"
#include "platform/linux/png_writer.h"
#include "platform/picture_limits.h"

namespace brevant {
namespace {

// a * b / 255, rounded.
std::uint8_t scaled(unsigned a, unsigned b) {
  return static_cast<std::uint8_t>((a * b + 127) / 255);
}

void premultiply(std::vector<std::uint8_t>& pixels) {
  for (std::size_t i = 0; i < pixels.size(); i += 4) {
    const unsigned alpha = pixels[i + 3];
    if (alpha == 255) continue;
    for (std::size_t c = i; c < i + 3; ++c) pixels[c] = scaled(pixels[c], alpha);
  }
}

void unpremultiply(std::uint8_t* pixel) {
  const unsigned alpha = pixel[3];
  if (alpha == 255 || alpha == 0) return;
  for (int c = 0; c < 3; ++c) {
    pixel[c] = static_cast<std::uint8_t>(std::min((pixel[c] * 255U + alpha / 2) / alpha, 255U));
  }
}

double scaleOfName(std::string_view path) {
  if (path.ends_with("@3x.png")) return 3;
  return path.ends_with("@2x.png") ? 2 : 1;
}

bool isWhole(const Image& image) {
  if (image.pixelWidth <= 0 || image.pixelHeight <= 0) return false;
  const std::size_t pixels =
      static_cast<std::size_t>(image.pixelWidth) * static_cast<std::size_t>(image.pixelHeight);
  return image.silhouette ? image.silhouette->coverage->size() == pixels
                          : image.pixels.size() == pixels * 4;
}

RowPainter painterOf(const Image& image, std::size_t width) {
  return [&image, width](std::uint32_t y, std::uint8_t* row) {
    std::copy_n(image.pixels.data() + y * width * 4, width * 4, row);
    for (std::size_t x = 0; x < width; ++x) unpremultiply(row + 4 * x);
  };
}

RowPainter painterOf(const Silhouette& silhouette, std::size_t width) {
  Silhouette::Palette palette = silhouette.palette;
  for (auto& color : palette) unpremultiply(color.data());
  const std::uint8_t* const coverage = silhouette.coverage->data();
  return [palette, coverage, width](std::uint32_t y, std::uint8_t* row) {
    for (std::size_t x = 0; x < width; ++x) {
      std::memcpy(row + 4 * x, palette[coverage[y * width + x]].data(), 4);
    }
  };
}

// What every coverage is in black.
Silhouette::Palette blackPalette() {
  Silhouette::Palette palette{};
  for (std::size_t i = 0; i < palette.size(); ++i) palette[i][3] = static_cast<std::uint8_t>(i);
  return palette;
}

ImageRef colorImage(DecodedPng png, double scale) {
  premultiply(png.pixels);
  return std::make_shared<const Image>(Image{
      static_cast<int>(png.width), static_cast<int>(png.height), scale, std::move(png.pixels), ""});
}

ImageRef silhouetteImage(DecodedPng png, double scale) {
  Silhouette silhouette{std::make_shared<const Silhouette::Coverage>(std::move(png.pixels)),
                        blackPalette()};
  return std::make_shared<const Image>(Image{static_cast<int>(png.width),
                                             static_cast<int>(png.height),
                                             scale,
                                             {},
                                             "",
                                             std::move(silhouette)});
}

bool isPng(std::span<const std::uint8_t> bytes) {
  constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  return bytes.size() >= sizeof(kSignature) &&
         std::equal(std::begin(kSignature), std::end(kSignature), bytes.begin());
}

ByteSource sourceOf(std::span<const std::uint8_t> bytes) {
  return [rest = bytes](std::uint8_t* to, std::size_t size) mutable {
    if (size > rest.size()) return false;
    std::copy_n(rest.data(), size, to);
    rest = rest.subspan(size);
    return true;
  };
}

std::optional<DecodedPng> decodedFile(const std::string& path, PixelFormat format) {
  FileBytes file(path, kMaxPictureFileSize);
  return decodedPng([&](std::uint8_t* to, std::size_t size) { return file.read(to, size); },
                    format);
}

class PngCodec : public ImageCodec {
 public:
  ImageRef decodePng(std::span<const std::uint8_t> bytes, double scale) const override {
    std::optional<DecodedPng> png = decodedPng(sourceOf(bytes), PixelFormat::kColor);
    return png ? colorImage(std::move(*png), scale) : nullptr;
  }

  ImageRef imageWithContentsOfFile(const std::string& path) const override {
    std::optional<DecodedPng> png = decodedFile(path, PixelFormat::kColor);
    return png ? colorImage(std::move(*png), scaleOfName(path)) : nullptr;
  }

  ImageRef silhouetteWithContentsOfFile(const std::string& path) const override {
    std::optional<DecodedPng> png = decodedFile(path, PixelFormat::kCoverage);
    return png ? silhouetteImage(std::move(*png), scaleOfName(path)) : nullptr;
  }

  std::optional<std::vector<std::uint8_t>> encodePng(const Image& image) const override {
    if (!isWhole(image)) return std::nullopt;
    const auto width = static_cast<std::uint32_t>(image.pixelWidth);
    return writtenPng(
        width, static_cast<std::uint32_t>(image.pixelHeight),
        image.silhouette ? painterOf(*image.silhouette, width) : painterOf(image, width));
  }

  std::optional<ImageRef> unarchiveImage(std::span<const std::uint8_t> archive) const override {
    ImageRef image;
    int tries = 0;
    const bool isArchive = visitArchivedData(archive, [&](std::span<const std::uint8_t> data) {
      if (!isPng(data)) return true;
      image = decodePng(data, 1);
      return !image && ++tries < kMaxArchivedPictures;
    });
    return isArchive ? std::optional(image) : std::nullopt;
  }
};

}  // namespace

std::unique_ptr<ImageCodec> makeImageCodec() {
  return std::make_unique<PngCodec>();
}

}  // namespace brevant
