#include "platform/linux/image_codec.h"

#include <algorithm>
#include <png.h>

#include "platform/linux/durable_file.h"
#include "platform/linux/keyed_archive.h"

namespace brevant {
namespace {

constexpr std::size_t kMaxFileSize = std::size_t{64} << 20U;
constexpr png_uint_32 kMaxSide = 16'384;
constexpr std::uint64_t kMaxPixels = 16'000'000;

// libpng's handle of one picture; freed whatever happens.
struct PngImage : png_image {
  PngImage() : png_image{} { version = PNG_IMAGE_VERSION; }
  ~PngImage() { png_image_free(this); }
  PngImage(const PngImage&) = delete;
  PngImage& operator=(const PngImage&) = delete;
};

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

std::vector<std::uint8_t> unpremultiplied(std::vector<std::uint8_t> pixels) {
  for (std::size_t i = 0; i < pixels.size(); i += 4) {
    const unsigned alpha = pixels[i + 3];
    if (alpha == 255 || alpha == 0) continue;
    for (std::size_t c = i; c < i + 3; ++c) {
      pixels[c] = static_cast<std::uint8_t>(std::min((pixels[c] * 255U + alpha / 2) / alpha, 255U));
    }
  }
  return pixels;
}

double scaleOfName(std::string_view path) {
  if (path.ends_with("@3x.png")) return 3;
  return path.ends_with("@2x.png") ? 2 : 1;
}

class PngCodec : public ImageCodec {
 public:
  ImageRef decodePng(std::span<const std::uint8_t> bytes, double scale) const override {
    PngImage png;
    if (png_image_begin_read_from_memory(&png, bytes.data(), bytes.size()) == 0) return nullptr;
    if (png.width > kMaxSide || png.height > kMaxSide) return nullptr;
    if (std::uint64_t{png.width} * png.height > kMaxPixels) return nullptr;

    Image image{static_cast<int>(png.width), static_cast<int>(png.height), scale, {}, ""};
    image.pixels.resize(std::size_t{png.width} * png.height * 4);
    png.format = PNG_FORMAT_RGBA;
    if (png_image_finish_read(&png, nullptr, image.pixels.data(), 0, nullptr) == 0) return nullptr;
    premultiply(image.pixels);
    return std::make_shared<const Image>(std::move(image));
  }

  ImageRef imageWithContentsOfFile(const std::string& path) const override {
    const std::optional<std::string> contents = readFile(path, kMaxFileSize);
    if (!contents) return nullptr;
    return decodePng({reinterpret_cast<const std::uint8_t*>(contents->data()), contents->size()},
                     scaleOfName(path));
  }

  std::optional<std::vector<std::uint8_t>> encodePng(const Image& image) const override {
    const auto width = static_cast<std::size_t>(std::max(image.pixelWidth, 0));
    const auto height = static_cast<std::size_t>(std::max(image.pixelHeight, 0));
    if (image.pixels.empty() || image.pixels.size() != width * height * 4) return std::nullopt;
    PngImage png;
    png.width = static_cast<png_uint_32>(width);
    png.height = static_cast<png_uint_32>(height);
    png.format = PNG_FORMAT_RGBA;
    png.flags = PNG_IMAGE_FLAG_FAST;
    const std::vector<std::uint8_t> pixels = unpremultiplied(image.pixels);
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
    std::vector<std::uint8_t> bytes(size);
    if (png_image_write_to_memory(&png, bytes.data(), &size, 0, pixels.data(), 0, nullptr) == 0) {
      return std::nullopt;
    }
    bytes.resize(size);
    return bytes;
  }

  std::optional<ImageRef> unarchiveImage(std::span<const std::uint8_t> archive) const override {
    const auto fields = archivedData(archive);
    if (!fields) return std::nullopt;
    for (const std::vector<std::uint8_t>& data : *fields) {
      if (ImageRef image = decodePng(data, 1)) return image;
    }
    return nullptr;
  }
};

}  // namespace

std::unique_ptr<ImageCodec> makeImageCodec() {
  return std::make_unique<PngCodec>();
}

}  // namespace brevant
