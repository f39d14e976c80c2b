// SPDX-License-Identifier: MIT
#include "fake_brevant.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kGenerousMilliseconds = 20'000;

constexpr char kScript[] = R"(#!/bin/sh
cd "${0%/*}" || exit 3
while :; do
  case $1 in
    --json) shift ;;
    --container) container=$2; shift 2 ;;
    --*) shift 2 ;;
    *) break ;;
  esac
done
echo "$*" >> calls
. ./misbehaviour
file=$1
[ "$1" = live ] && file="$1 $2"
cat "answers/$file"
)";

}  // namespace

FakeBrevant::FakeBrevant() {
  QDir(folder_.path()).mkpath(u"answers"_s);
  QDir(folder_.path()).mkpath(u"container"_s);
  writeFile(container() + u"/database.sqlite"_s, "-");
  writeFile(program(), kScript);
  QFile::setPermissions(program(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  misbehave("");
  answer(u"timeline"_s, timelineOf(u"Reading"_s));
  answer(u"placeholder"_s, R"({"name":"Sleep","views":{"systemSmall":{},"systemMedium":{}}})");
  answer(u"status"_s, R"({"running":[],"paused":[]})");
  answer(u"categories"_s, "[]");
  answer(u"live list"_s, "[]");
  for (const auto& action :
       {u"intent"_s, u"pause"_s, u"stop"_s, u"resume"_s, u"start"_s, u"open"_s})
    answer(action, "{}");
}

ContainerModel::Options FakeBrevant::options() const {
  using namespace std::chrono_literals;
  ContainerModel::Options options;
  options.client.program = program();
  options.client.container = container();
  options.client.patience = 10s;
  options.now = [] { return 1e9; };
  options.retry = RetryPauses(1h, 1h);
  options.settle = 20ms;
  return options;
}

void FakeBrevant::answer(const QString& command, const QByteArray& json) {
  writeFile(folder_.filePath(u"answers/"_s + command), json);
}

void FakeBrevant::misbehave(const QByteArray& commands) {
  writeFile(folder_.filePath(u"misbehaviour"_s), commands + '\n');
}

FakeBrevant::HostRun FakeBrevant::runHost(const QStringList& arguments) const {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"BREVANT"_s, program());
  environment.remove(u"QT_QPA_PLATFORM"_s);
  environment.insert(u"QT_SCALE_FACTOR"_s, u"1.7"_s);  // of this desktop; no matter here
  QProcess process;
  process.setProcessEnvironment(environment);
  process.start(QCoreApplication::applicationDirPath() + u"/brevant-desktop"_s, arguments);
  EXPECT_TRUE(waitUntil([&] { return process.state() == QProcess::NotRunning; }));
  EXPECT_EQ(process.readAllStandardOutput(), "");
  return {process.exitCode(), QString::fromUtf8(process.readAllStandardError())};
}

QStringList FakeBrevant::calls(const QString& command) const {
  QFile file(folder_.filePath(u"calls"_s));
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QStringList all = QString::fromUtf8(file.readAll()).split(u'\n');
  QStringList found;
  for (const QString& call : all)
    if (call == command || call.startsWith(command + u' ')) found << call;
  return found;
}

bool waitUntil(const std::function<bool()>& holds) {
  return QTest::qWaitFor(holds, kGenerousMilliseconds);
}

void letPass(int milliseconds) {
  QTest::qWait(milliseconds);
}

bool says(const QWidget& window, const QString& text) {
  for (const QLabel* label : window.findChildren<QLabel*>())
    if (label->isVisible() && label->text() == text) return true;
  return false;
}

void writeFile(const QString& path, const QByteArray& content) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qPrintable(path));
  file.write(content);
}

QByteArray timelineOf(const QString& name) {
  const QByteArray timeline = R"({"kind":"running_widget","policy":"atEnd","entries":[
    {"guid":"A","date":1e9,"name":"NAME","icon":null,"start":999996100,"duration":0,"views":{
      "systemSmall":{"view":"Text","text":"NAME"},
      "systemMedium":{"view":"HStack","children":[{"view":"Text","text":"NAME"},
        {"view":"Button","intent":{"name":"StopActivityIntent","activityId":"A",
                                   "operation":"pause"},
         "label":{"view":"Text","text":"pause"}},
        {"view":"Link","destination":"brevant:///widget?type=running&action=stop&activity=A","label":{"view":"Text","text":"link"}}]}}}]})";
  return QByteArray(timeline).replace("NAME", name.toUtf8());
}

QByteArray presentationOf(const QString& id, const QString& name) {
  QByteArray presentation = R"({"kind":"LiveActivityWidget","id":"ID",
    "contentState":{"guid":"A","typeName":"NAME","start":21688900},
    "lockScreen":BUTTON,"dynamicIsland":{"expanded":{"leading":{"view":"Text","text":"NAME"},
      "trailing":BUTTON,"bottom":{"view":"Text","text":"NAME"}},
      "compactLeading":{"view":"Text","text":"NAME"},
      "compactTrailing":{"view":"Text","text":"0:00"},"minimal":{"view":"Text","text":"N"}}})";
  presentation.replace("BUTTON", R"({"view":"Button","intent":{"name":"StopActivityLiveIntent",
    "activityId":"ID","operation":"stop"},"label":{"view":"Text","text":"stop"}})");
  return presentation.replace("ID", id.toUtf8()).replace("NAME", name.toUtf8());
}

}  // namespace brevant
