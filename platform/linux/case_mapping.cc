#include "platform/linux/case_mapping.h"

#include <algorithm>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace brevant {
namespace {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

std::string asciiLowercased(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return result;
}

class IcuCaseMapping : public CaseMapping {
 public:
  // Most names are ASCII, and then nothing of ICU's data is loaded.
  std::string lowercased(std::string_view utf8) const override {
    return isAscii(utf8) ? asciiLowercased(utf8) : unicodeLowercased(utf8);
  }

 private:
  static std::string unicodeLowercased(std::string_view utf8) {
    const icu::StringPiece bytes(utf8.data(), static_cast<std::int32_t>(utf8.size()));
    std::string result;
    icu::UnicodeString::fromUTF8(bytes).toLower(icu::Locale::getRoot()).toUTF8String(result);
    return result;
  }
};

}  // namespace

std::unique_ptr<CaseMapping> makeCaseMapping() {
  return std::make_unique<IcuCaseMapping>();
}

}  // namespace brevant
