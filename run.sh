#!/usr/bin/env bash
# Installs what is missing, builds Marlovent and starts it on the simulated unit. Arguments go to the program.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

"$here/tools/install-packages" run
"$here/tools/build" release -DMARLOVENT_TESTS=OFF

program=$here/build/release/apps/desktop/marlovent
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    program=$here/build/release/apps/console/marlovent-console
    echo "There is no graphical display: starting the console program instead of the window." >&2
fi
if [ ! -x "$program" ]; then
    echo "The build has not made $program." >&2
    exit 1
fi
exec "$program" --simulate "$@"
