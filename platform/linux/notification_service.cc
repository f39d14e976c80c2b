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
  result.emplace("desktop-entry", sdbus::Variant(std::string(kIcon)));
  if (content.sound.empty())
    result.emplace("suppress-sound", sdbus::Variant(true));
  else
    result.emplace("sound-name", sdbus::Variant(std::string("message-new-instant")));
  return result;
}

class DesktopNotifications : public NotificationService {
 public:
  std::optional<std::string> name() override {
    std::string name, vendor, version, protocol;
    const bool answered = tried(
        [&] { call("GetServerInformation").storeResultsTo(name, vendor, version, protocol); });
    return answered ? std::optional(name) : std::nullopt;
  }

  bool show(const NotificationContent& content,
            const std::vector<NotificationButton>& buttons) override {
    std::uint32_t id = 0;
    const bool shown = tried([&] {
      std::vector<std::string> abilities;
      call("GetCapabilities").storeResultsTo(abilities);
      const auto can = [&](const char* ability) {
        return std::find(abilities.begin(), abilities.end(), ability) != abilities.end();
      };
      std::vector<std::string> actions;
      for (const NotificationButton& each : buttons) {
        if (can("actions")) actions.insert(actions.end(), {each.operation, each.title});
      }
      const std::string body = can("body-markup") ? withoutMarkup(content.body) : content.body;
      call("Notify")
          .withArguments(kApplication, std::uint32_t{0}, kIcon, content.title, body, actions,
                         hints(content), kExpiresAsTheServiceLikes)
          .storeResultsTo(id);
    });
    if (shown) shown_.insert(id);
    return shown;
  }

  int descriptor() const override {
    return connection_ ? connection_->getEventLoopPollData().fd : -1;
  }

  void handlePressed(const Pressed& pressed) override {
    if (connection_) {
      tried([&] {
        while (connection_->processPendingRequest()) {
        }
      });
    }
    for (const std::string& operation : std::exchange(pressed_, {})) pressed(operation);
  }

 private:
  // Whether the service did what is asked of it in `work`. After a failure the next call connects
  // anew: the bus or the service may have been replaced.
  template <typename Work>
  bool tried(const Work& work) {
    try {
      if (!connection_) connect();
      work();
      return true;
    } catch (const sdbus::Error&) {
      proxy_.reset();
      connection_.reset();
      shown_.clear();
      return false;
    }
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
