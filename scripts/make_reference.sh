#!/usr/bin/env bash
# Makes the reference of the installed headers, build/reference/html. Fails where a comment is not
# understood. Takes the headers of a configured build folder (first argument). Needs doxygen.
set -euo pipefail
cd "$(dirname "$0")/.."
rm -rf build/reference
cmake --install "${1:-build/dev}" --component dev --prefix build/reference >/dev/null
doxygen docs/Doxyfile
[ -s build/reference/html/classbrevant_1_1WidgetManager.html ] # else its comments were not read
echo "build/reference/html/index.html"
