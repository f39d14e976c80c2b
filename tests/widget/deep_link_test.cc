// SPDX-License-Identifier: MIT
#include "widget/deep_link.h"

#include <gtest/gtest.h>

namespace brevant {
namespace {

using enum DeepLinkType;
using enum DeepLinkAction;

TEST(DeepLink, IsWrittenAndReadBackToTheLetter) {
  const std::pair<DeepLink, std::string> cases[] = {
      {{kRunning, kPause, "abc"}, "type=running&action=pause&activity=abc"},
      {{kRunning, kStop, "abc"}, "type=running&action=stop&activity=abc"},
      {{kLiveActivity, kPause, "A-1"}, "type=live_activity&action=pause&activity=A-1"},
      {{kLiveActivity, kStop, "A-1"}, "type=live_activity&action=stop&activity=A-1"},
      {{kRunning, kStop, "a%20b/c?d=e:@!$'()*+,;~"},
       "type=running&action=stop&activity=a%20b/c?d=e:@!$'()*+,;~"},
  };
  for (const auto& [link, query] : cases) {
    const std::string url = "brevant:///widget?" + query;
    EXPECT_EQ(link.url(), url);
    EXPECT_EQ(DeepLink::parse(url), link) << url;
  }
}

TEST(DeepLink, RefusesEveryNearMiss) {
  for (const std::string url : {
           "",
           "brevant:///widget?type=running&action=pause&activity=",
           "Brevant:///widget?type=running&action=pause&activity=abc",
           " brevant:///widget?type=running&action=pause&activity=abc",
           "brevant://widget?type=running&action=pause&activity=abc",
           "brevant:///widget?action=pause&type=running&activity=abc",
           "brevant:///widget?type=Running&action=pause&activity=abc",
           "brevant:///widget?type=running&action=resume&activity=abc",
           "brevant:///widget?type=running&action=pause&Activity=abc",
           "brevant:///widget?type=running&action=pause&activity=abc&x=1",
           "brevant:///widget?type=running&action=pause&activity=abc#top",
           "brevant:///widget?type=running&action=pause&activity=abc ",
           "brevant:///widget?type=running&action=pause&activity=a%2",
           "brevant:///widget?type=running&action=pause&activity=\xC3\xA9",
       }) {
    EXPECT_EQ(DeepLink::parse(url), std::nullopt) << url;
  }
  const std::string url = "brevant:///widget?type=running&action=pause&activity=abc";
  EXPECT_EQ(DeepLink::parse(url + std::string(1, '\0')), std::nullopt);
}

// A guid that could not be read back may still make a URL: then the link is not this side's fault.
TEST(DeepLinkDeathTest, IsFatalOnlyWhereItIsNoUrl) {
  for (const std::string guid : {"", "a&b=c", "a#b", "#"}) {
    EXPECT_TRUE((DeepLink{kRunning, kStop, guid}.url().ends_with("&activity=" + guid)));
  }
  for (const std::string guid : {"a b", "a\tb", "\"a\"", "<a>", "a\\b", "a^b", "`", "{a}", "a|b",
                                 "[a]", "\xC3\xA9", "%", "%4", "%4g", "a#b#c", "a#%"}) {
    EXPECT_DEATH((DeepLink{kRunning, kStop, guid}.url()), "^Fatal error: .*deep link\n$") << guid;
  }
}

}  // namespace
}  // namespace brevant
