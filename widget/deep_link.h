// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brevant {

enum class DeepLinkType { kRunning, kLiveActivity };
enum class DeepLinkAction { kPause, kStop };

// A link by which a control opens the main application to pause or stop an activity, on systems
// whose widgets cannot run intents:
//
//   brevant:///widget?type=running&action=pause&activity=GUID
//
// The guid follows as it stands, unescaped, and is compared as it stands on the other side.
struct DeepLink {
  DeepLinkType type = DeepLinkType::kRunning;
  DeepLinkAction action = DeepLinkAction::kPause;
  std::string guid;

  bool operator==(const DeepLink&) const = default;

  // A guid that makes no valid URL (RFC 3986) is a fatal error.
  [[nodiscard]] std::string url() const;

  // Absent unless the text is such a link to the letter, with a guid and nothing behind it.
  static std::optional<DeepLink> parse(std::string_view url);
};

}  // namespace brevant
