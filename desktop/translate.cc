#include "desktop/translate.h"

#include <QFileInfo>
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
  return u"C"_s;
}

// The translations beside the program, so that a build tree and a moved installation work too.
QByteArray localeFolder() {
  const QString program = QFileInfo(u"/proc/self/exe"_s).canonicalPath();
  const QFileInfo beside(program + u"/../share/locale"_s);
  return beside.isDir() ? beside.canonicalFilePath().toLocal8Bit() : QByteArray(BREVANT_LOCALE_DIR);
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
  QString name = localeOfEnvironment();
  // The C library's rule: the list of languages counts, except in the plain C locale.
  const bool plain = name == "C"_L1 || name == "POSIX"_L1;
  const QString languages = qEnvironmentVariable("LANGUAGE");
  if (!plain && !languages.isEmpty()) name = languages.section(QLatin1Char(':'), 0, 0);
  // "de_DE.UTF-8@euro" is "de_DE" to Qt.
  name = name.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('@'), 0, 0);
  const QLocale locale(name);
  return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

void useMessagesOfEnvironment() {
  // A locale that is not installed still names a language that may have a translation; the C
  // library would only look for it in the list of languages.
  if (!std::setlocale(LC_MESSAGES, "")) {
    std::setlocale(LC_MESSAGES, "C.UTF-8");
    if (qEnvironmentVariableIsEmpty("LANGUAGE"))
      qputenv("LANGUAGE", localeOfEnvironment().section(u'.', 0, 0).toLocal8Bit());
  }
  bindtextdomain(kDomain, localeFolder().constData());
  bind_textdomain_codeset(kDomain, "UTF-8");
}

}  // namespace brevant
