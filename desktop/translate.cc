// SPDX-License-Identifier: MIT
#include "desktop/translate.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <clocale>
#include <libintl.h>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr char kDomain[] = "brevant";

QString localeOfEnvironment() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const QString value = qEnvironmentVariable(name);
    if (!value.isEmpty()) return value;
  }
  return {};
}

// The translations beside the program, so that a build tree and a moved installation work too.
QByteArray localeFolder() {
  const QString program = QFileInfo(u"/proc/self/exe"_s).canonicalPath();
  const QFileInfo beside(program + u"/../share/locale"_s);
  return beside.isDir() ? beside.canonicalFilePath().toLocal8Bit() : QByteArray(BREVANT_LOCALE_DIR);
}

// Most wanted first: a list of languages counts before the locale, except in the plain C locale.
QStringList wantedLocales() {
  const QString name = localeOfEnvironment();
  if (name == "C"_L1 || name == "POSIX"_L1) return {};
  QStringList wanted = qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts);
  if (!name.isEmpty()) wanted << name;
  return wanted;
}

// "de_DE.UTF-8@euro" is "de_DE" to Qt.
QString withoutEncoding(const QString& name) {
  return name.section(u'.', 0, 0).section(u'@', 0, 0);
}

bool hasTranslation(const QString& name) {
  const QString locale = withoutEncoding(name);
  for (const QString& language : {locale, locale.section(u'_', 0, 0)}) {
    const QString file = u"/%1/LC_MESSAGES/%2.mo"_s.arg(language, QLatin1StringView(kDomain));
    if (QFileInfo::exists(QFile::decodeName(localeFolder()) + file)) return true;
  }
  return false;
}

// English last: some texts are keys, which are not meant to be seen.
QString messagesName() {
  for (const QString& name : wantedLocales())
    if (hasTranslation(name)) return withoutEncoding(name);
  return u"en"_s;
}

}  // namespace

QString translate(const char* text) {
  return QString::fromUtf8(dgettext(kDomain, text));
}

QString translatePlural(const char* one, const char* many, int count) {
  const auto amount = static_cast<unsigned long>(count);
  // Not arg(): some languages have words for one and two, and no number beside them.
  const QString form = QString::fromUtf8(dngettext(kDomain, one, many, amount));
  return QString(form).replace(u"%1"_s, QString::number(count));
}

QLocale messagesLocale() {
  return QLocale(messagesName());
}

// The C library would ignore a language whose locale is not installed, and any in the plain C
// locale; the one of plain letters takes the list of languages as it is.
void useMessagesOfEnvironment() {
  const QByteArray languages = messagesName().toLocal8Bit() + ":en";
  qputenv("LANGUAGE", languages);
  std::setlocale(LC_MESSAGES, "C");  // else what was looked up before would stay
  std::setlocale(LC_MESSAGES, "C.UTF-8");
  bindtextdomain(kDomain, localeFolder().constData());
  bind_textdomain_codeset(kDomain, "UTF-8");
}

}  // namespace brevant
