// SPDX-License-Identifier: MIT
#include "platform/linux/process_info.h"

#include <charconv>

namespace brevant {
namespace {

SystemVersion parsed(const std::string& text) {
  SystemVersion version;
  const char* const end = text.data() + text.size();
  const char* const dot = std::from_chars(text.data(), end, version.major).ptr;
  if (dot != end && *dot == '.') std::from_chars(dot + 1, end, version.minor);
  return version;
}

class FixedProcessInfo : public ProcessInfo {
 public:
  FixedProcessInfo(const std::string& version, bool isiOSAppOnMac)
      : text_(version), version_(parsed(version)), isiOSAppOnMac_(isiOSAppOnMac) {}

  SystemVersion systemVersion() const override { return version_; }
  std::string systemVersionString() const override { return text_; }
  bool isiOSAppOnMac() const override { return isiOSAppOnMac_; }

 private:
  const std::string text_;
  const SystemVersion version_;
  const bool isiOSAppOnMac_;
};

}  // namespace

std::unique_ptr<ProcessInfo> makeProcessInfo(const std::string& systemVersion, bool isiOSAppOnMac) {
  return std::make_unique<FixedProcessInfo>(systemVersion, isiOSAppOnMac);
}

}  // namespace brevant
