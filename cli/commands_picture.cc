// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "cli/commands.h"
#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/files.h"
#include "cli/json_container.h"
#include "cli/other_program.h"
#include "cli/words.h"
#include "manager/widget_manager.h"
#include "platform/image_codec.h"

namespace brevant {
namespace {

ExitCode saveIcon(Context& context, const std::optional<std::string>& name, std::uint64_t color,
                  const std::string& file) {
  const ImageRef image = WidgetManager::open(context.platform)->imageForGuid(name, color);
  if (!image) return context.refuse(tr("there is no icon %1", name.value_or("")));
  const auto png = context.platform.images.encodePng(*image);
  if (!png) return context.refuse(tr("the icon cannot be written as PNG"));
  const std::string error = writeFile(file, *png);
  return error.empty() ? context.done() : context.refuse(error);
}

ExitCode drawPicture(Context& context, const std::string& surface,
                     const std::optional<std::string>& scale, const std::string& file) {
  if (context.container.empty()) {
    return context.refuse(missingContainer(context.platform.files).value_or(""));
  }
  const std::optional<std::string> program = desktopProgram();
  if (!program) {
    return context.refuse(
        tr("brevant-desktop, which draws the pictures, is not there: install it or "
           "name it in BREVANT_DESKTOP"));
  }
  std::vector<std::string> words = globalWords(context.options, context.container);
  words.insert(words.end(), {"--picture", surface, "-o", file, "--scale", scale.value_or("2")});
  setenv("BREVANT", ownPath().c_str(), 1);  // the program asks this one for what it draws
  if (!context.options.json) return context.refuse(become(*program, words));
  if (const ExitCode code = runSilently(*program, words); code != ExitCode::kDone) return code;
  context.print(fileJson(file));
  return ExitCode::kDone;
}

}  // namespace

void addPictureCommands(CommandLine& line) {
  const Command icon = line.command("icon", "Save a category's icon in a colour",
                                    "brevant icon cat_7 --color 0x336699 -o icon.png");
  const auto name =
      icon.optionalText("NAME", "The icon's name or guid (default: the default icon)");
  const auto color = icon.number("--color", "The colour as a number: 0xRRGGBB");
  const auto iconFile = icon.path("-o,--output", "The file");
  icon.run([name, color, iconFile](Context& context) {
    return saveIcon(context, *name, *color, *iconFile);
  });

  const Command picture = line.command("picture", "Draw a widget or a Live Activity",
                                       "brevant picture medium --color-scheme dark -o medium.png");
  const auto surface = picture.word(
      "SURFACE", "What to draw",
      {"small", "medium", "lock-screen", "island-compact", "island-minimal", "island-expanded"});
  const auto scale =
      picture.optionalWord("--scale", "Pixels per point (default: 2)", {"1", "2", "3"});
  const auto pictureFile = picture.path("-o,--output", "The file");
  picture.run([surface, scale, pictureFile](Context& context) {
    return drawPicture(context, *surface, *scale, *pictureFile);
  });
}

}  // namespace brevant
