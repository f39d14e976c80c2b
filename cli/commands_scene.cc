// SPDX-License-Identifier: MIT
#include <cstdio>
#include <set>
#include <sstream>

#include "cli/commands.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/json_container.h"
#include "cli/part.h"
#include "cli/values.h"
#include "cli/words.h"
#include "platform/clock.h"
#include "platform/live_activities.h"
#include "platform/process_info.h"

namespace brevant {
namespace {

// Asks for one part after the other, all at the same moment.
class Scene {
 public:
  explicit Scene(Context& context) : context_(context), options_(context.options) {
    options_.now = secondsSince1970(context.platform.clock.now());
  }

  std::string json() {
    std::string text = "{\"now\":" + exactText(*options_.now);
    text += ",\"status\":" + part({"status"});
    text += ",\"timeline\":" + part({"timeline"});
    text += ",\"live\":" + live();
    text += ",\"categories\":" + part({"categories"});
    return text + "}\n";
  }

 private:
  std::string part(const std::vector<std::string>& command) {
    std::vector<std::string> words = globalWords(options_, context_.container);
    words.emplace_back("--json");
    words.insert(words.end(), command.begin(), command.end());
    const PartAnswer part = answerApart(words);
    if (!part.error.empty()) return errorJson(part.error);
    passOn(part.said);
    return part.answer;
  }

  // One that cannot be shown leaves the others whole.
  std::string live() {
    const bool areOffered = context_.platform.process.systemVersion() >= kLiveActivities;
    if (!areOffered || missingContainer(context_.platform.files)) return "[]";
    const LiveActivityList list = context_.platform.liveActivities.activities();
    if (const auto* error = std::get_if<LiveActivityError>(&list)) return errorJson(error->message);
    std::string text;
    for (const LiveActivity& activity : std::get<std::vector<LiveActivity>>(list)) {
      text += (text.empty() ? "" : ",") + part({"live", "show", "--", activity.id});
    }
    return '[' + text + ']';
  }

  // What several parts say, once.
  void passOn(const std::string& said) {
    std::istringstream lines(said);
    for (std::string line; std::getline(lines, line);) {
      if (said_.insert(line).second) std::fprintf(stderr, "%s\n", line.c_str());
    }
  }

  Context& context_;
  GlobalOptions options_;  // with the moment
  std::set<std::string> said_;
};

ExitCode printScene(Context& context) {
  keepEnglish();  // a part that cannot be shown says why in the answer
  context.print(Scene(context).json());
  return ExitCode::kDone;
}

}  // namespace

void addSceneCommand(CommandLine& line) {
  line.command("scene", "Tell a host everything that it shows, of one moment", "brevant scene")
      .query(printScene);
}

}  // namespace brevant
