#include "platform/linux/shared_document.h"

#include <filesystem>
#include <utility>

#include "platform/linux/durable_file.h"

namespace brevant {

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

std::string SharedDocument::change(const Editor& editor) const {
  if (std::string problem = makeDirectories(folder_); !problem.empty()) return problem;
  const std::string target = linkTarget(path_);
  const FileLock lock(target + ".lock");
  if (!lock.held()) return target + ".lock: cannot be locked";
  const std::optional<std::string> current = read();
  if (!current && fileExists(path_)) return whyUnreadable();
  Edit edit = editor(current);
  if (!edit.problem.empty()) return path_ + ": " + edit.problem;
  return edit.contents ? replaceFile(target, *edit.contents) : "";
}

}  // namespace brevant
