// SPDX-License-Identifier: MIT
#include "desktop/options.h"

#include <QCommandLineParser>
#include <QSet>
#include <cmath>

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWrongUsage = 2;

void describeOptions(QCommandLineParser& parser) {
  parser.setApplicationDescription(
      u"Shows the widgets and the Live Activity on the desktop, or draws a picture of one."_s);
  parser.addOptions({
      {u"picture"_s,
       u"Draw SURFACE (small, medium, lock-screen, island-compact, island-minimal, "
       "island-expanded) and end."_s,
       u"SURFACE"_s},
      {{u"o"_s, u"output"_s}, u"The picture's file."_s, u"FILE.png"_s},
      {u"do"_s, u"Pause, stop or resume what is shown, and end."_s, u"pause|stop|resume"_s},
      {u"open"_s, u"Do what a link of the widgets says, and end."_s, u"URL"_s},
      {u"scale"_s, u"Pixels per point of the picture: 1, 1.5, 2 or 3."_s, u"N"_s, u"2"_s},
      {u"container"_s, u"The app-group container."_s, u"DIR"_s},
      {u"now"_s, u"The current time, in seconds since 1970."_s, u"SECONDS"_s},
      {u"system-version"_s, u"What the version gates see."_s, u"V"_s},
      {u"color-scheme"_s, u"light or dark."_s, u"light|dark"_s},
      {u"ios-app-on-mac"_s, u"Run as an iOS app on a Mac."_s},
  });
  // Not the toolkit's own, which offers its own options too.
  parser.addOption({{u"h"_s, u"help"_s}, u"Print this."_s});
  parser.addOption({u"version"_s, u"Print the version."_s});
}

// The toolkit names the program after the application, which does not exist yet.
QString helpText(const QCommandLineParser& parser) {
  return u"Usage: brevant-desktop [options]\n"_s + parser.helpText().section(u'\n', 1).trimmed();
}

Refusal wrongUsage(const QString& message) {
  return {u"brevant-desktop: "_s + message, kWrongUsage};
}

Refusal wrongValue(const QCommandLineParser& parser, const QString& option) {
  return wrongUsage(u"not a value of --%1: %2"_s.arg(option, parser.value(option)));
}

// What cannot be said in one line of words: each would silently win over another.
std::optional<Refusal> contradictionIn(const QCommandLineParser& parser) {
  QSet<QString> seen;
  for (QString option : parser.optionNames()) {
    if (option == "o"_L1) option = u"output"_s;
    if (seen.contains(option)) return wrongUsage(u"--%1 is given twice"_s.arg(option));
    seen.insert(option);
  }
  QString act;
  for (const auto& option : {u"picture"_s, u"do"_s, u"open"_s}) {
    if (!seen.contains(option)) continue;
    if (!act.isEmpty()) return wrongUsage(u"--%1 and --%2 exclude each other"_s.arg(act, option));
    act = option;
  }
  for (const auto& option : {u"output"_s, u"scale"_s})
    if (seen.contains(option) && act != "picture"_L1)
      return wrongUsage(u"--%1 belongs to --picture"_s.arg(option));
  return std::nullopt;
}

std::variant<Options::Picture, Refusal> parsePicture(const QCommandLineParser& parser) {
  const std::optional<Surface> surface = surfaceFromName(parser.value(u"picture"_s));
  if (!surface) return wrongValue(parser, u"picture"_s);
  const QString file = parser.value(u"output"_s);
  if (file.isEmpty()) return wrongUsage(u"--picture needs -o FILE.png"_s);
  const double scale = parser.value(u"scale"_s).toDouble();
  if (scale != 1 && scale != 1.5 && scale != 2 && scale != 3) {
    return wrongValue(parser, u"scale"_s);
  }
  return Options::Picture{*surface, file, scale};
}

QStringList globalOptions(const QCommandLineParser& parser) {
  QStringList words;
  for (const char* name : {"container", "now", "system-version", "color-scheme"}) {
    const QString option = QString::fromLatin1(name);
    if (parser.isSet(option)) words << u"--"_s + option << parser.value(option);
  }
  if (parser.isSet(u"ios-app-on-mac"_s)) words << u"--ios-app-on-mac"_s;
  return words;
}

}  // namespace

std::variant<Options, Refusal> parseOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  describeOptions(parser);
  if (!parser.parse(arguments)) return wrongUsage(parser.errorText());
  if (!parser.positionalArguments().isEmpty()) {
    return wrongUsage(u"unknown word: "_s + parser.positionalArguments().first());
  }
  if (parser.isSet(u"help"_s)) return Refusal{helpText(parser), 0};
  if (parser.isSet(u"version"_s))
    return Refusal{u"brevant-desktop "_s + QStringLiteral(BREVANT_VERSION), 0};
  if (auto refusal = contradictionIn(parser)) return std::move(*refusal);

  Options options;
  options.forBrevant = globalOptions(parser);
  if (parser.isSet(u"now"_s)) {
    bool ok = false;
    options.now = parser.value(u"now"_s).toDouble(&ok);
    if (!ok || !std::isfinite(*options.now)) return wrongValue(parser, u"now"_s);
  }
  if (parser.isSet(u"color-scheme"_s)) {
    const QString scheme = parser.value(u"color-scheme"_s);
    if (scheme == "dark"_L1) {
      options.colorScheme = ColorScheme::kDark;
    } else if (scheme == "light"_L1) {
      options.colorScheme = ColorScheme::kLight;
    } else {
      return wrongValue(parser, u"color-scheme"_s);
    }
  }
  if (parser.isSet(u"do"_s)) {
    const QString action = parser.value(u"do"_s);
    if (!QStringList{u"pause"_s, u"stop"_s, u"resume"_s}.contains(action))
      return wrongValue(parser, u"do"_s);
    options.command = QStringList{action};
  }
  // The link may be anything, also what would be taken for an option.
  if (parser.isSet(u"open"_s))
    options.command = QStringList{u"open"_s, u"--"_s, parser.value(u"open"_s)};
  if (parser.isSet(u"picture"_s)) {
    auto picture = parsePicture(parser);
    if (auto* refusal = std::get_if<Refusal>(&picture)) return std::move(*refusal);
    options.picture = std::get<Options::Picture>(std::move(picture));
  }
  return options;
}

}  // namespace brevant
