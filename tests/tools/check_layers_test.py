"""The layer check must see each kind of breach, and must let pass what is allowed."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).parent.parent.parent / "tools" / "check-layers"

# What a tree holds, and the lines that the check is to print.
CASES = [
    ("downwards and within a room", {
        "src/platform/files.h": "",
        "src/platform/qt/port.cpp": '#include <QTimer>\n#include "platform/files.h"\n',
        "src/link/frames/numbers.h": '#include "platform/files.h"\n',
        "src/shell/menu.h": '#include "link/frames/numbers.h"\n',
        "src/link/popper.cpp": '#include "shell/menu.h"\n#include <vector>\n',
        "apps/desktop/main.cpp": '#include "desktop/binder.h"\n#include "shell/menu.h"\n#include <QApplication>\n',
        "apps/desktop/binder.h": "",
    }, []),
    ("upwards", {
        "src/link/popper.h": "",
        "src/shell/menu.cpp": '#include "link/popper.h"\n',
    }, ['src/shell/menu.cpp:1: "link/popper.h": room shell may not see room link']),
    ("the texts of the link seen from below", {
        "src/link/frames/numbers.h": "",
        "src/pages/page.cpp": '\n  #  include "link/frames/numbers.h"\n',
    }, ['src/pages/page.cpp:2: "link/frames/numbers.h": room pages may not see room link/frames']),
    ("a side of the platform", {
        "src/platform/virtual/world.h": "",
        "src/memory/image.cpp": '#include "platform/virtual/world.h"\n',
    }, ['src/memory/image.cpp:1: "platform/virtual/world.h": room memory may not see room platform/virtual']),
    ("the simulated ECU seen by the core, and the core by it", {
        "src/sim/unit.h": '#include "link/popper.h"\n',
        "src/link/popper.h": "",
        "src/program/program.cpp": '#include "sim/unit.h"\n',
    }, ['src/program/program.cpp:1: "sim/unit.h": room program may not see room sim',
        'src/sim/unit.h:1: "link/popper.h": room sim may not see room link']),
    ("a program's header seen by the core", {
        "apps/desktop/binder.h": "",
        "src/pages/page.cpp": '#include "desktop/binder.h"\n',
    }, ['src/pages/page.cpp:1: "desktop/binder.h": room pages may not see room apps']),
    ("Qt and SQLite in the core", {
        "src/pages/page.cpp": "#include <QString>\n#include <QtGlobal>\n#include <Quite>\n",
        "src/archive/tables.cpp": "#include <sqlite3.h>\n",
    }, ["src/archive/tables.cpp:1: <sqlite3.h>: only platform/sqlite knows of SQLite",
        "src/pages/page.cpp:1: <QString>: only platform/qt and apps know of Qt",
        "src/pages/page.cpp:2: <QtGlobal>: only platform/qt and apps know of Qt"]),
    ("a circle", {
        "src/pages/a.h": '#include "pages/b.h"\n',
        "src/pages/b.h": '#include "pages/a.h"\n',
    }, ["include circle: src/pages/a.h -> src/pages/b.h -> src/pages/a.h"]),
    ("a lost file and a room without a place", {
        "src/pages/page.cpp": '#include "pages/gone.h"\n',
        "src/attic/old.cpp": "",
    }, ["src/attic/old.cpp:1: stands in no room: name its folder in tools/check-layers",
        'src/pages/page.cpp:1: "pages/gone.h" is found neither in src nor in apps']),
]


def run(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            file = Path(folder) / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        return subprocess.run([sys.executable, str(TOOL), folder], capture_output=True, text=True, check=False)


class CheckLayers(unittest.TestCase):
    def test_every_breach_is_named_and_nothing_else(self):
        for name, files, expected in CASES:
            with self.subTest(name):
                result = run(files)
                self.assertEqual(result.stdout.splitlines(), expected, result.stderr)
                self.assertEqual(result.returncode, 1 if expected else 0)

    def test_a_tree_without_sources_is_no_proof(self):
        self.assertEqual(run({}).returncode, 1)


if __name__ == "__main__":
    unittest.main()
