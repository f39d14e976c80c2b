// SPDX-License-Identifier: MIT
#include "cli/sample_container.h"

#include <filesystem>

#include "cli/context.h"
#include "cli/database_place.h"
#include "cli/files.h"
#include "platform/bundle.h"
#include "platform/image_codec.h"
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
  if (!image) return "the icons of the program are not there";
  const auto png = context.platform.images.encodePng(*image);
  return png ? writeFile(folder / (guid + ".png"), *png) : "the icon cannot be written as PNG";
}

}  // namespace

std::optional<std::string> makeSampleContainer(Context& context, const std::string& directory) {
  const fs::path container = directory;
  const fs::path database = container / kDatabaseFile;
  const fs::path settings = settingsPath(directory);
  const fs::path images = container / "custom_images";
  std::error_code error;
  if (fs::exists(fs::symlink_status(database, error))) {
    return database.string() + " is there already";
  }
  for (const fs::path& folder : {container, settings.parent_path(), images}) {
    fs::create_directories(folder, error);
    if (error) return folder.string() + ": " + error.message();
  }
  if (!fs::exists(settings, error)) {
    if (std::string trouble = writeFile(settings, bytesOf(kSettings)); !trouble.empty()) {
      return trouble;
    }
  }
  const std::string customIcon = newUuid(context.platform.random);
  if (std::string trouble = writeCustomIcon(context, images, customIcon); !trouble.empty()) {
    return trouble;
  }
  if (createSampleDatabase(context.platform, database, customIcon, context.store.listener()))
    return std::nullopt;
  fs::remove(database, error);  // half of one would stand in the way of the next try
  return database.string() + ": " + context.store.failure().value_or("it could not be written");
}

}  // namespace brevant
