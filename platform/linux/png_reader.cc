// SPDX-License-Identifier: MIT
#include "platform/linux/png_reader.h"

#include <csetjmp>
#include <png.h>

#include "platform/picture_limits.h"

namespace brevant {
namespace {

// Handed to libpng, which knows no exceptions: an error jumps back into the member function that
// called it. Such a function has no objects of its own that would need to be destroyed.
class Reader {
 public:
  Reader(const ByteSource& source, PixelFormat format) : source_(source), format_(format) {
    png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignore);
    if (png_ != nullptr) info_ = png_create_info_struct(png_);
  }
  ~Reader() { png_destroy_read_struct(&png_, &info_, nullptr); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  // Everything before the pixels.
  bool readHeader() {
    if (info_ == nullptr) return false;
    if (setjmp(png_jmpbuf(png_)) != 0) return false;  // NOLINT(cert-err52-cpp): libpng's only way
    png_set_read_fn(png_, this, read);
    png_set_user_limits(png_, kMaxPictureSide, kMaxPictureSide);
    png_set_chunk_malloc_max(png_, kMaxPictureChunk);
    png_set_benign_errors(png_, 1);
    skipChunks();
    png_read_info(png_, info_);
    return true;
  }

  std::uint32_t width() const { return png_get_image_width(png_, info_); }
  std::uint32_t height() const { return png_get_image_height(png_, info_); }

  // All of them; a row's place in memory each.
  bool readRows(png_bytep* rows) {
    if (setjmp(png_jmpbuf(png_)) != 0) return false;  // NOLINT(cert-err52-cpp): as above
    boundData();
    png_set_interlace_handling(png_);
    format_ == PixelFormat::kColor ? decodeColor() : decodeCoverage();
    png_read_update_info(png_, info_);
    png_read_image(png_, rows);
    return true;
  }

 private:
  [[noreturn]] static void fail(png_structp png, png_const_charp) { png_longjmp(png, 1); }
  static void ignore(png_structp, png_const_charp) {}

  static void read(png_structp png, png_bytep to, std::size_t size) {
    auto* const self = static_cast<Reader*>(png_get_io_ptr(png));
    if (size > self->bytesLeft_) png_error(png, "there is more data than the picture has pixels");
    self->bytesLeft_ -= size;
    if (!self->source_(to, size)) png_error(png, "the file ends too early");
  }

  // What the pixels take at the most when they do not compress at all. Of data without end, which
  // stands for gigabytes, libpng would unpack everything after the last row.
  void boundData() {
    constexpr std::uint64_t kMostPerPixel = 8, kMostPerRow = 8, kOfChunks = 65536;
    bytesLeft_ = std::uint64_t{height()} * (width() * kMostPerPixel + kMostPerRow) + kOfChunks;
    bytesLeft_ += bytesLeft_ / 64;
  }

  // What neither the shape nor the colours need is passed over unread, however large it says it is.
  void skipChunks() {
    png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    static constexpr png_byte kColors[] = {'g', 'A', 'M', 'A', 0, 's', 'R', 'G', 'B', 0};
    if (format_ == PixelFormat::kColor) {
      png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_AS_DEFAULT, kColors, 2);
    }
  }

  // Eight bits for each of one to four components, with the file's transparency if it has any.
  void decodeComponents() {
    png_set_expand(png_);
    png_set_scale_16(png_);
  }

  void decodeColor() {
    decodeComponents();
    png_set_alpha_mode(png_, PNG_ALPHA_PNG, PNG_DEFAULT_sRGB);
    png_set_gray_to_rgb(png_);
    png_set_add_alpha(png_, 0xFF, PNG_FILLER_AFTER);
  }

  void decodeCoverage() {
    decodeComponents();
    png_set_read_user_transform_fn(png_, keepAlpha);
    png_set_user_transform_info(png_, nullptr, 8, 1);
  }

  static void keepAlpha(png_structp, png_row_infop row, png_bytep data) {
    const bool hasAlpha = (row->color_type & PNG_COLOR_MASK_ALPHA) != 0;
    const std::size_t channels = row->channels;
    for (std::size_t i = 0; i < row->width; ++i) {
      data[i] = hasAlpha ? data[i * channels + channels - 1] : 0xFF;
    }
  }

  const ByteSource& source_;
  const PixelFormat format_;
  std::uint64_t bytesLeft_ = UINT64_MAX;
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};

}  // namespace

std::optional<DecodedPng> decodedPng(const ByteSource& source, PixelFormat format) {
  Reader reader(source, format);
  if (!reader.readHeader()) return std::nullopt;
  DecodedPng png{reader.width(), reader.height(), {}};
  const bool isColor = format == PixelFormat::kColor;
  if (std::uint64_t{png.width} * png.height > (isColor ? kMaxColorPixels : kMaxCoveragePixels)) {
    return std::nullopt;
  }
  const std::size_t rowSize = std::size_t{png.width} * (isColor ? 4 : 1);
  png.pixels.resize(rowSize * png.height);
  std::vector<png_bytep> rows;
  for (std::size_t y = 0; y < png.height; ++y) rows.push_back(png.pixels.data() + y * rowSize);
  if (!reader.readRows(rows.data())) return std::nullopt;
  return png;
}

}  // namespace brevant
