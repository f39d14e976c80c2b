// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brevant {

class Context;

// A word that may stand somewhere, and what it stands for (empty where it says that itself).
struct Candidate {
  std::string text;
  std::string description;
};

// What may stand in a place: by its name ("GUID", "--container"), which means the same for every
// command that has it, so that a new command needs nothing of its own.
enum class PlaceKind {
  kAnything,
  kFile,
  kFolder,
  kOperation,
  kIcon,
  kCategory,
  kGroup,
  kCategoryOrGroup,
  kCategoryGuid,
  kRunningGuid,
  kUnfinishedGuid,  // running or paused
  kRunning,         // these three by the category's name where it says which
  kPaused,
  kUnfinished,
  kLiveActivity,
};

// `command` is the innermost command's name.
PlaceKind placeKind(std::string_view command, std::string_view place);

// What the container has for it. A name that could not be written in a shell is told by its guid.
std::vector<Candidate> candidates(Context& context, PlaceKind kind);

}  // namespace brevant
