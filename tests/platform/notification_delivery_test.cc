// SPDX-License-Identifier: MIT
#include "platform/linux/notification_delivery.h"

#include <atomic>
#include <condition_variable>
#include <csignal>
#include <gmock/gmock.h>
#include <mutex>
#include <pthread.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

#include "platform/linux/calendar.h"
#include "platform/linux/clock.h"
#include "platform/linux/notification_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/processes.h"
#include "tests/support/replaced_services.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/time_zone.h"

namespace brevant {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using State = Delivery::State;

// Remembers what it showed; may be used by another thread than the test's.
class FakeService : public NotificationService {
 public:
  std::optional<std::string> name() override { return "fake"; }
  bool show(const NotificationContent& content,
            const std::vector<NotificationButton>& buttons) override {
    const std::lock_guard lock(mutex_);
    if (isAway_) return false;
    shown_.push_back(content.title + (buttons.empty() ? "" : "+" + buttons.at(0).operation));
    changed_.notify_all();
    return true;
  }
  int descriptor() const override { return wakeup_; }
  void handlePressed(const Pressed& pressed) override {
    std::uint64_t count = 0;
    if (read(wakeup_, &count, sizeof count) > 0) pressed("stop");
  }

  void goAway(bool isAway) {
    const std::lock_guard lock(mutex_);
    isAway_ = isAway;
  }
  void press() const { EXPECT_EQ(eventfd_write(wakeup_, 1), 0); }
  std::vector<std::string> shown() {
    const std::lock_guard lock(mutex_);
    return shown_;
  }
  void waitFor(std::size_t count) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return shown_.size() >= count; });
  }

 private:
  const int wakeup_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> shown_;
  bool isAway_ = false;
};

class NotificationDeliveryTest : public testing::Test {
 protected:
  NotificationDeliveryTest() { fakes.files.container = folder.path; }

  // Due that many seconds after `from` by the local time of the zone.
  void add(const std::string& title, double seconds, UserNotificationCenter& center, Date from) {
    const DateComponents at = makeCalendar()->components(from + Seconds(seconds));
    center.add({title, {title, "", {}, ""}, {at, false}}, [](const auto&) {});
  }
  void add(const std::string& title, double seconds) {
    add(title, seconds, fakes.notifications, fakes.clock.time);
  }
  Delivery deliver() { return deliverDueNotifications(fakes.platform(), service); }
  std::vector<std::string> pending() const {
    std::vector<std::string> result;
    for (const auto& each : fakes.notifications.pending) result.push_back(each.identifier);
    return result;
  }

  const test::TimeZone zone{"Asia/Kolkata"};
  const test::TemporaryFolder folder;
  test::FakePlatform fakes;
  FakeService service;
};

TEST_F(NotificationDeliveryTest, ShowsWhatIsDueInItsOrderAndDropsIt) {
  add("later", 1);
  add("second", 0);
  add("first", -3600);
  add("too late", -3601);
  EXPECT_EQ(deliver().state, State::kDone);
  EXPECT_THAT(service.shown(), ElementsAre("first", "second"));
  EXPECT_THAT(pending(), ElementsAre("later"));
  EXPECT_THAT(fakes.log.lines, ElementsAre(HasSubstr("too late")));
}

TEST_F(NotificationDeliveryTest, FollowsTheZoneOfTheMoment) {
  add("at noon", 600);
  const test::TimeZone moved("Asia/Karachi");  // half an hour behind
  EXPECT_EQ(deliver().state, State::kDone);
  EXPECT_THAT(service.shown(), IsEmpty());
  const test::TimeZone back("Asia/Yangon");  // an hour ahead
  EXPECT_EQ(deliver().state, State::kDone);
  EXPECT_THAT(service.shown(), ElementsAre("at noon"));
}

