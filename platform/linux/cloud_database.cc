// SPDX-License-Identifier: MIT
#include "platform/linux/cloud_database.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>
#include <variant>

#include "platform/linux/durable_file.h"
#include "platform/linux/file_limits.h"
#include "platform/linux/json_check.h"

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;

bool isFileName(const std::string& name) {
  return !name.empty() && name[0] != '.' && name.find('/') == std::string::npos;
}

std::string privateDatabase(const std::string& directory, const std::string& cloudContainer) {
  return directory + "/" + cloudContainer + "/private";
}

std::string coded(const CloudRecord& record) {
  const Json json = {{"recordType", record.recordType},
                     {"recordName", record.recordName},
                     {"fields", Json(record.fields)}};
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

// The record, or why the text is none.
std::variant<CloudRecord, std::string> decoded(const std::string& text) {
  if (std::string harm = harmInJson(text); !harm.empty()) return harm;
  const auto json = nlohmann::json::parse(text, nullptr, false);
  try {
    CloudRecord record{json.at("recordType"), json.at("recordName"), json.at("fields")};
    if (record.fields.size() <= kMaxTextFields) return record;
    return "has more than " + std::to_string(kMaxTextFields) + " fields";
  } catch (const Json::exception&) {
    return "is no cloud record";
  }
}

bool isLargerThan(const std::filesystem::path& path, std::size_t limit) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  return !error && size > limit;
}

std::variant<CloudRecord, std::string> storedRecord(const std::filesystem::path& path,
                                                    std::size_t& readable) {
  if (isLargerThan(path, kMaxCloudRecordSize)) {
    return "is larger than " + std::to_string(kMaxCloudRecordSize >> 10U) + " KiB";
  }
  if (isLargerThan(path, readable)) {
    return "comes after " + std::to_string(kMaxCloudRecordsSize >> 10U) + " KiB of records";
  }
  const std::optional<std::string> text = readFile(path, readable);
  if (!text) return "cannot be read";
  readable -= text->size();
  return decoded(*text);
}

SaveOutcome write(const std::string& directory, const std::string& cloudContainer,
                  const CloudRecord& record) {
  if (!isFileName(cloudContainer) || !isFileName(record.recordType) ||
      !isFileName(record.recordName)) {
    return notSaved("a cloud record's container, type and name must be file names");
  }
  const std::string folder = privateDatabase(directory, cloudContainer) + "/" + record.recordType;
  if (std::string problem = makeDirectories(folder); !problem.empty()) {
    return notSaved(std::move(problem));
  }
  return makeFile(folder + "/" + record.recordName + ".json", coded(record));
}

class CloudFolder : public CloudDatabase {
 public:
  CloudFolder(std::string directory, TaskQueue& tasks)
      : directory_(std::move(directory)), tasks_(tasks) {}

  void save(const std::string& container, const CloudRecord& record,
            Completion completion) override {
    tasks_.start([directory = directory_, container, record, completion = std::move(completion)] {
      const SaveOutcome outcome = write(directory, container, record);
      completion(outcome.isSaved() ? "" : outcome.why);
    });
  }

 private:
  const std::string directory_;
  TaskQueue& tasks_;
};

}  // namespace

std::string cloudDirectory(const std::string& container) {
  const char* const replaced = std::getenv("BREVANT_CLOUD_DIR");
  return replaced && *replaced != '\0' ? replaced : container + "/Cloud";
}

std::unique_ptr<CloudDatabase> makeCloudDatabase(const std::string& directory, TaskQueue& tasks) {
  return std::make_unique<CloudFolder>(directory, tasks);
}

std::vector<CloudRecord> savedCloudRecords(const std::string& directory,
                                           const std::string& cloudContainer,
                                           const CloudProblem& tell) {
  std::vector<CloudRecord> records;
  std::size_t readable = kMaxCloudRecordsSize;
  std::error_code error;
  std::filesystem::recursive_directory_iterator files(privateDatabase(directory, cloudContainer),
                                                      error);
  for (; !error && files != std::filesystem::recursive_directory_iterator();
       files.increment(error)) {
    if (files->path().extension() != ".json") continue;
    auto stored = storedRecord(files->path(), readable);
    if (auto* const record = std::get_if<CloudRecord>(&stored)) {
      records.push_back(std::move(*record));
    } else {
      tell(files->path().string() + ": " + std::get<std::string>(stored));
    }
  }
  std::sort(records.begin(), records.end(), [](const CloudRecord& a, const CloudRecord& b) {
    return std::tie(a.recordType, a.recordName) < std::tie(b.recordType, b.recordName);
  });
  return records;
}

}  // namespace brevant
