// SPDX-License-Identifier: MIT
#include "desktop/translate.h"

#include <gtest/gtest.h>
#include <map>

namespace brevant {
namespace {

using namespace Qt::Literals::StringLiterals;

// An environment with nothing but these, as long as it lives.
class Environment {
 public:
  explicit Environment(const std::map<const char*, const char*>& values) {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
      before_[name] = qgetenv(name);
      qunsetenv(name);
    }
    for (const auto& [name, value] : values) qputenv(name, value);
    useMessagesOfEnvironment();
  }
  ~Environment() {
    for (const auto& [name, value] : before_)
      value.isNull() ? qunsetenv(name) : qputenv(name, value);
    useMessagesOfEnvironment();
  }

 private:
  std::map<const char*, QByteArray> before_;
};

TEST(Translate, SpeaksTheEnvironmentsLanguageInstalledOrNot) {
  const struct {
    std::map<const char*, const char*> environment;
    QString pause;
    QLocale::Language language;
  } kCases[] = {
      {{}, u"Pause"_s, QLocale::English},
      {{{"LC_ALL", "C.UTF-8"}, {"LANGUAGE", "ar"}}, u"إيقاف مؤقت"_s, QLocale::Arabic},
      {{{"LANGUAGE", "ar"}}, u"إيقاف مؤقت"_s, QLocale::Arabic},
      {{{"LANG", "ar_XX.UTF-8"}}, u"إيقاف مؤقت"_s, QLocale::Arabic},
      {{{"LANG", "de_XX.UTF-8@euro"}}, u"Pausieren"_s, QLocale::German},
      {{{"LANG", "ar_XX.UTF-8"}, {"LANGUAGE", "de"}}, u"Pausieren"_s, QLocale::German},
      {{{"LC_ALL", "C"}, {"LANGUAGE", "ar"}}, u"Pause"_s, QLocale::English},
      {{{"LANG", "he_IL.UTF-8"}}, u"Pause"_s, QLocale::English},
      {{{"LANG", "C.UTF-8"}, {"LANGUAGE", "he:de_AT:ar"}}, u"Pausieren"_s, QLocale::German},
  };
  for (const auto& [environment, pause, language] : kCases) {
    const Environment set(environment);
    EXPECT_EQ(translate("Pause"), pause);
    EXPECT_EQ(messagesLocale().language(), language) << qPrintable(pause);
    EXPECT_NE(translate("complication.no_running"), u"complication.no_running"_s);
  }
}

}  // namespace
}  // namespace brevant
