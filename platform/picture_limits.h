// SPDX-License-Identifier: MIT

// How much of a picture is believed. Pictures come from the user's own icons and from the cache
// that the tracker fills; a program that shows what it finds there has 64 MB for all of its work.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brevant {

// No camera's picture is wider, and a row of it stays small.
inline constexpr std::uint32_t kMaxPictureSide = 16'384;

// An icon's coverage takes one byte a pixel: 16 MB. Cameras of phones make 12 million pixels.
inline constexpr std::uint64_t kMaxCoveragePixels = 16'000'000;

// In full colour a pixel takes four bytes: 32 MB.
inline constexpr std::uint64_t kMaxColorPixels = 8'000'000;

// Uncompressed, the largest icon in full colour.
inline constexpr std::size_t kMaxPictureFileSize = std::size_t{64} << 20U;

// Palettes and transparency have a few hundred bytes; texts and profiles, which may have more, are
// skipped without a look.
inline constexpr std::size_t kMaxPictureChunk = std::size_t{8} << 20U;

// Above this size a keyed archive is not read: three icons of 16 million pixels fit.
inline constexpr std::size_t kMaxArchiveSize = std::size_t{8} << 20U;

// An archived picture has one field that is a PNG; each that only begins as one costs up to a
// quarter of a second.
inline constexpr int kMaxArchivedPictures = 4;

}  // namespace brevant
