#include "platform/linux/case_mapping.h"

#include <algorithm>
#include <dlfcn.h>
#include <mutex>
#include <optional>
#include <unicode/ustring.h>
#include <unicode/uversion.h>
#include <utility>

// The name under which ICU has a function of this version: ICU renames them by macros.
#define BREVANT_TEXT(name) #name
#define BREVANT_ICU_NAME(function) BREVANT_TEXT(function)

namespace brevant {
namespace {

constexpr UChar32 kReplacement = 0xFFFD;

// The three functions of ICU that are needed, loaded when the first name asks for them. Linking the
// library would lengthen each start of a short program by a seventh, and few names need it.
class Icu {
 public:
  bool isThere() {
    std::call_once(loaded_, [this] {
      // Stays open: ICU keeps what it has loaded until the process ends.
      void* const library = dlopen("libicuuc.so." U_ICU_VERSION_SHORT, RTLD_NOW | RTLD_LOCAL);
      if (!library) return;
      load(library, fromUtf8_, BREVANT_ICU_NAME(u_strFromUTF8WithSub));
      load(library, toLower_, BREVANT_ICU_NAME(u_strToLower));
      load(library, toUtf8_, BREVANT_ICU_NAME(u_strToUTF8));
    });
    return fromUtf8_ && toLower_ && toUtf8_;
  }

  // Absent when a text is too long for ICU's lengths.
  std::optional<std::string> lowercased(std::string_view utf8) const {
    if (utf8.size() > INT32_MAX / 4) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t size = 0;
    // A unit for each byte is enough; lower case has at most three units for one.
    std::u16string text(utf8.size(), u'\0'), lower(3 * utf8.size(), u'\0');
    fromUtf8_(text.data(), length(text), &size, utf8.data(), length(utf8), kReplacement, nullptr,
              &status);
    const std::int32_t lowerSize =
        toLower_(lower.data(), length(lower), text.data(), size, "", &status);
    std::string result(3 * static_cast<std::size_t>(std::max(lowerSize, 0)), '\0');
    toUtf8_(result.data(), length(result), &size, lower.data(), lowerSize, &status);
    if (U_FAILURE(status)) return std::nullopt;
    result.resize(static_cast<std::size_t>(size));
    return result;
  }

 private:
  template <typename Text>
  static std::int32_t length(const Text& text) {
    return static_cast<std::int32_t>(text.size());
  }

  template <typename Function>
  static void load(void* library, Function& function, const char* name) {
    function = reinterpret_cast<Function>(dlsym(library, name));
  }

  std::once_flag loaded_;
  decltype(&u_strFromUTF8WithSub) fromUtf8_ = nullptr;
  decltype(&u_strToLower) toLower_ = nullptr;
  decltype(&u_strToUTF8) toUtf8_ = nullptr;
};

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

class UnicodeCaseMapping : public CaseMapping {
 public:
  std::string lowercased(std::string_view utf8) const override {
    std::optional<std::string> result;
    if (!isAscii(utf8) && icu_.isThere()) result = icu_.lowercased(utf8);
    return result ? std::move(*result) : asciiLowercased(utf8);
  }

 private:
  mutable Icu icu_;
};

}  // namespace

std::unique_ptr<CaseMapping> makeCaseMapping() {
  return std::make_unique<UnicodeCaseMapping>();
}

}  // namespace brevant
