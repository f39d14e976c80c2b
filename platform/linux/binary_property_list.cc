// SPDX-License-Identifier: MIT
#include "platform/linux/binary_property_list.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/linux/property_list_limits.h"

namespace brevant {
namespace {

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kTrailerSize = 32;

// Kinds of objects, in the upper half of their markers.
constexpr std::uint64_t kInteger = 0x1;
constexpr std::uint64_t kData = 0x4;
constexpr std::uint64_t kAsciiText = 0x5;
constexpr std::uint64_t kUtf16Text = 0x6;
constexpr std::uint64_t kDictionary = 0xD;

class Walk {
 public:
  explicit Walk(std::string_view bytes) : bytes_(bytes) {}

  bool endsInTime() {
    if (bytes_.size() < kHeaderSize + kTrailerSize) return false;
    const std::size_t trailer = bytes_.size() - kTrailerSize;
    offsetSize_ = *number(trailer + 6, 1);
    referenceSize_ = *number(trailer + 7, 1);
    objects_ = *number(trailer + 8, 8);
    offsets_ = *number(trailer + 24, 8);
    if (offsetSize_ > 8 || referenceSize_ > 8) return false;

    std::vector<Pending> pending{{*number(trailer + 16, 8), 0}};
    while (!pending.empty()) {
      const Pending next = pending.back();
      pending.pop_back();
      if (next.depth > kMaxPropertyListDepth || !visit(next, pending)) return false;
    }
    return true;
  }

  bool hasCutValue() const { return hasCutValue_; }

 private:
  struct Pending {
    std::uint64_t object;
    std::size_t depth;
    bool isKey = false;  // of a dictionary
  };
  struct Extent {
    std::uint64_t count;
    std::uint64_t at;  // of the contents
  };

  static bool isText(std::uint64_t marker) {
    return marker >> 4U == kAsciiText || marker >> 4U == kUtf16Text;
  }

  // A big-endian number; absent when it does not lie within the file.
  std::optional<std::uint64_t> number(std::uint64_t at, std::uint64_t size) const {
    if (at > bytes_.size() || size > bytes_.size() - at) return std::nullopt;
    std::uint64_t value = 0;
    for (std::uint64_t i = at; i < at + size; ++i) {
      value = value << 8U | static_cast<unsigned char>(bytes_[i]);
    }
    return value;
  }

  // How many elements an object has: in its marker, or in the integer that follows.
  std::optional<Extent> extent(std::uint64_t at, std::uint64_t marker) const {
    if ((marker & 15U) != 15) return Extent{marker & 15U, at + 1};
    const auto sizeMarker = number(at + 1, 1);
    if (!sizeMarker || *sizeMarker >> 4U != 1 || (*sizeMarker & 15U) > 3) return std::nullopt;
    const std::uint64_t size = std::uint64_t{1} << (*sizeMarker & 15U);
    const auto count = number(at + 2, size);
    if (!count || *count > bytes_.size()) return std::nullopt;
    return Extent{*count, at + 2 + size};
  }

  // A text without a NUL; false for every other object.
  bool isWholeText(std::uint64_t at, std::uint64_t marker) const {
    const std::uint64_t width = marker >> 4U == kAsciiText ? 1 : 2;
    const auto text = isText(marker) ? extent(at, marker) : std::nullopt;
    for (std::uint64_t i = 0; text && i < text->count; ++i) {
      if (number(text->at + i * width, width).value_or(0) == 0) return false;
    }
    return text.has_value();
  }

  // One of 16 bytes is how numbers from 2^63 up are written; with more than 64 bits in use the
  // library takes it for another.
  bool isCutInteger(std::uint64_t at, std::uint64_t marker) const {
    return marker == (kInteger << 4U | 4U) && number(at + 1, 8).value_or(0) != 0;
  }

  // Counted before they are remembered: a list of references to itself is a small file.
  bool expect(std::uint64_t references) {
    if (references > kMaxPropertyListObjects - expandedObjects_) return false;
    expandedObjects_ += references;
    return true;
  }

  bool visit(const Pending& next, std::vector<Pending>& pending) {
    if (next.object >= objects_ || objects_ > bytes_.size()) return false;
    const auto at = number(offsets_ + next.object * offsetSize_, offsetSize_);
    const auto marker = at ? number(*at, 1) : std::nullopt;
    if (!marker) return false;
    const std::uint64_t kind = *marker >> 4U;
    const bool isWhole = isWholeText(*at, *marker);
    if (next.isKey && !isWhole) return false;  // the library does not survive it
    if ((isText(*marker) && !isWhole) || isCutInteger(*at, *marker)) hasCutValue_ = true;
    std::uint64_t payload = 0;
    if (kind >= 4) {  // below: booleans, numbers and dates of a few bytes
      const auto found = extent(*at, *marker);
      if (!found) return false;
      payload = kind == kData ? found->count : found->count * 2;
      const bool isList = kind >= 0xA && kind <= 0xC;
      const std::uint64_t references = isList ? found->count : kind == kDictionary ? payload : 0;
      if (!expect(references)) return false;
      for (std::uint64_t i = 0; i < references; ++i) {
        const auto object = number(found->at + i * referenceSize_, referenceSize_);
        if (!object) return false;
        pending.push_back({*object, next.depth + 1, kind == kDictionary && i < found->count});
      }
    }
    expandedPayload_ += payload;
    return expandedPayload_ <= kMaxPropertyListPayload;
  }

  const std::string_view bytes_;
  bool hasCutValue_ = false;
  std::uint64_t offsetSize_ = 0;
  std::uint64_t referenceSize_ = 0;
  std::uint64_t objects_ = 0;
  std::uint64_t offsets_ = 0;
  std::uint64_t expandedObjects_ = 1;  // with the root
  std::uint64_t expandedPayload_ = 0;
};

}  // namespace

bool isHarmlessBinaryPropertyList(std::string_view bytes) {
  return Walk(bytes).endsInTime();
}

bool keepsValuesOfBinaryPropertyList(std::string_view bytes) {
  Walk walk(bytes);
  return walk.endsInTime() && !walk.hasCutValue();
}

}  // namespace brevant
