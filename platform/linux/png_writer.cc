// SPDX-License-Identifier: MIT
#include "platform/linux/png_writer.h"

#include <csetjmp>
#include <cstddef>
#include <new>
#include <png.h>

namespace brevant {
namespace {

// As with reading, an error jumps back into the member function that called libpng.
class Writer {
 public:
  Writer() {
    png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignore);
    if (png_ != nullptr) info_ = png_create_info_struct(png_);
  }
  ~Writer() { png_destroy_write_struct(&png_, &info_); }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  bool write(std::uint32_t width, std::uint32_t height, const RowPainter& paint) {
    constexpr int kFast = 3;
    if (info_ == nullptr) return false;
    row_.resize(std::size_t{width} * 4);
    if (setjmp(png_jmpbuf(png_)) != 0) return false;  // NOLINT(cert-err52-cpp): libpng's only way
    png_set_write_fn(png_, this, append, nullptr);
    png_set_IHDR(png_, info_, width, height, 8, PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_sRGB(png_, info_, PNG_sRGB_INTENT_PERCEPTUAL);
    png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_compression_level(png_, kFast);
    png_write_info(png_, info_);
    for (std::uint32_t y = 0; y < height; ++y) {
      paint(y, row_.data());
      png_write_row(png_, row_.data());
    }
    png_write_end(png_, info_);
    return true;
  }

  std::vector<std::uint8_t> takeBytes() { return std::move(bytes_); }

 private:
  [[noreturn]] static void fail(png_structp png, png_const_charp) { png_longjmp(png, 1); }
  static void ignore(png_structp, png_const_charp) {}

  static void append(png_structp png, png_bytep data, std::size_t size) {
    auto* const self = static_cast<Writer*>(png_get_io_ptr(png));
    if (!self->fits(data, size)) png_error(png, "out of memory");
  }

  bool fits(const std::uint8_t* data, std::size_t size) {
    try {
      bytes_.insert(bytes_.end(), data, data + size);
    } catch (const std::bad_alloc&) {  // must not pass through libpng
      return false;
    }
    return true;
  }

  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
  std::vector<std::uint8_t> row_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace

std::optional<std::vector<std::uint8_t>> writtenPng(std::uint32_t width, std::uint32_t height,
                                                    const RowPainter& paint) {
  Writer writer;
  if (!writer.write(width, height, paint)) return std::nullopt;
  return writer.takeBytes();
}

}  // namespace brevant
