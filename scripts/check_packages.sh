#!/usr/bin/env bash
# Makes the Debian packages as a release ships them, in build/package, and has lintian judge them.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install_packages.sh package
rm -f build/package/*.deb
cmake --preset package
cmake --build --preset package
cpack --preset package
lintian --fail-on error,warning build/package/*.deb
echo "No error and no warning in:" build/package/*.deb
