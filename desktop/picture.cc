// SPDX-License-Identifier: MIT
#include "desktop/picture.h"

#include <QApplication>
#include <QBuffer>
#include <QDateTime>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <QImage>
#include <QProcess>
#include <QSaveFile>
#include <QTimer>
#include <cstdio>

#include "desktop/answer_json.h"
#include "desktop/answer_limits.h"
#include "desktop/brevant_client.h"
#include "desktop/fonts.h"
#include "desktop/programs.h"
#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kFailed = 1, kWrongUsage = 2;
constexpr int kPatience = 10'000;  // milliseconds for `brevant` to answer

// A picture depends on what it shows alone, not on how this desktop is set up; nor does it wait for
// anything that only windows need.
void standApartFromTheDesktop() {
  for (const char* name :
       {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_STYLE_OVERRIDE",
        "QT_QPA_PLATFORMTHEME", "QT_ENABLE_HIGHDPI_SCALING", "QT_USE_PHYSICAL_DPI"}) {
    qunsetenv(name);
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication::setDesktopSettingsAware(false);
  QApplication::setStyle(u"fusion"_s);
}

// One line on stderr says what went wrong; what Qt finds odd about the machine is no part of it.
void dropChatter(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtFatalMsg) std::fprintf(stderr, "brevant-desktop: %s\n", qPrintable(message));
}

bool isTimeline(Surface surface) {
  return surface == Surface::kSmall || surface == Surface::kMedium;
}

// What a picture shows, or why there is none.
struct Shown {
  int exitCode = 0;
  QString error;
  QJsonObject value;
};

Shown failed(const QString& why, int exitCode = kFailed) {
  return {exitCode, why, {}};
}

// Why `brevant` refused, without its name: who reads it has run this program.
QString reasonIn(const QString& said) {
  const QString line = said.section(u'\n', -1);
  return line.startsWith("brevant: "_L1) ? line.mid(9) : line;
}

// What a process says until it ends, gets too long or takes too long.
struct Said {
  QByteArray output, errors;
  bool isEndless = false;
};

Said heardFrom(QProcess& process) {
  Said said;
  qsizetype heard = 0;
  QEventLoop loop;
  const auto hear = [&] {
    const QByteArray output = process.readAllStandardOutput();
    const QByteArray errors = process.readAllStandardError();
    heard += output.size() + errors.size();
    said.isEndless = heard > kMostOutput;
    if (said.isEndless) return loop.quit();
    said.output += output;
    said.errors = (said.errors + errors).right(kMostErrors);
  };
  QObject::connect(&process, &QProcess::readyReadStandardOutput, &loop, hear);
  QObject::connect(&process, &QProcess::readyReadStandardError, &loop, hear);
  QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
  QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
  QTimer::singleShot(kPatience, &loop, &QEventLoop::quit);
  if (process.state() != QProcess::NotRunning) loop.exec();
  hear();
  return said;
}

Shown shownBy(QProcess& brevant, Surface surface) {
  const Said all = heardFrom(brevant);
  if (brevant.error() == QProcess::FailedToStart)
    return failed(u"cannot run %1: %2"_s.arg(brevant.program(), brevant.errorString()));
  if (all.isEndless) {
    return failed(u"%1 answered more than %2 MiB"_s.arg(brevant.program()).arg(kMostOutput >> 20));
  }
  if (brevant.state() != QProcess::NotRunning)
    return failed(brevant.program() + u" does not answer"_s);
  const QString said = QString::fromLocal8Bit(all.errors).trimmed();
  if (brevant.exitStatus() != QProcess::NormalExit) {
    return failed(u"%1 crashed: %2"_s.arg(brevant.program(), said.section(u'\n', -1)));
  }
  if (brevant.exitCode() != 0) {
    return failed(reasonIn(said), brevant.exitCode() == kWrongUsage ? kWrongUsage : kFailed);
  }
  const std::optional<QJsonValue> json = jsonFromAnswer(all.output);
  if (!json) return failed(u"%1 answered no JSON that can be used"_s.arg(brevant.program()));
  if (!isTimeline(surface)) return {0, {}, json->toObject()};
  return {0, {}, (*json)["entries"_L1][0].toObject()};  // of null: nothing to show
}

QImage rendered(QWidget& card, double scale) {
  card.resize(card.sizeHint());
  QImage image((QSizeF(card.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::transparent);
  card.render(&image, {}, {}, QWidget::DrawChildren);
  return image;
}

// Something that is no file, as the terminal, is written to where it is.
bool saveIntoDevice(const QByteArray& png, const QString& name, QString& error) {
  QFile device(name);
  const bool saved =
      device.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && device.write(png) == png.size();
  if (!saved) error = name + u": "_s + device.errorString();
  return saved;
}

// Encoded first, so that what is left to fail is the file alone.
bool save(const QImage& image, const QString& name, QString& error) {
  QByteArray png;
  QBuffer encoded(&png);
  const bool isEncoded = image.save(&encoded, "PNG");
  const QFileInfo target(name);
  if (isEncoded && target.exists() && !target.isFile() && !target.isDir()) {
    return saveIntoDevice(png, name, error);
  }
  QSaveFile file(name);
  bool saved =
      isEncoded && file.open(QIODevice::WriteOnly) && file.write(png) == png.size() && file.flush();
  // At a full disk or a limit the toolkit takes a part that was written for the whole.
  const bool isCut = saved && file.size() != png.size();
  saved = saved && !isCut && file.commit();
  if (!saved) error = name + u": "_s + (isCut ? u"there is no room for it"_s : file.errorString());
  return saved;
}

int complain(const QString& what, int exitCode = kFailed) {
  std::fprintf(stderr, "brevant-desktop: %s\n", qPrintable(what));
  return exitCode;
}

}  // namespace

int drawPicture(int argc, char** argv, const Options& options) {
  standApartFromTheDesktop();
  qInstallMessageHandler(dropChatter);
  const QApplication application(argc, argv);
  useMessagesOfEnvironment();
  QCoreApplication::setLibraryPaths({});
  const Options::Picture& picture = *options.picture;

  QProcess brevant;
  QStringList arguments = options.forBrevant;
  arguments << u"--json"_s;
  isTimeline(picture.surface) ? arguments << u"timeline"_s : arguments << u"live"_s << u"show"_s;
  brevant.start(findBrevant(), arguments);
  // The fonts are found while it works.
  static_cast<void>(QFontMetrics(makeFont({})).height());

  const Shown shown = shownBy(brevant, picture.surface);
  if (shown.exitCode != 0) return complain(shown.error, shown.exitCode);

  const double now =
      options.now.value_or(static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000);
  const DrawingContext context{options.colorScheme.value_or(ColorScheme::kLight),
                               messagesLocale(),
                               [now] { return now; },
                               {},
                               {},
                               true};
  const std::unique_ptr<QWidget> card = buildSurface(picture.surface, shown.value, context);
  QString error;
  if (!save(rendered(*card, picture.scale), picture.file, error)) return complain(error);
  return 0;
}

}  // namespace brevant
