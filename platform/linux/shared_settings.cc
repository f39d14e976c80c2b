// SPDX-License-Identifier: MIT
#include "platform/linux/shared_settings.h"

#include <limits>
#include <map>
#include <mutex>
#include <utility>

#include "platform/linux/durable_file.h"
#include "platform/linux/property_list.h"
#include "platform/linux/shared_document.h"

namespace brevant {
namespace {

constexpr const char* kFolder = "/Library/Preferences";
constexpr const char* kName = "group.brevant.plist";

// For how long what was read counts as current, so that the file is not opened for each row of a
// query. With the coarse clock's step this stays below the 10 ms that other processes are promised.
constexpr double kCurrentFor = 0.0035;
constexpr double kNever = -std::numeric_limits<double>::infinity();

class SettingsFile : public SharedSettings {
 public:
  SettingsFile(const std::string& container, const Clock& clock, Log& log)
      : file_(container + kFolder, kName, kMaxPropertyListSize), clock_(clock), log_(log) {}

  std::shared_ptr<const PropertyValue> object(const std::string& key) const override {
    const std::lock_guard lock(mutex_);
    const PropertyValue* const value = find(key);
    return value ? std::shared_ptr<const PropertyValue>(values_, value) : nullptr;
  }

  std::string problem() const override {
    const std::lock_guard lock(mutex_);
    refresh();
    return problem_;
  }

  bool boolean(const std::string& key) const override {
    const std::lock_guard lock(mutex_);
    const PropertyValue* const value = find(key);
    return value && value->toBool();
  }

  std::int64_t integer(const std::string& key) const override {
    const std::lock_guard lock(mutex_);
    const PropertyValue* const value = find(key);
    return value ? value->toInteger() : 0;
  }

  void setBool(bool value, const std::string& key) override {
    const std::lock_guard lock(mutex_);
    unsaved_[key] = value;
    readAt_ = kNever;
  }

  SaveOutcome synchronize() override {
    const std::lock_guard lock(mutex_);
    readAt_ = kNever;
    if (unsaved_.empty()) return {};
    SaveOutcome outcome = write();
    if (outcome.isSaved()) unsaved_.clear();
    if (!outcome.why.empty()) {
      log_.write(
          (outcome.isSaved() ? "The settings were saved, but: " : "The settings were not saved: ") +
          outcome.why);
    }
    return outcome;
  }

 private:
  void refresh() const {
    const double now = clock_.monotonicSeconds();
    if (now - readAt_ < kCurrentFor) return;
    read();
    readAt_ = now;
    lastFound_ = nullptr;
  }

  const PropertyValue* find(const std::string& key) const {
    refresh();
    if (lastFound_ != nullptr && lastFound_->first == key) return &lastFound_->second;
    const auto found = values_->find(key);
    if (found == values_->end()) return nullptr;
    lastFound_ = &*found;
    return &lastFound_->second;
  }

  // Compares the whole file rather than its times, which two quick writes can share; it is small.
  void read() const {
    const std::optional<std::string> found = file_.read();
    std::string stored = found.value_or("");
    if (!stored.empty() && stored == stored_ && unsaved_ == overlaid_) return;
    std::optional<PropertyDictionary> parsed = parsePropertyList(stored);
    problem_.clear();
    if (found && !parsed) problem_ = file_.path() + ": is no property list";
    if (!found && fileExists(file_.path())) problem_ = file_.whyUnreadable();
    PropertyDictionary values = std::move(parsed).value_or(PropertyDictionary());
    for (const auto& [key, value] : unsaved_) values[key] = {value};
    values_ = std::make_shared<const PropertyDictionary>(std::move(values));
    stored_ = std::move(stored);
    overlaid_ = unsaved_;
  }

  SaveOutcome write() {
    return file_.change([this](const std::optional<std::string>& stored) -> SharedDocument::Edit {
      // A file that is there but empty is broken as well.
      std::optional<std::string> merged;
      if (!stored || !stored->empty()) merged = mergedPropertyList(stored.value_or(""), unsaved_);
      if (!merged) return {std::nullopt, "is no property list that can be changed without loss"};
      return {std::move(merged), ""};
    });
  }

  const SharedDocument file_;
  const Clock& clock_;
  Log& log_;

  mutable std::mutex mutex_;  // guards everything below
  mutable double readAt_ = kNever;
  mutable std::string problem_;
  mutable std::string stored_;  // the bytes that `values_` was made of
  mutable std::shared_ptr<const PropertyDictionary> values_ =
      std::make_shared<const PropertyDictionary>();
  mutable const PropertyDictionary::value_type* lastFound_ = nullptr;  // in `values_`
  mutable std::map<std::string, bool> overlaid_;  // what of `unsaved_` is in `values_`
  std::map<std::string, bool> unsaved_;
};

}  // namespace

std::string settingsPath(const std::string& container) {
  return container + kFolder + "/" + kName;
}

std::unique_ptr<SharedSettings> makeSharedSettings(const std::string& container, const Clock& clock,
                                                   Log& log) {
  return std::make_unique<SettingsFile>(container, clock, log);
}

}  // namespace brevant
