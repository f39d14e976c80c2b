#include "desktop/options.h"

#include <QCommandLineParser>
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
      {u"scale"_s, u"Pixels per point of the picture: 1, 1.5, 2 or 3."_s, u"N"_s, u"2"_s},
      {u"container"_s, u"The app-group container."_s, u"DIR"_s},
      {u"now"_s, u"The current time, in seconds since 1970."_s, u"SECONDS"_s},
      {u"system-version"_s, u"What the version gates see."_s, u"V"_s},
      {u"color-scheme"_s, u"light or dark."_s, u"light|dark"_s},
      {u"ios-app-on-mac"_s, u"Run as an iOS app on a Mac."_s},
  });
  parser.addHelpOption();
}

Refusal wrongUsage(const QString& message) {
  return {u"brevant-desktop: "_s + message, kWrongUsage};
}

Refusal wrongValue(const QCommandLineParser& parser, const QString& option) {
  return wrongUsage(u"not a value of --%1: %2"_s.arg(option, parser.value(option)));
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
  if (parser.isSet(u"help"_s)) return Refusal{parser.helpText(), 0};
  if (!parser.positionalArguments().isEmpty()) {
    return wrongUsage(u"unknown word: "_s + parser.positionalArguments().first());
  }

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
    options.action = parser.value(u"do"_s);
    if (!QStringList{u"pause"_s, u"stop"_s, u"resume"_s}.contains(*options.action)) {
      return wrongValue(parser, u"do"_s);
    }
  }
  if (parser.isSet(u"picture"_s)) {
    auto picture = parsePicture(parser);
    if (auto* refusal = std::get_if<Refusal>(&picture)) return std::move(*refusal);
    options.picture = std::get<Options::Picture>(std::move(picture));
  }
  return options;
}

}  // namespace brevant
