// SPDX-License-Identifier: MIT
#include "platform/view.h"

#include <utility>

namespace brevant {
namespace {

std::vector<View> present(Children children) {
  std::vector<View> views;
  for (const std::optional<View>& child : children) {
    if (child) views.push_back(*child);
  }
  return views;
}

}  // namespace

Child::Child(View view) : view_(std::make_shared<const View>(std::move(view))) {}

bool Child::operator==(const Child& other) const {
  return *view_ == *other.view_;
}

bool HStack::operator==(const HStack&) const = default;
bool VStack::operator==(const VStack&) const = default;

View View::with(Modifier modifier) const {
  View changed = *this;
  changed.modifiers.push_back(std::move(modifier));
  return changed;
}

View text(std::string text) {
  return {Text{std::move(text)}};
}

View dateText(Date date, DateStyle style) {
  return {DateText{date, style}};
}

View image(ImageRef image) {
  return {Picture{std::move(image)}};
}

View systemImage(std::string name) {
  return {SystemImage{std::move(name)}};
}

View label(View title, View icon) {
  return {Label{std::move(title), std::move(icon)}};
}

View spacer() {
  return {Spacer{}};
}

View button(IntentValue intent, View label) {
  return {Button{std::move(intent), std::move(label)}};
}

View link(std::string destination, View label) {
  return {Link{std::move(destination), std::move(label)}};
}

View hstack(Children children) {
  return hstack({}, children);
}

View hstack(RowLayout layout, Children children) {
  return {HStack{layout, present(children)}};
}

View vstack(Children children) {
  return vstack({}, children);
}

View vstack(ColumnLayout layout, Children children) {
  return {VStack{layout, present(children)}};
}

}  // namespace brevant
