// SPDX-License-Identifier: MIT
#include "desktop/live_fetch.h"

#include <QJsonArray>
#include <QJsonObject>
#include <memory>
#include <utility>

#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

using Outcome = Answer::Outcome;

// Asks for one presentation after the other, so that an answer is whole or not given. The questions
// under way keep it alive.
class Presentations : public std::enable_shared_from_this<Presentations> {
 public:
  Presentations(BrevantClient& client, QObject* receiver, BrevantClient::Done done)
      : client_(client), receiver_(receiver), done_(std::move(done)) {}

  void start() {
    client_.ask({u"live"_s, u"list"_s}, receiver_,
                [self = shared_from_this()](const Answer& answer) { self->takeList(answer); });
  }

 private:
  void takeList(const Answer& answer) {
    if (answer.outcome != Outcome::kDone) return done_(answer);
    if (!answer.value.isArray())
      return done_(
          {Outcome::kFailed, {}, translate("brevant answered something that cannot be used")});
    for (const QJsonValue& activity : answer.value.toArray())
      if (ids_.size() < kMostLiveActivities) ids_ << activity[u"id"_s].toString();
    askNext();
  }

  void askNext() {
    if (ids_.isEmpty()) return done_({Outcome::kDone, shown_, {}});
    client_.ask(
        {u"live"_s, u"show"_s, ids_.takeFirst()}, receiver_,
        [self = shared_from_this()](const Answer& answer) { self->takePresentation(answer); });
  }

  // One that was not found has ended since it was listed.
  void takePresentation(const Answer& answer) {
    if (answer.outcome == Outcome::kFailed) return done_(answer);
    if (answer.outcome == Outcome::kDone) shown_ << answer.value;
    askNext();
  }

  BrevantClient& client_;
  QObject* receiver_;  // alive whenever an answer comes
  BrevantClient::Done done_;
  QStringList ids_;
  QJsonArray shown_;
};

}  // namespace

Feed::Fetch liveActivitiesFetch(BrevantClient& client) {
  return [&client](QObject* receiver, BrevantClient::Done done) {
    std::make_shared<Presentations>(client, receiver, std::move(done))->start();
  };
}

}  // namespace brevant
