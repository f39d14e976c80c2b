// SPDX-License-Identifier: MIT
#include "platform/linux/shared_document.h"

#include <filesystem>
#include <utility>

#include "platform/linux/durable_file.h"
#include "platform/linux/file_lock.h"

namespace brevant {
namespace {

// How often another program may save the file while it is being changed.
constexpr int kMostAttempts = 100;

}  // namespace

SharedDocument::SharedDocument(std::string folder, const std::string& name, std::size_t limit)
    : folder_(std::move(folder)), path_(folder_ + "/" + name), limit_(limit) {}

std::optional<std::string> SharedDocument::read() const {
  return readFile(path_, limit_);
}

std::string SharedDocument::whyUnreadable() const {
  std::error_code error;
  const auto size = std::filesystem::file_size(path_, error);
  if (error || size <= limit_) return path_ + ": cannot be read";
  return path_ + ": is larger than " + std::to_string(limit_ >> 10U) + " KiB";
}

SaveOutcome SharedDocument::change(const Editor& editor) const {
  if (std::string problem = makeDirectories(folder_); !problem.empty()) {
    return notSaved(std::move(problem));
  }
  const std::string target = linkTarget(path_);
  const FileLock lock(target + ".lock");
  if (!lock.held()) return notSaved(lock.problem());
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    const std::optional<std::string> current = read();
    if (!current && fileExists(path_)) return notSaved(whyUnreadable());
    const Edit edit = editor(current);
    if (!edit.problem.empty()) return notSaved(path_ + ": " + edit.problem);
    if (!edit.contents) return {};
    if (auto outcome = replaceFile(target, current, *edit.contents)) return *outcome;
  }
  return notSaved(path_ + ": another program keeps replacing it");
}

}  // namespace brevant
