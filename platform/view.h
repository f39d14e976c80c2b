// SPDX-License-Identifier: MIT

// Declarative views: trees of plain values that say what is on the screen, to be compared, archived
// or drawn. They are written as nested lists that read like the screen:
//
//   vstack({.spacing = 4}, {
//       text("Reading").font(TextStyle::kTitle3),
//       dateText(start, DateStyle::kTimer).monospacedDigit(),
//   })
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/date.h"
#include "platform/image.h"
#include "platform/intent.h"
#include "platform/view_modifiers.h"

namespace brevant {

struct View;

// The one child of a node: a value that lives on the heap, since a view cannot contain itself.
class Child {
 public:
  Child(View view);
  const View& operator*() const { return *view_; }
  bool operator==(const Child& other) const;

 private:
  std::shared_ptr<const View> view_;
};

struct Text {
  std::string text;
  bool operator==(const Text&) const = default;
};

enum class DateStyle {
  kTimer,     // counts the time since the date, as 1:02:03
  kRelative,  // the same in words
  kTime,      // the date's time of day
};

// A text that the renderer keeps up to date by itself.
struct DateText {
  Date date;
  DateStyle style = DateStyle::kTimer;
  bool operator==(const DateText&) const = default;
};

// Two pictures are equal when they show the same, whichever object holds the pixels.
struct Picture {
  ImageRef image;  // never null
  bool operator==(const Picture& other) const { return *image == *other.image; }
};

// A symbol that the system draws in the foreground colour.
struct SystemImage {
  std::string name;
  bool operator==(const SystemImage&) const = default;
};

struct Label {
  Child title;
  Child icon;
  bool operator==(const Label&) const = default;
};

enum class VerticalAlignment { kTop, kCenter, kBottom };
enum class HorizontalAlignment { kLeading, kCenter, kTrailing };

struct RowLayout {
  VerticalAlignment alignment = VerticalAlignment::kCenter;
  double spacing = 8;
  bool operator==(const RowLayout&) const = default;
};
struct ColumnLayout {
  HorizontalAlignment alignment = HorizontalAlignment::kCenter;
  double spacing = 8;
  bool operator==(const ColumnLayout&) const = default;
};

struct HStack {
  RowLayout layout;
  std::vector<View> children;
  bool operator==(const HStack&) const;
};
struct VStack {
  ColumnLayout layout;
  std::vector<View> children;
  bool operator==(const VStack&) const;
};

// Takes the space that is left along its stack.
struct Spacer {
  bool operator==(const Spacer&) const = default;
};

// Runs an intent where it stands, without opening the application.
struct Button {
  IntentValue intent;
  Child label;
  bool operator==(const Button&) const = default;
};

// Opens the application with a URL.
struct Link {
  std::string destination;
  Child label;
  bool operator==(const Link&) const = default;
};

using Node =
    std::variant<Text, DateText, Picture, SystemImage, Label, HStack, VStack, Spacer, Button, Link>;

// A node and what is said of it, innermost modifier first. Every modifier function answers a new
// view with one modifier more.
struct View {
  Node node;
  std::vector<Modifier> modifiers{};

  bool operator==(const View&) const = default;

  [[nodiscard]] View with(Modifier modifier) const;

  [[nodiscard]] View font(TextStyle style) const { return with(Font{style}); }
  [[nodiscard]] View font(SystemFont font) const { return with(Font{font}); }
  [[nodiscard]] View fontWeight(FontWeight weight) const { return with(weight); }
  [[nodiscard]] View bold() const { return with(Bold{}); }
  [[nodiscard]] View monospacedDigit() const { return with(MonospacedDigit{}); }
  [[nodiscard]] View resizable() const { return with(Resizable{}); }
  [[nodiscard]] View invalidatableContent() const { return with(InvalidatableContent{}); }
  [[nodiscard]] View lineLimit(int lines) const { return with(LineLimit{lines}); }
  [[nodiscard]] View minimumScaleFactor(double f) const { return with(MinimumScaleFactor{f}); }
  [[nodiscard]] View multilineTextAlignment(TextAlignment a) const { return with(a); }
  [[nodiscard]] View frame(Frame frame) const { return with(frame); }
  [[nodiscard]] View padding(Padding edges) const { return with(edges); }
  [[nodiscard]] View padding(Inset allEdges = kDefaultSpace) const {
    return with(Padding{allEdges, allEdges, allEdges, allEdges});
  }
  [[nodiscard]] View background(RoundedRectangle shape, Color fill) const {
    return with(Background{shape, std::move(fill)});
  }
  [[nodiscard]] View containerBackground(ContainerBackground b) const { return with(b); }
  [[nodiscard]] View buttonStyle(ButtonStyle style) const { return with(style); }
  [[nodiscard]] View foregroundColor(Color c) const { return with(ForegroundColor{std::move(c)}); }
  [[nodiscard]] View opacity(double value) const { return with(Opacity{value}); }
};

View text(std::string text);
View dateText(Date date, DateStyle style);
View image(ImageRef image);
View systemImage(std::string name);
View label(View title, View icon);
View spacer();
View button(IntentValue intent, View label);
View link(std::string destination, View label);

// A child that is absent is not there at all: no view and no space.
using Children = std::initializer_list<std::optional<View>>;

View hstack(Children children);
View hstack(RowLayout layout, Children children);
View vstack(Children children);
View vstack(ColumnLayout layout, Children children);

}  // namespace brevant
