#include "platform/linux/notification_service.h"

#include <gmock/gmock.h>
#include <mutex>
#include <poll.h>
#include <sdbus-c++/sdbus-c++.h>
#include <thread>

#include "tests/support/child_program.h"

namespace brevant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* kName = "org.freedesktop.Notifications";
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

// What a desktop's notification daemon does, under the test's control.
class Daemon {
 public:
  explicit Daemon(std::vector<std::string> abilities) : abilities_(std::move(abilities)) {
    object_->registerMethod("GetServerInformation").onInterface(kName).implementedAs([] {
      return std::tuple<std::string, std::string, std::string, std::string>("Test", "", "1", "1.2");
    });
    object_->registerMethod("GetCapabilities").onInterface(kName).implementedAs([this] {
      return abilities_;
    });
    object_->registerMethod("Notify").onInterface(kName).implementedAs(
        [this](const std::string&, std::uint32_t, const std::string&, const std::string& title,
               const std::string& body, const std::vector<std::string>& actions,
               const std::map<std::string, sdbus::Variant>& hints, std::int32_t) {
          const std::lock_guard lock(mutex_);
          shown_ = {title, body};
          shown_.insert(shown_.end(), actions.begin(), actions.end());
          for (const auto& hint : hints) shown_.push_back(hint.first);
          return std::uint32_t{7};
        });
    object_->registerSignal("ActionInvoked")
        .onInterface(kName)
        .withParameters<std::uint32_t, std::string>();
    object_->finishRegistration();
    connection_->requestName(kName);
    connection_->enterEventLoopAsync();
  }

  void press(std::uint32_t id, const std::string& operation) {
    object_->emitSignal("ActionInvoked").onInterface(kName).withArguments(id, operation);
  }

  std::vector<std::string> shown() {
    const std::lock_guard lock(mutex_);
    return shown_;
  }

 private:
  const std::vector<std::string> abilities_;
  std::mutex mutex_;
  std::vector<std::string> shown_;
  std::unique_ptr<sdbus::IConnection> connection_ = sdbus::createSessionBusConnection();
  std::unique_ptr<sdbus::IObject> object_ =
      sdbus::createObject(*connection_, "/org/freedesktop/Notifications");
};

TEST_F(NotificationServiceTest, ShowsTextAndButtonsAsTheServiceCan) {
  Daemon daemon({"actions", "body", "body-markup"});
  EXPECT_TRUE(service->show(kContent, kButtons));
  EXPECT_THAT(daemon.shown(), ElementsAre("Remind", "A &amp; &lt;B&gt;", "stop", "Stop", "pause",
                                          "Pause", "desktop-entry", "sound-name"));
  daemon.press(8, "pause");  // somebody else's notification
  daemon.press(7, "stop");
  EXPECT_THAT(pressed(), ElementsAre("stop"));
}

TEST_F(NotificationServiceTest, SparesAPlainServiceMarkupAndButtons) {
  Daemon daemon({"body"});
  EXPECT_TRUE(service->show({"Remind", "A & <B>", {}, ""}, kButtons));
  EXPECT_THAT(daemon.shown(), ElementsAre("Remind", "A & <B>", "desktop-entry", "suppress-sound"));
}

TEST_F(NotificationServiceTest, SurvivesTheServiceAndTheBusComingAndGoing) {
  EXPECT_EQ(service->name(), std::nullopt);
  EXPECT_FALSE(service->show(kContent, {}));
  for (int i = 0; i < 2; ++i) {
    const Daemon daemon({});
    EXPECT_EQ(service->name(), "Test");
    EXPECT_TRUE(service->show(kContent, {}));
  }
  EXPECT_FALSE(service->show(kContent, {}));
  {
    const Daemon daemon({});
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
