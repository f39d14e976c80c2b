// SPDX-License-Identifier: MIT
#include "store/fm_statement.h"

#include <sqlite3.h>
#include <utility>

namespace brevant {
namespace {

// Binds one value to the parameter at `index`. SQLite takes copies: a query's rows are fetched long
// after its arguments are gone.
struct Binder {
  sqlite3_stmt* statement;
  int index;

  int operator()(std::monostate) const { return sqlite3_bind_null(statement, index); }
  int operator()(int number) const { return sqlite3_bind_int(statement, index, number); }
  int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, index, number); }
  int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
  int operator()(std::string_view text) const {
    return sqlite3_bind_text64(statement, index, notNull(text.data()), text.size(),
                               SQLITE_TRANSIENT, SQLITE_UTF8);
  }
  int operator()(Argument::Blob bytes) const {
    return sqlite3_bind_blob64(statement, index, notNull(bytes.data()), bytes.size(),
                               SQLITE_TRANSIENT);
  }

 private:
  // SQLite would take a null pointer for NULL, even where an empty value is meant.
  template <typename T>
  static const T* notNull(const T* data) {
    static constexpr T kEmpty{};
    return data ? data : &kEmpty;
  }
};

}  // namespace

FMStatement::FMStatement(sqlite3_stmt* handle, std::string_view sql)
    : query(sql), handle_(handle) {}

FMStatement::~FMStatement() {
  sqlite3_finalize(handle_);
}

int FMStatement::parameterCount() const {
  return sqlite3_bind_parameter_count(handle_);
}

int FMStatement::bind(std::span<const Argument> arguments) {
  int index = 0;
  for (const Argument& argument : arguments) {
    const int result = std::visit(Binder{handle_, ++index}, argument.value());
    if (result != SQLITE_OK) return result;
  }
  return SQLITE_OK;
}

int FMStatement::reset() {
  inUse = false;
  return sqlite3_reset(handle_);
}

}  // namespace brevant
