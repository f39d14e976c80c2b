// SPDX-License-Identifier: MIT
#include "desktop/host.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "desktop/card_accessible.h"
#include "desktop/notify.h"
#include "desktop/programs.h"
#include "desktop/translate.h"
#include "desktop/unix_signals.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const RetryPauses kRestartPauses(1s, 5min);

// The words that a host is told: to come to the front, or to say what follows.
constexpr char kShow[] = "show", kSay[] = "say ";

// The name of an option without its dashes, and its value in the words for `brevant`.
QString valueOf(const QStringList& words, const QString& option) {
  const auto at = words.indexOf(u"--"_s + option);
  return at < 0 ? QString() : words.value(at + 1);
}

// The words without an option and its value: the host chooses that by itself.
QStringList without(QStringList words, const QString& option) {
  const auto at = words.indexOf(u"--"_s + option);
  if (at >= 0) words.remove(at, 2);
  return words;
}

// The data folder of the user; one that is not absolute does not count.
QString dataFolder() {
  const QString given = qEnvironmentVariable("XDG_DATA_HOME");
  return QDir::isAbsolutePath(given) ? given : QDir::homePath() + u"/.local/share"_s;
}

// The command line, the environment, what was chosen here, and then the usual place.
QString containerFor(const Options& options, const Preferences& preferences) {
  for (const QString& folder : {valueOf(options.forBrevant, u"container"_s),
                                qEnvironmentVariable("BREVANT_CONTAINER"), preferences.container()})
    if (!folder.isEmpty()) return QDir::cleanPath(QDir::current().absoluteFilePath(folder));
  return dataFolder() + u"/group.brevant"_s;
}

bool hasLog(const QString& container) {
  return QFileInfo::exists(container + u"/database.sqlite"_s);
}

BrevantClient::Options clientFor(const Options& options, const Preferences& preferences) {
  BrevantClient::Options client;
  client.program = findBrevant();
  client.container = containerFor(options, preferences);
  client.globalOptions = without(without(options.forBrevant, u"container"_s), u"color-scheme"_s);
  return client;
}

double systemTime() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

// The host that shows the container sees by itself what has changed; only a failure has to be said,
// since whoever started this from a menu or a link sees nothing else of it.
int runCommand(int argc, char** argv, const Options& options) {
  const QCoreApplication app(argc, argv);
  const Preferences preferences(Preferences::defaultFile());
  const BrevantClient::Options clientOptions = clientFor(options, preferences);
  BrevantClient client(clientOptions);
  client.perform(options.command, &client, [&](const Answer& answer) {
    if (answer.outcome == Answer::Outcome::kDone) return QCoreApplication::exit(0);
    std::fprintf(stderr, "brevant-desktop: %s\n", qPrintable(answer.error));
    if (!notify(answer.error))
      SingleInstance::tell(clientOptions.container, kSay + answer.error.toUtf8());
    QCoreApplication::exit(1);
  });
  return QCoreApplication::exec();
}

// Without one the widget toolkit would abort the process.
bool hasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  return false;
}

// An installation that is not where the desktop looks has its icons beside it.
void findIconsBesideProgram() {
  const QString icons = QCoreApplication::applicationDirPath() + u"/../share/icons"_s;
  QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << icons);
  if (QIcon::themeName().isEmpty()) QIcon::setThemeName(u"hicolor"_s);
}

}  // namespace

Host::Host(const Options& options, QObject* parent)
    : QObject(parent),
      options_(options),
      preferences_(Preferences::defaultFile()),
      client_(clientFor(options, preferences_)) {
  client_.colorScheme = options.colorScheme.value_or(scheme_.scheme());
  if (options.colorScheme) return;
  connect(&scheme_, &SchemeWatch::changed, this, [this](ColorScheme scheme) {
    client_.colorScheme = scheme;
    if (desk_) desk_->setColorScheme(scheme);
  });
}

bool Host::start() {
  if (!claim(client_.container)) return false;
  show();
  return true;
}

bool Host::claim(const QString& container) {
  auto instance = SingleInstance::claim(container);
  if (!instance) {
    SingleInstance::tell(container, kShow);
    return false;
  }
  connect(instance.get(), &SingleInstance::told, this, &Host::takeWord);
  instance_ = std::move(instance);
  return true;
}

void Host::show() {
  if (hasLog(client_.container)) {
    showDesk();
  } else {
    showStart();
  }
}

