// SPDX-License-Identifier: MIT
#include "platform/linux/property_list.h"

#include <cstdlib>
#include <memory>
#include <plist/plist.h>

#include "platform/linux/binary_property_list.h"
#include "platform/linux/xml_property_list.h"

namespace brevant {
namespace {

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

struct FreeText {
  void operator()(char* text) const { std::free(text); }
};
using Text = std::unique_ptr<char, FreeText>;

bool isBinary(std::string_view bytes) {
  return bytes.starts_with("bplist00");
}

// The tree that the bytes stand for when it is a dictionary, else null.
Node parsed(std::string_view bytes) {
  if (bytes.size() > kMaxPropertyListSize) return nullptr;
  if (isBinary(bytes) && !isHarmlessBinaryPropertyList(bytes)) return nullptr;
  std::string xml;
  if (!isBinary(bytes)) bytes = xml = withPlainLineEnds(bytes);
  plist_t root = nullptr;
  plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
  Node node(root);
  return node && plist_get_node_type(node.get()) == PLIST_DICT ? std::move(node) : nullptr;
}

// Numbers from 2^63 up and negative ones look the same but in XML.
bool isNegative(plist_t node) {
  char* xml = nullptr;
  std::uint32_t size = 0;
  plist_to_xml(node, &xml, &size);
  const Text owner(xml);
  return xml && std::string_view(xml, size).find("<integer>-") != std::string_view::npos;
}

PropertyValue integer(plist_t node) {
  std::uint64_t number = 0;
  plist_get_uint_val(node, &number);
  if (number > INT64_MAX && !isNegative(node)) return {number};
  return {static_cast<std::int64_t>(number)};
}

PropertyValue real(plist_t node) {
  double number = 0;
  plist_get_real_val(node, &number);
  return {number};
}

PropertyValue boolean(plist_t node) {
  std::uint8_t flag = 0;
  plist_get_bool_val(node, &flag);
  return {flag != 0};
}

PropertyValue text(plist_t node) {
  std::uint64_t size = 0;
  const char* const start = plist_get_string_ptr(node, &size);
  return {start ? std::string(start, size) : std::string()};
}

PropertyValue data(plist_t node) {
  std::uint64_t size = 0;
  const char* const start = plist_get_data_ptr(node, &size);
  return {start ? PropertyData(start, start + size) : PropertyData()};
}

PropertyValue date(plist_t node) {
  std::int32_t seconds = 0;
  std::int32_t microseconds = 0;
  plist_get_date_val(node, &seconds, &microseconds);
  const double fraction = 1e-6 * microseconds;
  return {dateFromSeconds(kReferenceDate + seconds + (seconds < 0 ? -fraction : fraction))};
}

std::optional<PropertyValue> value(plist_t node, std::size_t depth);

std::optional<PropertyArray> array(plist_t node, std::size_t depth) {
  plist_array_iter iterator = nullptr;
  plist_array_new_iter(node, &iterator);
  const std::unique_ptr<void, decltype(&std::free)> owner(iterator, &std::free);
  PropertyArray result;
  for (plist_t item = nullptr; plist_array_next_item(node, iterator, &item), item != nullptr;) {
    std::optional<PropertyValue> element = value(item, depth);
    if (!element) return std::nullopt;
    result.push_back(std::move(*element));
  }
  return result;
}

std::optional<PropertyDictionary> dictionary(plist_t node, std::size_t depth) {
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(node, &iterator);
  const std::unique_ptr<void, decltype(&std::free)> owner(iterator, &std::free);
  PropertyDictionary result;
  while (true) {
    char* key = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, iterator, &key, &item);
    const Text keyOwner(key);
    if (!item) return result;
    std::optional<PropertyValue> element = value(item, depth);
    if (!element) return std::nullopt;
    if (key) result.insert_or_assign(key, std::move(*element));
  }
}

// Absent when the tree is too deep.
std::optional<PropertyValue> value(plist_t node, std::size_t depth) {
  if (depth > kMaxPropertyListDepth) return std::nullopt;
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
      return boolean(node);
    case PLIST_UINT:
      return integer(node);
    case PLIST_REAL:
      return real(node);
    case PLIST_STRING:
      return text(node);
    case PLIST_DATE:
      return date(node);
    case PLIST_DATA:
      return data(node);
    case PLIST_ARRAY:
      if (auto elements = array(node, depth + 1)) return PropertyValue{std::move(*elements)};
      return std::nullopt;
    case PLIST_DICT:
      if (auto entries = dictionary(node, depth + 1)) return PropertyValue{std::move(*entries)};
      return std::nullopt;
    default:
      return PropertyValue{PropertyData()};  // a kind that no settings have
  }
}

std::optional<std::string> written(plist_t root, bool binary) {
  char* bytes = nullptr;
  std::uint32_t size = 0;
  (binary ? plist_to_bin : plist_to_xml)(root, &bytes, &size);
  const Text owner(bytes);
  if (!bytes) return std::nullopt;
  const std::string_view result(bytes, size);
  return binary ? std::string(result) : strictXml(result);
}

// What would be lost although it reads the same before and after, as the library reads it so.
bool losesValue(std::string_view before, std::string_view after) {
  if (isBinary(before)) return !keepsValuesOfBinaryPropertyList(before);
  return !before.empty() &&
         (datesOfXml(before) != datesOfXml(after) || integersOfXml(before) != integersOfXml(after));
}

}  // namespace

std::optional<PropertyDictionary> parsePropertyList(std::string_view bytes) {
  const Node root = parsed(bytes);
  return root ? dictionary(root.get(), 0) : std::nullopt;
}

std::optional<std::string> mergedPropertyList(std::string_view bytes,
                                              const std::map<std::string, bool>& changes) {
  const Node root = bytes.empty() ? Node(plist_new_dict()) : parsed(bytes);
  std::optional<PropertyDictionary> expected;
  if (root) expected = dictionary(root.get(), 0);
  if (!expected) return std::nullopt;
  for (const auto& [key, value] : changes) {
    plist_dict_set_item(root.get(), key.c_str(), plist_new_bool(value ? 1 : 0));
    expected->insert_or_assign(key, PropertyValue{value});
  }
  std::optional<std::string> merged = written(root.get(), bytes.empty() || isBinary(bytes));
  // What the library can read but not write back (a text in no encoding) must not be lost.
  if (!merged || losesValue(bytes, *merged)) return std::nullopt;
  return parsePropertyList(*merged) == expected ? merged : std::nullopt;
}

}  // namespace brevant
