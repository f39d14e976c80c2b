// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>

namespace brevant {

struct CloudRecord {
  std::string recordType;
  std::string recordName;
  std::map<std::string, std::string> fields;

  bool operator==(const CloudRecord&) const = default;
};

// The private database of a cloud container. `save` returns at once; the record is stored in the
// background and `completion` is called on a thread of the platform's choosing, with an empty text
// or with what went wrong.
class CloudDatabase {
 public:
  using Completion = std::function<void(const std::string& error)>;

  virtual ~CloudDatabase() = default;

  virtual void save(const std::string& container, const CloudRecord& record,
                    Completion completion) = 0;
};

}  // namespace brevant
