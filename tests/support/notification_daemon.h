// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <sdbus-c++/sdbus-c++.h>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace brevant::test {

// What a desktop's notification daemon does, under the test's control. Lives on the session's bus,
// whose address is in the environment.
class NotificationDaemon {
 public:
  explicit NotificationDaemon(std::vector<std::string> abilities)
      : abilities_(std::move(abilities)) {
    object_->registerMethod("GetServerInformation").onInterface(kName).implementedAs([] {
      return std::tuple<std::string, std::string, std::string, std::string>("Test", "", "1", "1.2");
    });
    object_->registerMethod("GetCapabilities").onInterface(kName).implementedAs([this] {
      failWhereTold("GetCapabilities");
      return abilities_;
    });
    object_->registerMethod("Notify").onInterface(kName).implementedAs(
        [this](const std::string&, std::uint32_t, const std::string&, const std::string& title,
               const std::string& body, const std::vector<std::string>& actions,
               const std::map<std::string, sdbus::Variant>& hints, std::int32_t) {
          failWhereTold("Notify");
          const std::lock_guard lock(mutex_);
          shown_ = {title, body};
          shown_.insert(shown_.end(), actions.begin(), actions.end());
          for (const auto& hint : hints) shown_.push_back(hint.first);
          changed_.notify_all();
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

  // The method answers with this error from now on; none when it is empty.
  void fail(const std::string& method, const std::string& error) {
    const std::lock_guard lock(mutex_);
    errors_[method] = error;
  }

  std::vector<std::string> shown() {
    const std::lock_guard lock(mutex_);
    return shown_;
  }

  // Waits until something was shown.
  std::vector<std::string> waitUntilShown() {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, std::chrono::seconds(30), [this] { return !shown_.empty(); });
    return shown_;
  }

 private:
  void failWhereTold(const std::string& method) {
    const std::lock_guard lock(mutex_);
    if (!errors_[method].empty()) throw sdbus::Error(errors_[method], "as told");
  }

  static constexpr const char* kName = "org.freedesktop.Notifications";

  const std::vector<std::string> abilities_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> shown_;
  std::map<std::string, std::string> errors_;
  std::unique_ptr<sdbus::IConnection> connection_ = sdbus::createSessionBusConnection();
  std::unique_ptr<sdbus::IObject> object_ =
      sdbus::createObject(*connection_, "/org/freedesktop/Notifications");
};

}  // namespace brevant::test
