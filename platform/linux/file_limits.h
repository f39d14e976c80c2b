// SPDX-License-Identifier: MIT

// How much of a file that others may have written is believed. Every size is checked before memory
// is taken for the file, every depth before anything calls itself; whoever refuses names the limit.
#pragma once

#include <cstddef>

namespace brevant {

// JSON of ours nests four levels. The parser frees what it read level by level, by calling itself:
// 64 take a few kilobytes of the stack, a hundred thousand would take all of it.
inline constexpr int kMaxJsonDepth = 64;

// A running Live Activity takes 300 bytes; a system lets a few run. As a tree a file of this size
// takes 30 MB.
inline constexpr std::size_t kMaxRegistrySize = std::size_t{1} << 20U;

// Twenty reminders of 500 bytes are pending at a time.
inline constexpr std::size_t kMaxReminderFileSize = std::size_t{1} << 20U;

// One takes 100 bytes.
inline constexpr std::size_t kMaxCloudRecordSize = std::size_t{1} << 20U;

// Together, so that a folder full of them cannot fill the memory either: 20,000 honest ones.
inline constexpr std::size_t kMaxCloudRecordsSize = std::size_t{2} << 20U;

// A reminder carries one or two values for its receiver, a record one. Looking a key up among those
// to be written takes as long as there are keys, so that thousands would take minutes.
inline constexpr std::size_t kMaxTextFields = 64;

}  // namespace brevant
