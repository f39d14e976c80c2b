// SPDX-License-Identifier: MIT
#include "platform/linux/keyed_archive.h"

#include <cstdlib>
#include <memory>
#include <optional>
#include <plist/plist.h>
#include <set>
#include <string_view>

#include "platform/linux/binary_property_list.h"
#include "platform/linux/property_list.h"
#include "platform/picture_limits.h"

namespace brevant {
namespace {

using Bytes = std::span<const std::uint8_t>;

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};

bool isBinary(std::string_view bytes) {
  return bytes.starts_with("bplist00");
}

// The library's stack ends at some depth of XML; of a binary list the depth is known beforehand.
bool isTooLarge(std::string_view bytes) {
  return bytes.size() > (isBinary(bytes) ? kMaxArchiveSize : kMaxPropertyListSize);
}

// An archive is a flat list of objects that refer to each other by their index.
class Archive {
 public:
  explicit Archive(std::string_view bytes) {
    if (isBinary(bytes) && !isHarmlessBinaryPropertyList(bytes)) return;
    plist_t root = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    archive_.reset(root);
    objects_ = field(root, "$objects", PLIST_ARRAY);
  }

  bool isKeyedArchive() const {
    return objects_ && field(archive_.get(), "$archiver", PLIST_STRING) &&
           field(archive_.get(), "$top", PLIST_DICT);
  }

  // The object that was archived; null when the archive refers to none.
  plist_t root() const {
    return resolved(plist_dict_get_item(field(archive_.get(), "$top", PLIST_DICT), "root"));
  }

  // Data as it stands, or in the object that wraps mutable data.
  std::optional<Bytes> data(plist_t node) const {
    if (is(node, PLIST_DICT)) node = resolved(plist_dict_get_item(node, "NS.data"));
    if (!is(node, PLIST_DATA)) return std::nullopt;
    std::uint64_t size = 0;
    const char* const start = plist_get_data_ptr(node, &size);
    return Bytes(reinterpret_cast<const std::uint8_t*>(start), start ? size : 0);
  }

  void visitFields(plist_t object, const DataVisitor& goesOn) const {
    std::set<const std::uint8_t*> seen;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(object, &iterator);
    const std::unique_ptr<void, decltype(&std::free)> owner(iterator, &std::free);
    while (true) {
      plist_t value = nullptr;
      plist_dict_next_item(object, iterator, nullptr, &value);
      if (!value) return;
      const std::optional<Bytes> bytes = data(resolved(value));
      if (bytes && seen.insert(bytes->data()).second && !goesOn(*bytes)) return;
    }
  }

 private:
  static bool is(plist_t node, plist_type type) {
    return node && plist_get_node_type(node) == type;
  }

  static plist_t field(plist_t object, const char* key, plist_type type) {
    if (!is(object, PLIST_DICT)) return nullptr;
    plist_t value = plist_dict_get_item(object, key);
    return is(value, type) ? value : nullptr;
  }

  // What a reference refers to; any other node itself. XML spells a reference as a dictionary.
  plist_t resolved(plist_t node) const {
    std::uint64_t index = 0;
    if (is(node, PLIST_UID)) {
      plist_get_uid_val(node, &index);
    } else if (plist_t uid = field(node, "CF$UID", PLIST_UINT)) {
      plist_get_uint_val(uid, &index);
    } else {
      return node;
    }
    if (!objects_ || index >= plist_array_get_size(objects_)) return nullptr;
    return plist_array_get_item(objects_, static_cast<std::uint32_t>(index));
  }

  std::unique_ptr<void, FreeNode> archive_;
  plist_t objects_ = nullptr;
};

}  // namespace

bool visitArchivedData(std::span<const std::uint8_t> archive, const DataVisitor& goesOn) {
  const std::string_view bytes(reinterpret_cast<const char*>(archive.data()), archive.size());
  if (isTooLarge(bytes)) return true;
  const Archive parsed(bytes);
  if (!parsed.isKeyedArchive()) return false;
  plist_t root = parsed.root();
  if (!root) return true;
  if (const std::optional<Bytes> data = parsed.data(root)) {
    goesOn(*data);
  } else if (plist_get_node_type(root) == PLIST_DICT) {
    parsed.visitFields(root, goesOn);
  }
  return true;
}

}  // namespace brevant
