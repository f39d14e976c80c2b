// SPDX-License-Identifier: MIT

// What a status bar waits for: `brevant status` on a sample log, beside the sqlite3 shell that runs
// the same statements.
#include <cstdlib>
#include <filesystem>

#include "bench/programs/process_life.h"
#include "bench/ratio_report.h"

namespace brevant::bench {
namespace {

namespace fs = std::filesystem;

class Log {
 public:
  Log() {
    std::string name = (fs::temp_directory_path() / "brevant-bench-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    shell(BREVANT " sample " + folder());
  }
  Log(const Log&) = delete;
  ~Log() { fs::remove_all(folder_); }

  [[nodiscard]] std::string folder() const { return folder_ / "log"; }

 private:
  fs::path folder_;
};

const Log& log() {
  static const Log made;
  return made;
}

constexpr const char* kStatements =
    "SELECT guid, start_date, state, comment, category_guid FROM logs "
    "WHERE (state = 1 OR state = 2) AND is_deleted = 0;"
    "SELECT guid, start, finish, start_m, finish_m FROM time_intervals WHERE is_deleted=0 AND "
    "log_guid = (SELECT guid FROM logs WHERE state = 1 AND is_deleted = 0);"
    "SELECT guid, start, finish, start_m, finish_m FROM time_intervals WHERE is_deleted=0 AND "
    "log_guid = (SELECT guid FROM logs WHERE state = 2 AND is_deleted = 0);"
    "SELECT guid, name, color, image_guid, order_num, sync_status, parent_guid, is_group, "
    "is_archived FROM categories WHERE is_deleted = 0 AND is_archived = 0 ORDER BY order_num;";

void status(benchmark::State& state) {
  measureLives(state, {BREVANT, "--container", log().folder(), "status"});
}

void sqliteShell(benchmark::State& state) {
  measureLives(state, {"sqlite3", log().folder() + "/database.sqlite", kStatements});
}

BENCHMARK(status)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(sqliteShell)->UseManualTime()->Unit(benchmark::kMillisecond);

const Ratio kStatus("status", "sqliteShell", 1.5);

}  // namespace
}  // namespace brevant::bench
