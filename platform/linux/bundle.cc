// SPDX-License-Identifier: MIT
#include "platform/linux/bundle.h"

#include <clocale>
#include <cstdlib>
#include <libintl.h>
#include <mutex>
#include <string_view>

namespace brevant {
namespace {

constexpr const char* kDomain = "brevant";
constexpr std::string_view kSuffix = ".png";

std::string firstSet(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const char* const value = std::getenv(name);
    if (value && *value != '\0') return value;
  }
  return "";
}

// The user's languages, the preferred first, separated by colons. English stands last, so that a
// text is never shown as its bare key.
std::string preferredLanguages() {
  const std::string locale = firstSet({"LC_ALL", "LC_MESSAGES", "LANG"});
  if (locale == "C" || locale == "POSIX") return "en";
  const std::string languages = firstSet({"LANGUAGE"});
  if (!languages.empty()) return languages + ":en";
  return locale.empty() || locale.starts_with("C.") ? "en" : locale + ":en";
}

class ResourceFolder : public Bundle {
 public:
  ResourceFolder(const std::string& share, const ImageCodec& codec)
      : images_(share + "/brevant/images/"), translations_(share + "/locale"), codec_(codec) {}

  ImageRef imageNamed(const std::string& name) const override {
    std::string_view base = name;
    if (base.ends_with(kSuffix)) base.remove_suffix(kSuffix.size());
    if (base.empty() || name.find_first_of(std::string_view("/\0", 2)) != std::string::npos) {
      return nullptr;
    }
    if (base.ends_with("@2x") || base.ends_with("@3x")) return load(name, base, "");
    for (const char* const scale : {"@3x", "@2x", ""}) {
      if (ImageRef image = load(name, base, scale)) return image;
    }
    return nullptr;
  }

  std::string localizedString(const std::string& key) const override {
    openTranslations();
    return key.empty() ? "" : dgettext(kDomain, key.c_str());
  }

  std::string localizedPlural(const std::string& key, long number) const override {
    openTranslations();
    const auto bits = static_cast<unsigned long>(number);
    const unsigned long count = number < 0 ? 0 - bits : bits;
    return key.empty() ? "" : dngettext(kDomain, key.c_str(), key.c_str(), count);
  }

 private:
  ImageRef load(const std::string& name, std::string_view base, const char* scale) const {
    const ImageRef image =
        codec_.imageWithContentsOfFile(images_ + std::string(base) + scale + std::string(kSuffix));
    if (!image) return nullptr;
    Image named = *image;
    named.name = name;
    return std::make_shared<const Image>(std::move(named));
  }

  // The C library translates only in a locale that the system has generated, and many have none.
  // C.UTF-8 is built in, and in it $LANGUAGE decides alone.
  void openTranslations() const {
    std::call_once(opened_, [this] {
      setenv("LANGUAGE", preferredLanguages().c_str(), 1);
      std::setlocale(LC_MESSAGES, "C.UTF-8");
      bindtextdomain(kDomain, translations_.c_str());
      bind_textdomain_codeset(kDomain, "UTF-8");
    });
  }

  const std::string images_;
  const std::string translations_;
  const ImageCodec& codec_;
  mutable std::once_flag opened_;
};

}  // namespace

std::unique_ptr<Bundle> makeBundle(const std::string& share, const ImageCodec& codec) {
  return std::make_unique<ResourceFolder>(share, codec);
}

}  // namespace brevant
