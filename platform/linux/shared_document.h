// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/save_outcome.h"

namespace brevant {

// A small file in a folder of its own that several processes read and change. A reader needs no
// lock: it sees the file as it was before a change or as it is after it. A change holds a lock
// beside the file ("NAME.lock"; where NAME is a link, beside what it leads to) from reading to
// replacing, so none is lost. Nor is what a program saves that knows nothing of the lock: the
// change is made anew of that. Any thread may call.
class SharedDocument {
 public:
  // What a change makes of the contents: nothing new, or a problem and nothing new.
  struct Edit {
    std::optional<std::string> contents;
    std::string problem;
  };
  using Editor = std::function<Edit(const std::optional<std::string>& contents)>;

  SharedDocument(std::string folder, const std::string& name, std::size_t limit);

  const std::string& path() const { return path_; }

  // Absent when there is no file, or none that can be read.
  std::optional<std::string> read() const;

  // What keeps a file that is there from being read: its size, by the limit's name, or anything
  // else.
  std::string whyUnreadable() const;

  // Makes the folder when it is missing. Calls the editor again each time that the file is another
  // by the time it would be replaced. A file that is there but cannot be read is not saved, and the
  // editor not called.
  [[nodiscard]] SaveOutcome change(const Editor& editor) const;

 private:
  std::string folder_;
  std::string path_;
  std::size_t limit_;
};

}  // namespace brevant
