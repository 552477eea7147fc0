#!/usr/bin/env bash
# Installs what is missing, builds Marlovent with its tests and runs them all. Arguments go to ctest.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

"$here/tools/install-packages" run test
"$here/tools/build" debug
exec ctest --test-dir "$here/build/debug" -j2 --output-on-failure "$@"
