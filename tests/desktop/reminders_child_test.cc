// SPDX-License-Identifier: MIT
#include "desktop/reminders_child.h"

#include <QFile>
#include <csignal>
#include <gmock/gmock.h>

#include "fake_brevant.h"

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

TEST(RemindersChild, IsStartedAgainHoweverItEnds) {
  FakeBrevant fake;
  for (const char* end : {"exit 0", "exit 1", "kill -SEGV $$"}) {
    const auto before = fake.calls(u"reminders deliver"_s).size();
    fake.misbehave(end);
    const RemindersChild child(fake.options().client, RetryPauses(5ms, 10ms));
    EXPECT_TRUE(waitUntil([&] { return fake.calls(u"reminders deliver"_s).size() > before + 2; }))
        << end;
  }
}

TEST(RemindersChild, EndsWithItsOwner) {
  FakeBrevant fake;
  const QString pidFile = fake.container() + u"/pid"_s;
  fake.misbehave("echo $$ > container/pid.new; mv container/pid.new container/pid; exec sleep 60");
  auto child = std::make_unique<RemindersChild>(fake.options().client, RetryPauses(5ms, 10ms));
  ASSERT_TRUE(waitUntil([&] { return QFile::exists(pidFile); }));
  QFile file(pidFile);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const int pid = file.readAll().trimmed().toInt();
  ASSERT_EQ(::kill(pid, 0), 0);
  child.reset();
  EXPECT_EQ(::kill(pid, 0), -1);
}

}  // namespace
}  // namespace brevant
