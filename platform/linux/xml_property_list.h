// SPDX-License-Identifier: MIT

// What the property list library misses about XML, so that others read what was meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brevant {

// The text as every reader of XML must take it: line ends are single line feeds. A carriage return
// that is meant is written as a reference and stays.
std::string withPlainLineEnds(std::string_view xml);

// What the library wrote with years of four digits and carriage returns as references.
std::string strictXml(std::string_view written);

// The texts of all dates, in order, with such years. The library takes longer years for others.
std::vector<std::string> datesOfXml(std::string_view xml);

// The texts of all integers, in order, as the library writes them. It takes one beyond 64 bits for
// another.
std::vector<std::string> integersOfXml(std::string_view xml);

}  // namespace brevant
