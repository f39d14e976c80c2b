// SPDX-License-Identifier: MIT
#include "widget/deep_link.h"

#include <algorithm>

#include "platform/fatal_error.h"

namespace brevant {
namespace {

std::string prefix(DeepLinkType type, DeepLinkAction action) {
  const std::string typeWord = type == DeepLinkType::kRunning ? "running" : "live_activity";
  const std::string actionWord = action == DeepLinkAction::kPause ? "pause" : "stop";
  return "brevant:///widget?type=" + typeWord + "&action=" + actionWord + "&activity=";
}

bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool isHexDigit(char c) {
  return (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F') || (c >= '0' && c <= '9');
}

// Query and fragment of a URL share this grammar: anything else must be percent-escaped.
bool isQueryText(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '%') {
      if (i + 2 >= text.size() || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2]))
        return false;
      i += 2;
    } else if (!isLetterOrDigit(c) &&
               std::string_view("-._~!$&'()*+,;=:@/?").find(c) == std::string_view::npos) {
      return false;
    }
  }
  return true;
}

// As the end of a URL's query, possibly with a fragment.
bool endsValidUrl(std::string_view guid) {
  const std::size_t hash = std::min(guid.find('#'), guid.size());
  const std::string_view fragment = guid.substr(std::min(hash + 1, guid.size()));
  return isQueryText(guid.substr(0, hash)) && isQueryText(fragment);
}

}  // namespace

std::string DeepLink::url() const {
  if (!endsValidUrl(guid)) fatalError("the activity's guid makes no valid deep link");
  return prefix(type, action) + guid;
}

std::optional<DeepLink> DeepLink::parse(std::string_view url) {
  for (const DeepLinkType type : {DeepLinkType::kRunning, DeepLinkType::kLiveActivity}) {
    for (const DeepLinkAction action : {DeepLinkAction::kPause, DeepLinkAction::kStop}) {
      const std::string start = prefix(type, action);
      if (!url.starts_with(start)) continue;
      const std::string_view guid = url.substr(start.size());
      // An ampersand would begin another key and a hash a fragment.
      const bool isOneValue = isQueryText(guid) && guid.find('&') == std::string_view::npos;
      if (guid.empty() || !isOneValue) return std::nullopt;
      return DeepLink{type, action, std::string(guid)};
    }
  }
  return std::nullopt;
}

}  // namespace brevant
