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

  void operator()(std::monostate) const { sqlite3_bind_null(statement, index); }
  void operator()(int number) const { sqlite3_bind_int(statement, index, number); }
  void operator()(std::int64_t number) const { sqlite3_bind_int64(statement, index, number); }
  void operator()(double number) const { sqlite3_bind_double(statement, index, number); }
  void operator()(std::string_view text) const {
    sqlite3_bind_text(statement, index, notNull(text.data()), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
  }
  void operator()(Argument::Blob bytes) const {
    sqlite3_bind_blob(statement, index, notNull(bytes.data()), static_cast<int>(bytes.size()),
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

bool FMStatement::bind(std::span<const Argument> arguments) {
  if (std::cmp_not_equal(arguments.size(), parameterCount())) return false;
  int index = 0;
  for (const Argument& argument : arguments) {
    std::visit(Binder{handle_, ++index}, argument.value());
  }
  return true;
}

int FMStatement::reset() {
  inUse = false;
  return sqlite3_reset(handle_);
}

}  // namespace brevant