// Times are minutes after the clocks' change; what is due at the end of an hour is late by then.
TEST_F(NotificationDeliveryTest, ShowsNothingForAnInstantBeforeItWasAdded) {
  constexpr double kBerlin = 1'729'990'800, kLordHowe = 1'712'415'600;
  constexpr int kNever = 100;
  const struct {
    const char* zone;
    double change;
    int added;
    std::vector<int> meant;
    bool isMeantKnown;
    std::vector<int> shown;
  } cases[] = {
      {"Europe/Berlin", kBerlin, -70, {-30}, false, {-30}},
      {"Europe/Berlin", kBerlin, -50, {10}, false, {10}},
      {"Europe/Berlin", kBerlin, -70, {30}, true, {30}},
      {"Europe/Berlin", kBerlin, -50, {30, -30}, true, {-30, 30}},
      {"Europe/Berlin", kBerlin, 10, {5, 70}, false, {70}},
      {"Australia/Lord_Howe", kLordHowe, -20, {10}, false, {10}},
      {"Australia/Lord_Howe", kLordHowe, -40, {20, -10}, true, {-10, 20}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.zone) + ' ' + std::to_string(&each - cases));
    const test::TimeZone here(each.zone);
    const auto instant = [&](int minute) { return dateFromSeconds(each.change + minute * 60); };
    for (const int meant : each.meant) {
      CalendarTrigger trigger{makeCalendar()->components(instant(meant)), false};
      if (each.isMeantKnown) trigger.instant = instant(meant) + Seconds(0.5);
      fakes.notifications.pending.push_back(
          {std::to_string(meant), {}, trigger, instant(each.added)});
    }
    std::vector<int> shown;
    for (int minute = each.added; minute < kNever; ++minute) {
      fakes.clock.time = instant(minute);
      const std::size_t before = service.shown().size();
      deliver();
      if (service.shown().size() > before) shown.push_back(minute);
    }
    EXPECT_EQ(shown, each.shown);
    EXPECT_THAT(pending(), IsEmpty());
  }
}

TEST_F(NotificationDeliveryTest, WaitsAnHourForTheService) {
  add("a", 0);
  service.goAway(true);
  EXPECT_EQ(deliver().state, State::kNoService);
  fakes.clock.time += Seconds(3600);
  EXPECT_EQ(deliver().state, State::kNoService);
  EXPECT_THAT(pending(), ElementsAre("a"));
  fakes.clock.time += Seconds(1);
  EXPECT_EQ(deliver().state, State::kDone);
  EXPECT_THAT(pending(), IsEmpty());
}

TEST_F(NotificationDeliveryTest, HasButtonsWhenSomebodyHearsThem) {
  add("a", 0);
  add("b", 0);
  bool runs = true;
  const NotificationActions actions{[&] {
    return std::exchange(runs, false)
               ? std::vector<NotificationButton>{{"stop", "Stop"}, {"pause", "Pause"}}
               : std::vector<NotificationButton>();
  }};
  EXPECT_EQ(deliverDueNotifications(fakes.platform(), service, actions), Delivery());
  EXPECT_THAT(service.shown(), ElementsAre("a+stop", "b"));
}

TEST_F(NotificationDeliveryTest, FailsWithoutAContainerForWhatIsPending) {
  fakes.files.container = folder.path / "new";
  EXPECT_EQ(deliver().state, State::kDone);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path));
  add("a", 0);
  fakes.files.container.reset();
  EXPECT_EQ(deliver().state, State::kFailed);
  fakes.files.container = folder.write("file", "");
  EXPECT_EQ(deliver().state, State::kFailed);
  EXPECT_FALSE(watchNotifications(fakes.platform(), service, {}));
}

// Real files, clock and signals.
class NotificationWatchTest : public NotificationDeliveryTest {
 protected:
  Platform platform() {
    return {*clock,       fakes.calendar,    fakes.files,          fakes.settings, fakes.bundle,
            fakes.images, fakes.caseMapping, fakes.coder,          fakes.process,  fakes.random,
            fakes.cloud,  *center,           fakes.liveActivities, fakes.tasks,    fakes.log};
  }

