#include "platform/linux/case_mapping.h"

#include <algorithm>
#include <unicode/ucasemap.h>

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
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCaseMap, decltype(&ucasemap_close)> map(
        ucasemap_open("", U_FOLD_CASE_DEFAULT, &status), &ucasemap_close);
    // At most threefold: a byte that is no UTF-8 becomes three, no mapping grows a letter further.
    std::string result(3 * utf8.size(), '\0');
    const std::int32_t size =
        ucasemap_utf8ToLower(map.get(), result.data(), static_cast<std::int32_t>(result.size()),
                             utf8.data(), static_cast<std::int32_t>(utf8.size()), &status);
    if (U_FAILURE(status)) return asciiLowercased(utf8);
    result.resize(static_cast<std::size_t>(size));
    return result;
  }
};

}  // namespace

std::unique_ptr<CaseMapping> makeCaseMapping() {
  return std::make_unique<IcuCaseMapping>();
}

}  // namespace brevant
