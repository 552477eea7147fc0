#!/usr/bin/env python3
"""What tools/check-languages must find, and that it finds nothing in files that are right."""

import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "check-languages"
DATA = TOOL.parents[1] / "data"


def load(path):
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("check_languages", str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_languages", loader))
    loader.exec_module(module)
    return module


tool = load(TOOL)


class CheckLanguages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "data").mkdir()
        (self.root / "src").mkdir()
        for name in ("ITALIANO.LNG", "INGLESE.LNG"):
            (self.root / "data" / name).write_bytes((DATA / name).read_bytes())

    def change(self, name, old, new):
        path = self.root / "data" / name
        content = path.read_bytes()
        self.assertIn(old, content)
        path.write_bytes(content.replace(old, new, 1))

    def run_tool(self):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = tool.main(["--root", str(self.root)])
        return status, output.getvalue()

    def test_the_files_that_ship_are_right(self):
        self.assertEqual(self.run_tool()[0], 0)

    def test_each_fault_of_a_file_is_told(self):
        # what is changed in the Italian file, and what the line about it must say
        cases = {
            "key missing in one language": (b"OK.0=&OK\r\n", b"", "lacks OK.0 of [TASTI]"),
            "section missing": (b"[ZONE]\r\n", b"[ZONES]\r\n", "lacks ZONA_1 of [ZONE]"),
            "empty text": (b"TITOLO_1=Errore", b"TITOLO_1=", "TITOLO_1 of [ERRORI] is empty"),
            "blanks alone": (b"TITOLO_1=Errore", b'TITOLO_1="  "', "TITOLO_1 of [ERRORI] is empty"),
            "256 bytes": (b"TITOLO_1=Errore", b"TITOLO_1=" + b"x" * 256, "256 characters, 255 at most"),
            "label of a channel too long": (b"LAMBDA=Sonda", b"LAMBDA=La terza sonda", "20 at most"),
            "unit too long": (b"UMGIRI_0=g/min", b"UMGIRI_0=giri/min", "UMGIRI_0 of [CANALI] has 8"),
            "zone too long": (b"ZONA_1=MINIMO", b"ZONA_1=IL MINIMO", "ZONA_1 of [ZONE] has 9"),
            "line end": (b"OK.0=&OK\r\n", b"OK.0=&OK\n", "CR LF"),
            "no line of the kind": (b"OK.0=&OK\r\n", b"OK.0=&OK\r\nstray\r\n", "neither [SECTION] nor KEY"),
            "blank that gets lost": (b"TITOLO_1=Errore", b"TITOLO_1=Errore ", "get lost"),
            "key twice": (b"NO.0=&No\r\n", b"NO.0=&No\r\nNO.0=&No\r\n", "NO.0 stands twice"),
            "section twice": (b"[ZONE]\r\n", b"[CANALI]\r\n", "section CANALI stands twice"),
            "placeholder lost": (b"PORTA.0=Porta %1", b"PORTA.0=Porta", "different placeholders"),
            "separator in one language": (b"MENUDATI.2=-", b"MENUDATI.2=&Riga", "separator in one language"),
            "access key twice in a menu": (b"MAIN.9=E&sci", b"MAIN.9=&Esci", "MAIN.1 and MAIN.9 share"),
            "access key missing in a menu": (b"MAIN.9=E&sci", b"MAIN.9=Esci", "MAIN.9 of [MARLOVENT] wants"),
            "access key twice on a page": (b"NO.0=&No", b"NO.0=&Sarebbe no", "SI.0 and NO.0 share"),
            "not of the code page": (b"TITOLO_1=Errore", b"TITOLO_1=\x81", "code page 1252"),
        }
        original = (self.root / "data" / "ITALIANO.LNG").read_bytes()
        for name, (old, new, told) in cases.items():
            with self.subTest(name):
                (self.root / "data" / "ITALIANO.LNG").write_bytes(original)
                self.change("ITALIANO.LNG", old, new)
                status, output = self.run_tool()
                self.assertEqual(status, 1)
                self.assertIn(told, output)

    def test_missing_file_is_told(self):
        (self.root / "data" / "INGLESE.LNG").unlink()
        self.assertEqual(self.run_tool()[0], 1)

    def test_keys_that_a_source_asks_for(self):
        # a source, and what of it is missing (nothing when it is all there)
        cases = {
            'TestoLingua("OK.0", "TASTI");': None,
            'TestoLingua(shell, "ERRORE_2", "ERRORI")': None,
            'TestoLingua(program.shell, Language(), "ERRORE_2",\n    "ERRORI")': None,
            'TestoLingua("LABMIN." + std::to_string(n), "MESSAP")': None,
            'constexpr Text Title{"TITOLO_2", "ERRORI"};': None,
            'Row{7, Text{.key = "OK.0", .section = "TASTI"}, 3}': None,
            '// texts of MOTIVI\nconstexpr Row Rows[] = {\n    {1, "TASTO"},\n};\nauto x = "ABC";': None,
            'TestoLingua("ERRORE_99", "ERRORI")': "no ERRORE_99 in [ERRORI]",
            'TestoLingua("LABZZZ." + number, "MESSAP")': "no LABZZZ.n in [MESSAP]",
            'Text{"TITOLO_2", "ERRORE"}': "no TITOLO_2 in [ERRORE]",
            '// texts of MOTIVI\nRow rows[] = {{\n    {1, "TASTO"},\n    {2, "TASTINO"},\n}};': "no TASTINO in [MOTIVI]",
        }
        for source, missing in cases.items():
            with self.subTest(source):
                (self.root / "src" / "page.cpp").write_text(source)
                status, output = self.run_tool()
                self.assertEqual(status, 1 if missing else 0, output)
                self.assertIn(missing or "name 1 of them", output)


if __name__ == "__main__":
    unittest.main()
