// SPDX-License-Identifier: MIT
#include "desktop/single_instance.h"

#include <csignal>
#include <gmock/gmock.h>
#include <unistd.h>

#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(SingleInstance, LetsTheFirstHearTheSecond) {
  auto first = SingleInstance::claim(u"/a"_s);
  ASSERT_TRUE(first);
  QByteArray heard;
  QObject::connect(first.get(), &SingleInstance::told,
                   [&](const QByteArray& word) { heard = word; });
  EXPECT_FALSE(SingleInstance::claim(u"/a/"_s));
  EXPECT_TRUE(SingleInstance::tell(u"/x/../a"_s, "show"));
  EXPECT_TRUE(waitUntil([&] { return heard == "show"; }));

  EXPECT_TRUE(SingleInstance::claim(u"/b"_s)) << "another container is another matter";
  first.reset();
  EXPECT_FALSE(SingleInstance::tell(u"/a"_s, "show"));
  EXPECT_TRUE(SingleInstance::claim(u"/a"_s));
}

// What a killed host leaves behind must not keep the next one out.
TEST(SingleInstance, OutlivesADeadPredecessor) {
  const pid_t child = ::fork();
  if (child == 0) {
    const auto claimed = SingleInstance::claim(u"/killed"_s);
    ::kill(::getpid(), SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_FALSE(SingleInstance::tell(u"/killed"_s, "show"));
  const auto next = SingleInstance::claim(u"/killed"_s);
  ASSERT_TRUE(next);
  EXPECT_TRUE(SingleInstance::tell(u"/killed"_s, "show"));
}

}  // namespace
}  // namespace brevant
