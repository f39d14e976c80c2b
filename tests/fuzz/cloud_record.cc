// SPDX-License-Identifier: MIT

// A file among the cloud records is a record, or is passed over with one word about it.
#include <cstdlib>

#include "platform/linux/cloud_database.h"
#include "tests/fuzz/container.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const brevant::fuzz::Container container;
  container.write("C/private/T/A.json", data, size);
  std::size_t told = 0;
  const auto records =
      brevant::savedCloudRecords(container.path(), "C", [&](const std::string&) { ++told; });
  if (records.size() + told != 1) std::abort();
  return 0;
}
