// SPDX-License-Identifier: MIT
#include "cli/sample_container.h"

#include <filesystem>

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/files.h"
#include "cli/new_files.h"
#include "cli/words.h"
#include "platform/bundle.h"
#include "platform/image_codec.h"
#include "platform/linux/durable_file.h"
#include "platform/linux/shared_settings.h"
#include "platform/uuid.h"
#include "store/sample_database.h"

namespace brevant {
namespace {

namespace fs = std::filesystem;

// What the main application would have stored: pause buttons, no least duration, and a reminder
// every hour from 9 to 22 while nothing runs.
constexpr std::string_view kSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0">
<dict>
	<key>activityMinDuration</key>
	<integer>0</integer>
	<key>dateTimePrecision</key>
	<integer>0</integer>
	<key>notifySettings</key>
	<dict>
		<key>notifyEnabled</key>
		<true/>
		<key>notifyIncludedHours</key>
		<array>
			<integer>10</integer>
			<integer>11</integer>
			<integer>12</integer>
			<integer>13</integer>
			<integer>14</integer>
			<integer>15</integer>
			<integer>16</integer>
			<integer>17</integer>
			<integer>18</integer>
			<integer>19</integer>
			<integer>20</integer>
			<integer>21</integer>
			<integer>22</integer>
		</array>
		<key>notifyMinutes</key>
		<integer>60</integer>
		<key>remindMeType</key>
		<integer>2</integer>
	</dict>
	<key>pauseEnabled</key>
	<true/>
	<key>widgetUpdatedActivity</key>
	<false/>
</dict>
</plist>
)";

std::span<const std::uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// An icon of the user's own; any picture will do.
std::string writeCustomIcon(Context& context, const fs::path& folder, const std::string& guid) {
  const ImageRef image = context.platform.bundle.imageNamed("cat_22.png");
  if (!image) return tr("the icons of the program are not there");
  const auto png = context.platform.images.encodePng(*image);
  return png ? writeFile(folder / (guid + ".png"), *png) : tr("the icon cannot be written as PNG");
}

}  // namespace

std::optional<std::string> makeSampleContainer(Context& context, const std::string& directory) {
  const fs::path container = directory;
  const fs::path database = container / kDatabaseFile;
  for (const char* const suffix : {"", "-journal", "-wal"}) {
    const std::string path = database.string() + suffix;
    if (fileExists(path)) return tr("%1 is there already", path);
  }
  const fs::path images = container / "custom_images";
  const fs::path settings = settingsPath(directory);
  NewFiles made;
  for (const fs::path& folder : {container, images, settings.parent_path()}) {
    if (std::string trouble = made.makeFolder(folder); !trouble.empty()) return trouble;
  }
  const NewFiles::Workshop workshop = made.makeWorkshop(container);
  if (!workshop.trouble.empty()) return workshop.trouble;
  const fs::path built = workshop.folder / kDatabaseFile;
  const std::string icon = newUuid(context.platform.random);
  if (!createSampleDatabase(context.platform, built, icon, context.store.listener())) {
    return database.string() + ": " +
           context.store.failure().value_or(tr("it could not be written"));
  }
  if (auto trouble = writeCustomIcon(context, workshop.folder, icon); !trouble.empty()) {
    return trouble;
  }
  if (auto trouble = writeFile(workshop.folder / "settings", bytesOf(kSettings));
      !trouble.empty()) {
    return trouble;
  }
  // The icon first, for the widget needs it; who puts the database there owns the rest.
  const std::string iconFile = icon + ".png";
  for (const auto& [from, to] :
       {std::pair(workshop.folder / iconFile, images / iconFile), std::pair(built, database)}) {
    if (std::string trouble = made.moveIn(from, to); !trouble.empty()) {
      if (fileExists(database)) made.keepFolders();
      return trouble;
    }
  }
  const std::string trouble = made.moveIn(workshop.folder / "settings", settings);
  made.keep();
  return trouble.empty() || fileExists(settings) ? std::nullopt : std::optional(trouble);
}

}  // namespace brevant
