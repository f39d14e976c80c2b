// SPDX-License-Identifier: MIT
#include "platform/linux/notification_service.h"

#include <gmock/gmock.h>
#include <poll.h>
#include <thread>

#include "tests/support/child_program.h"
#include "tests/support/notification_daemon.h"

namespace brevant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const NotificationContent kContent{"Remind", "A & <B>", {}, "default"};
const std::vector<NotificationButton> kButtons{{"stop", "Stop"}, {"pause", "Pause"}};

// A session bus of the test's own.
class NotificationServiceTest : public testing::Test {
 protected:
  NotificationServiceTest() { setenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().c_str(), 1); }
  ~NotificationServiceTest() override { unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

  // Waits for the bus to tell of pressed buttons.
  std::vector<std::string> pressed() {
    std::vector<std::string> result;
    while (result.empty() && service->descriptor() >= 0) {
      pollfd wait{service->descriptor(), POLLIN, 0};
      if (poll(&wait, 1, 10'000) <= 0) break;
      service->handlePressed([&](const std::string& operation) { result.push_back(operation); });
    }
    return result;
  }

  test::ChildProgram bus{{"dbus-daemon", "--session", "--nofork", "--print-address=1"}};
  const std::unique_ptr<NotificationService> service = makeNotificationService();
};

TEST_F(NotificationServiceTest, ShowsTextAndButtonsAsTheServiceCan) {
  test::NotificationDaemon daemon({"actions", "body", "body-markup"});
  EXPECT_TRUE(service->show(kContent, kButtons));
  EXPECT_THAT(daemon.shown(), ElementsAre("Remind", "A &amp; &lt;B&gt;", "stop", "Stop", "pause",
                                          "Pause", "desktop-entry", "sound-name"));
  daemon.press(8, "pause");  // somebody else's notification
  daemon.press(7, "stop");
  EXPECT_THAT(pressed(), ElementsAre("stop"));
}

TEST_F(NotificationServiceTest, SparesAPlainServiceMarkupAndButtons) {
  test::NotificationDaemon daemon({"body"});
  EXPECT_TRUE(service->show({"Remind", "A & <B>", {}, ""}, kButtons));
  EXPECT_THAT(daemon.shown(), ElementsAre("Remind", "A & <B>", "desktop-entry", "suppress-sound"));
}

TEST_F(NotificationServiceTest, AsksNoMoreOfAServiceThanItAnswers) {
  const std::string dbus = "org.freedesktop.DBus.Error.";
  const struct {
    std::string capabilities, notify;  // errors
    bool isShown;
  } cases[] = {{dbus + "UnknownMethod", "", true},
               {"", dbus + "NoReply", true},  // sent again, it might be shown again
               {"", dbus + "Timeout", true},
               {"", dbus + "LimitsExceeded", false}};
  for (const auto& [capabilities, notify, isShown] : cases) {
    SCOPED_TRACE(capabilities + notify);
    test::NotificationDaemon daemon({"actions"});
    EXPECT_TRUE(service->show(kContent, kButtons));
    daemon.fail("GetCapabilities", capabilities);
    daemon.fail("Notify", notify);
    EXPECT_EQ(service->show(kContent, kButtons), isShown);
    daemon.press(7, "stop");  // on the first one, which is still there
    EXPECT_THAT(pressed(), ElementsAre("stop"));
  }
}

TEST_F(NotificationServiceTest, SurvivesTheServiceAndTheBusComingAndGoing) {
  EXPECT_EQ(service->name(), std::nullopt);
  EXPECT_FALSE(service->show(kContent, {}));
  for (int i = 0; i < 2; ++i) {
    const test::NotificationDaemon daemon({});
    EXPECT_EQ(service->name(), "Test");
    EXPECT_TRUE(service->show(kContent, {}));
  }
  EXPECT_FALSE(service->show(kContent, {}));
  {
    const test::NotificationDaemon daemon({});
    EXPECT_TRUE(service->show(kContent, {}));
  }
  bus.end();
  EXPECT_THAT(pressed(), IsEmpty());
  EXPECT_FALSE(service->show(kContent, {}));
  EXPECT_EQ(service->descriptor(), -1);
}

TEST_F(NotificationServiceTest, ShowsOnARealDesktopDaemon) {
  test::ChildProgram screen({"Xvfb", "-displayfd", "1", "-nolisten", "tcp"});
  const std::string display = screen.readLine();
  if (display.empty()) GTEST_SKIP() << "needs Xvfb";
  setenv("DISPLAY", (":" + display).c_str(), 1);
  test::ChildProgram daemon({"dunst", "-config", "/dev/null"});
  for (int i = 0; i < 100 && !service->name(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  ASSERT_EQ(service->name(), "dunst");
  EXPECT_TRUE(service->show(kContent, kButtons));
  EXPECT_EQ(test::ChildProgram({"dunstctl", "count", "displayed"}).readLine(), "1");
  test::ChildProgram({"dunstctl", "close-all"}).readAll();
  const std::string history = test::ChildProgram({"dunstctl", "history"}).readAll();
  EXPECT_THAT(history, HasSubstr("\"Remind\""));
  EXPECT_THAT(history, HasSubstr("\"A & <B>\""));
}

}  // namespace
}  // namespace brevant
