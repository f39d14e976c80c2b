// SPDX-License-Identifier: MIT

// What can be said of a view: fonts, frames, paddings and backgrounds. Renderers visit the variant
// at the end.
#pragma once

#include <limits>
#include <optional>
#include <variant>

#include "platform/color.h"

namespace brevant {

enum class TextStyle {
  kLargeTitle,
  kTitle,
  kTitle2,
  kTitle3,
  kHeadline,
  kBody,
  kCallout,
  kSubheadline,
  kFootnote,
  kCaption,
};
enum class FontWeight { kRegular, kMedium, kSemibold, kBold };
enum class FontDesign { kDefault };
enum class TextAlignment { kLeading, kCenter, kTrailing };
enum class Alignment { kCenter, kLeading, kTrailing };
enum class ButtonStyle { kPlain };

struct SystemFont {
  double size = 0;
  FontWeight weight = FontWeight::kRegular;
  FontDesign design = FontDesign::kDefault;
  bool operator==(const SystemFont&) const = default;
};

// Applies to every text inside the view that carries it, unless the text has its own.
struct Font {
  std::variant<TextStyle, SystemFont> value;
  bool operator==(const Font&) const = default;
};

struct Bold {
  bool operator==(const Bold&) const = default;
};
// All digits take the same width, so that a running timer does not tremble.
struct MonospacedDigit {
  bool operator==(const MonospacedDigit&) const = default;
};
struct Resizable {
  bool operator==(const Resizable&) const = default;
};
// Drawn as outdated from the moment an intent runs until new content comes.
struct InvalidatableContent {
  bool operator==(const InvalidatableContent&) const = default;
};
struct LineLimit {
  int lines = 1;
  bool operator==(const LineLimit&) const = default;
};
struct MinimumScaleFactor {
  double factor = 1;
  bool operator==(const MinimumScaleFactor&) const = default;
};

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A side that is absent is left to the content; a maximum may be `kInfinity`.
struct Frame {
  std::optional<double> width{};
  std::optional<double> height{};
  std::optional<double> maxWidth{};
  std::optional<double> maxHeight{};
  Alignment alignment = Alignment::kCenter;
  bool operator==(const Frame&) const = default;
};

// The space at one edge.
struct Inset {
  constexpr Inset() = default;
  constexpr Inset(double value) : points(value) {}

  std::optional<double> points;  // absent: what the renderer finds right
  bool operator==(const Inset&) const = default;
};
inline constexpr Inset kDefaultSpace;

// An edge that is absent gets no padding.
struct Padding {
  std::optional<Inset> top{};
  std::optional<Inset> leading{};
  std::optional<Inset> bottom{};
  std::optional<Inset> trailing{};
  bool operator==(const Padding&) const = default;
};

enum class CornerStyle { kContinuous };

struct RoundedRectangle {
  double cornerRadius = 0;
  CornerStyle style = CornerStyle::kContinuous;
  bool operator==(const RoundedRectangle&) const = default;
};

struct Background {
  RoundedRectangle shape;
  Color fill;
  bool operator==(const Background&) const = default;
};

enum class ContainerColor { kClear };
enum class ContainerPlacement { kWidget };

// What the whole widget stands on, in place of the host's own background.
struct ContainerBackground {
  ContainerColor color = ContainerColor::kClear;
  ContainerPlacement placement = ContainerPlacement::kWidget;
  Alignment alignment = Alignment::kCenter;
  bool operator==(const ContainerBackground&) const = default;
};

struct ForegroundColor {
  Color color;
  bool operator==(const ForegroundColor&) const = default;
};
struct Opacity {
  double value = 1;
  bool operator==(const Opacity&) const = default;
};

using Modifier =
    std::variant<Font, FontWeight, Bold, MonospacedDigit, Resizable, InvalidatableContent,
                 LineLimit, MinimumScaleFactor, TextAlignment, Frame, Padding, Background,
                 ContainerBackground, ButtonStyle, ForegroundColor, Opacity>;

}  // namespace brevant
