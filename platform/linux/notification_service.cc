// SPDX-License-Identifier: MIT
#include "platform/linux/notification_service.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <map>
#include <sdbus-c++/sdbus-c++.h>
#include <set>
#include <utility>

namespace brevant {
namespace {

constexpr const char* kName = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr const char* kApplication = "Brevant";
constexpr const char* kIcon = "brevant";
constexpr const char* kDesktopEntry = "org.brevant.Desktop";
constexpr std::int32_t kExpiresAsTheServiceLikes = -1;
constexpr std::chrono::seconds kTimeout{5};

std::string withoutMarkup(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&')
      escaped += "&amp;";
    else if (c == '<')
      escaped += "&lt;";
    else if (c == '>')
      escaped += "&gt;";
    else
      escaped += c;
  }
  return escaped;
}

std::map<std::string, sdbus::Variant> hints(const NotificationContent& content) {
  std::map<std::string, sdbus::Variant> result;
  result.emplace("desktop-entry", sdbus::Variant(std::string(kDesktopEntry)));
  if (content.sound.empty())
    result.emplace("suppress-sound", sdbus::Variant(true));
  else
    result.emplace("sound-name", sdbus::Variant(std::string("message-new-instant")));
  return result;
}

// The connection's own failures are named after the system's.
bool isGone(const std::string& error) {
  const std::set<std::string> gone{
      "org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.NameHasNoOwner",
      "org.freedesktop.DBus.Error.Disconnected", "org.freedesktop.DBus.Error.NoServer"};
  return gone.contains(error) || error.starts_with("System.Error.");
}

// The call was sent, and nobody knows what became of it.
bool isUnanswered(const std::string& error) {
  const std::set<std::string> unanswered{"org.freedesktop.DBus.Error.NoReply",
                                         "org.freedesktop.DBus.Error.Timeout",
                                         "org.freedesktop.DBus.Error.TimedOut"};
  return unanswered.contains(error);
}

class DesktopNotifications : public NotificationService {
 public:
  std::optional<std::string> name() override {
    std::string name, vendor, version, protocol;
    const Outcome outcome = tried(
        [&] { call("GetServerInformation").storeResultsTo(name, vendor, version, protocol); });
    return outcome == Outcome::kDone ? std::optional(name) : std::nullopt;
  }

  bool show(const NotificationContent& content,
            const std::vector<NotificationButton>& buttons) override {
    // One that does not tell what it can do is there all the same.
    std::vector<std::string> abilities;
    const Outcome told = tried([&] { call("GetCapabilities").storeResultsTo(abilities); });
    if (told == Outcome::kNobody) return false;
    const auto can = [&](const char* ability) {
      return std::find(abilities.begin(), abilities.end(), ability) != abilities.end();
    };
    std::vector<std::string> actions;
    for (const NotificationButton& each : buttons) {
      if (can("actions")) actions.insert(actions.end(), {each.operation, each.title});
    }
    const std::string body = can("body-markup") ? withoutMarkup(content.body) : content.body;
    const Outcome outcome = tried([&] {
      std::uint32_t id = 0;
      call("Notify")
          .withArguments(kApplication, std::uint32_t{0}, kIcon, content.title, body, actions,
                         hints(content), kExpiresAsTheServiceLikes)
          .storeResultsTo(id);
      shown_.insert(id);
    });
    // A service that is too slow to answer shows it nevertheless: sent again it would be shown
    // twice.
    return outcome == Outcome::kDone || outcome == Outcome::kUnanswered;
  }

  int descriptor() const override {
    return connection_ ? connection_->getEventLoopPollData().fd : -1;
  }

  void handlePressed(const Pressed& pressed) override {
    try {
      while (connection_ && connection_->processPendingRequest()) {
      }
    } catch (const sdbus::Error&) {
      disconnect();
    }
    for (const std::string& operation : std::exchange(pressed_, {})) pressed(operation);
  }

 private:
  enum class Outcome { kDone, kRefused, kUnanswered, kNobody };

  // What became of a call. Where nobody is there the next one connects anew: the bus may have been
  // replaced.
  template <typename Call>
  Outcome tried(const Call& call) {
    if (!connected()) return Outcome::kNobody;
    try {
      call();
      return Outcome::kDone;
    } catch (const sdbus::Error& error) {
      if (isUnanswered(error.getName())) return Outcome::kUnanswered;
      if (!isGone(error.getName())) return Outcome::kRefused;
      disconnect();
      return Outcome::kNobody;
    }
  }

  bool connected() {
    try {
      if (!connection_) connect();
      return true;
    } catch (const sdbus::Error&) {
      disconnect();
      return false;
    }
  }

  void disconnect() {
    proxy_.reset();
    connection_.reset();
    shown_.clear();
  }

  void connect() {
    connection_ = sdbus::createSessionBusConnection();
    proxy_ = sdbus::createProxy(*connection_, kName, kPath);
    proxy_->uponSignal("ActionInvoked")
        .onInterface(kName)
        .call([this](std::uint32_t id, const std::string& operation) {
          if (shown_.contains(id)) pressed_.push_back(operation);
        });
    proxy_->uponSignal("NotificationClosed")
        .onInterface(kName)
        .call([this](std::uint32_t id, std::uint32_t) { shown_.erase(id); });
    proxy_->finishRegistration();
  }

  // The text must live as long as the call.
  sdbus::MethodInvoker call(const std::string& method) {
    sdbus::MethodInvoker invoker = proxy_->callMethod(method);
    invoker.onInterface(kName).withTimeout(kTimeout);
    return invoker;
  }

  std::unique_ptr<sdbus::IConnection> connection_;
  std::unique_ptr<sdbus::IProxy> proxy_;
  std::set<std::uint32_t> shown_;  // the notifications of ours that are on show
  std::vector<std::string> pressed_;
};

}  // namespace

std::unique_ptr<NotificationService> makeNotificationService() {
  return std::make_unique<DesktopNotifications>();
}

}  // namespace brevant
