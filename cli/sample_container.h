// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace brevant {

class Context;

// Fills a directory, made if need be, with a container to try everything on. Refuses one that has
// a database. The reason when it was not done.
std::optional<std::string> makeSampleContainer(Context& context, const std::string& directory);

}  // namespace brevant