void Host::showDesk() {
  // For what is started from here without being told: the handler of links.
  qputenv("BREVANT_CONTAINER", QFile::encodeName(client_.container));
  start_.reset();
  waiting_.reset();
  const ContainerModel::Options model{client_, drawing().now};
  desk_ = std::make_unique<Desk>(model, drawing(), preferences_);
  connect(desk_.get(), &Desk::quitAsked, this, &Host::endAsked);
  connect(desk_.get(), &Desk::folderAsked, this, &Host::askForFolder);
  reminders_ = std::make_unique<RemindersChild>(client_, kRestartPauses);
}

void Host::showStart() {
  start_ = std::make_unique<StartWindow>(client_.container);
  connect(start_.get(), &StartWindow::closed, this, &Host::endAsked);
  // Queued, because the window may be gone afterwards.
  connect(start_.get(), &StartWindow::sampleAsked, this, &Host::makeSample, Qt::QueuedConnection);
  connect(start_.get(), &StartWindow::folderAsked, this, &Host::askForFolder);
  waiting_ = std::make_unique<ContainerWatcher>(client_.container, 150ms);
  // Queued, because what is told here is deleted then.
  const auto look = [this] {
    if (start_ && hasLog(client_.container)) showDesk();
  };
  connect(waiting_.get(), &ContainerWatcher::changed, this, look, Qt::QueuedConnection);
  start_->show();
}

// However often it is asked for, there is one dialog.
void Host::askForFolder() {
  if (folderDialog_) {
    folderDialog_->raise();
    return folderDialog_->activateWindow();
  }
  folderDialog_ = makeFolderDialog().release();
  connect(folderDialog_, &QFileDialog::fileSelected, this, &Host::change);
  connect(this, &QObject::destroyed, folderDialog_, &QObject::deleteLater);
  folderDialog_->open();
}

void Host::change(const QString& folder) {
  if (!hasLog(folder)) return tellFailure(translate("%1 has no database.sqlite").arg(folder));
  if (folder != client_.container && !claim(folder))
    return tellFailure(translate("%1 is shown already").arg(folder));
  preferences_.setContainer(folder);
  client_.container = folder;
  reminders_.reset();
  desk_.reset();
  showDesk();
}

// A folder of its own, so that the sample never gets into anybody's log.
void Host::makeSample() {
  const QString folder = dataFolder() + u"/brevant-sample"_s;
  if (hasLog(folder)) return change(folder);
  auto* client = new BrevantClient(client_, this);
  client->perform({u"sample"_s, folder}, this, [this, client, folder](const Answer& answer) {
    client->deleteLater();
    if (answer.outcome != Answer::Outcome::kDone) return tellFailure(answer.error);
    change(folder);
  });
}

void Host::takeWord(const QByteArray& word) {
  if (word.startsWith(kSay)) {
    tellFailure(QString::fromUtf8(word.mid(static_cast<qsizetype>(std::strlen(kSay)))));
  } else if (word != kShow) {
    return;
  } else if (desk_) {
    desk_->raise();
  } else if (start_) {
    start_->raise();
    start_->activateWindow();
  }
}

void Host::tellFailure(const QString& why) {
  if (desk_) desk_->say(why);
  if (start_) start_->sayFailure(why);
}

DrawingContext Host::drawing() const {
  DrawingContext drawing;
  drawing.colorScheme = client_.colorScheme;
  drawing.locale = messagesLocale();
  drawing.now = systemTime;
  if (options_.now) {
    drawing.now = [now = *options_.now] { return now; };
    drawing.isStill = true;
  }
  return drawing;
}

int runHost(int argc, char** argv, const Options& options) {
  if (!options.command.isEmpty()) return runCommand(argc, argv, options);
  if (!hasDisplay()) {
    std::fprintf(stderr, "brevant-desktop: there is no display; try brevant picture\n");
    return 1;
  }
  const QApplication app(argc, argv);
  useMessagesOfEnvironment();
  QGuiApplication::setLayoutDirection(messagesLocale().textDirection());
  QApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setDesktopFileName(u"org.brevant.Desktop"_s);
  findIconsBesideProgram();
  QApplication::setWindowIcon(programIcon());
  installCardAccessibility();
  const UnixSignals signals;
  Host host(options);
  // Not quit(), which would first close the windows as if people did.
  const auto end = [] { QCoreApplication::exit(0); };
  QObject::connect(&signals, &UnixSignals::endAsked, &host, end);
  QObject::connect(&host, &Host::endAsked, &host, end, Qt::QueuedConnection);
  if (!host.start()) return 0;
  return QCoreApplication::exec();
}

}  // namespace brevant