  const std::unique_ptr<Clock> clock = makeClock(std::nullopt);
  std::vector<NotificationRequest> left() {
    std::vector<NotificationRequest> result;
    center->pendingRequests([&](const auto& pending) { result = pending; }, [](const auto&) {});
    return result;
  }

  // What is added was added long ago.
  const std::unique_ptr<UserNotificationCenter> center =
      makeNotificationStore(folder.path, fakes.clock);
};

TEST_F(NotificationWatchTest, ShowsNewRequestsInTimeAndEndsOnSignals) {
  std::size_t count = 0;
  for (const int signal : {SIGTERM, SIGINT}) {
    std::atomic<int> pressed = 0;
    std::atomic<bool> ended = false;
    add("overdue", -60, *center, clock->now());
    std::thread watch([&] {
      ended = watchNotifications(platform(), service,
                                 {.perform = [&](const std::string&) { ++pressed; }});
    });
    service.waitFor(++count);
    add("due", 0, *center, clock->now());
    service.waitFor(++count);
    add("soon", 1, *center, clock->now());
    service.waitFor(++count);
    service.press();
    while (pressed == 0) std::this_thread::yield();
    pthread_kill(watch.native_handle(), signal);
    watch.join();
    EXPECT_TRUE(ended);
  }
  EXPECT_THAT(service.shown(), ElementsAre("overdue", "due", "soon", "overdue", "due", "soon"));
  EXPECT_THAT(left(), IsEmpty());
}

// A store that cannot be written for a while.
struct FullCenter : test::FakeNotificationCenter {
  void removePendingRequests(const std::vector<std::string>& identifiers) override {
    isFull = !identifiers.empty() && --failures >= 0;
    if (!isFull) center->removePendingRequests(identifiers);
  }
  void pendingRequests(Handler handler, Completion done) override {
    isFull = false;
    const auto tell = [&](const auto& outcome) { done(isFull ? notSaved("full") : outcome); };
    center->pendingRequests(std::move(handler), tell);
  }

  UserNotificationCenter* center = nullptr;
  std::atomic<int> failures = 2;
  bool isFull = false;
};

TEST_F(NotificationWatchTest, ShowsOnceWhatCannotBeDroppedAtOnce) {
  FullCenter full;
  full.center = center.get();
  add("a", -60, *center, clock->now());
  std::thread watch([&] {
    const Platform limited = test::replaced(platform(), {.notifications = &full});
    EXPECT_TRUE(watchNotifications(limited, service, {}));
  });
  service.waitFor(1);
  while (full.failures > 1) std::this_thread::yield();
  add("b", -60, *center, clock->now());
  service.waitFor(2);
  while (!left().empty()) std::this_thread::yield();
  pthread_kill(watch.native_handle(), SIGTERM);
  watch.join();
  EXPECT_THAT(service.shown(), ElementsAre("a", "b"));
  EXPECT_THAT(fakes.log.lines, ElementsAre(HasSubstr("full")));
}

// Notes what it shows at the end of a file that processes share.
struct NotingService : FakeService {
  bool show(const NotificationContent& content, const std::vector<NotificationButton>&) override {
    std::ofstream(file, std::ios::app) << content.title << std::endl;
    return true;
  }
  std::filesystem::path file;
};

TEST_F(NotificationWatchTest, ShowsNothingTwiceBetweenTwoProcesses) {
  for (int i = 0; i < 200; ++i) add(std::to_string(i), -i, *center, clock->now());
  EXPECT_TRUE(test::runTogether(2, [this](int) {
    NotingService noting;
    noting.file = folder.path / "shown";
    while (deliverDueNotifications(platform(), noting).state == State::kFailed) {
    }
  }));
  std::istringstream lines(folder.read("shown"));
  const std::vector<std::string> shown{std::istream_iterator<std::string>(lines), {}};
  EXPECT_EQ(shown.size(), 200);
  EXPECT_EQ(std::set<std::string>(shown.begin(), shown.end()).size(), 200);
}

}  // namespace
}  // namespace brevant
