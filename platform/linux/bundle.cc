// SPDX-License-Identifier: MIT
#include "platform/linux/bundle.h"

#include <libintl.h>
#include <mutex>
#include <string_view>

#include "platform/linux/translations.h"

namespace brevant {
namespace {

constexpr std::string_view kSuffix = ".png";

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
    return key.empty() ? "" : dgettext(kTranslations, key.c_str());
  }

  std::string localizedPlural(const std::string& key, long number) const override {
    openTranslations();
    const auto bits = static_cast<unsigned long>(number);
    const unsigned long count = number < 0 ? 0 - bits : bits;
    return key.empty() ? "" : dngettext(kTranslations, key.c_str(), key.c_str(), count);
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

  void openTranslations() const {
    std::call_once(opened_, [this] { brevant::openTranslations(translations_); });
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
