// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

namespace brevant {

// What became of a change of something that is kept on disk.
struct SaveOutcome {
  enum class State {
    kSaved,
    kUnconfirmed,  // everybody sees the change, but the disk may forget it when the power fails
    kNotSaved,     // what was there is there still
  };

  State state = State::kSaved;
  std::string why{};  // names the file; empty when it is saved

  bool isSaved() const { return state != State::kNotSaved; }

  bool operator==(const SaveOutcome&) const = default;
};

inline SaveOutcome notSaved(std::string why) {
  return {SaveOutcome::State::kNotSaved, std::move(why)};
}

}  // namespace brevant
