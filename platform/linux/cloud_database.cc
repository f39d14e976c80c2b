#include "platform/linux/cloud_database.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "platform/linux/durable_file.h"

namespace brevant {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kMaxRecordSize = std::size_t{1} << 20U;

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

std::optional<CloudRecord> decoded(const std::string& text) {
  const Json json = Json::parse(text, nullptr, false);
  try {
    return CloudRecord{json.at("recordType"), json.at("recordName"), json.at("fields")};
  } catch (const Json::exception&) {
    return std::nullopt;
  }
}

// Empty on success, else what went wrong.
std::string write(const std::string& directory, const std::string& cloudContainer,
                  const CloudRecord& record) {
  if (!isFileName(cloudContainer) || !isFileName(record.recordType) ||
      !isFileName(record.recordName)) {
    return "a cloud record's container, type and name must be file names";
  }
  const std::string folder = privateDatabase(directory, cloudContainer) + "/" + record.recordType;
  if (std::string problem = makeDirectories(folder); !problem.empty()) return problem;
  // Without a lock: the name is new, so nobody else writes this file or its temporary one.
  return replaceFile(folder + "/" + record.recordName + ".json", coded(record));
}

class CloudFolder : public CloudDatabase {
 public:
  CloudFolder(std::string directory, TaskQueue& tasks)
      : directory_(std::move(directory)), tasks_(tasks) {}

  void save(const std::string& container, const CloudRecord& record,
            Completion completion) override {
    tasks_.start([directory = directory_, container, record, completion = std::move(completion)] {
      completion(write(directory, container, record));
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
                                           const std::string& cloudContainer) {
  std::vector<CloudRecord> records;
  std::error_code error;
  std::filesystem::recursive_directory_iterator files(privateDatabase(directory, cloudContainer),
                                                      error);
  for (; !error && files != std::filesystem::recursive_directory_iterator();
       files.increment(error)) {
    if (files->path().extension() != ".json") continue;
    const std::optional<std::string> text = readFile(files->path(), kMaxRecordSize);
    std::optional<CloudRecord> record = text ? decoded(*text) : std::nullopt;
    if (record) records.push_back(std::move(*record));
  }
  std::sort(records.begin(), records.end(), [](const CloudRecord& a, const CloudRecord& b) {
    return std::tie(a.recordType, a.recordName) < std::tie(b.recordType, b.recordName);
  });
  return records;
}

}  // namespace brevant
