#!/usr/bin/env python3
"""How tools/make-languages takes texts of one section over into another."""

import importlib.machinery
import importlib.util
import pathlib
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "make-languages"


def load(path):
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("make_languages", str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("make_languages", loader))
    loader.exec_module(module)
    return module


tool = load(TOOL)

CARD = "[CARD]\nLAB.0 | Marca | Make\nLAB.1 | Anno | Year\nLAB1.0 | Altro | Other\nOK.0 | Si | Yes\n"


class TakeOver(unittest.TestCase):
    def read(self, text):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "texts.txt"
            path.write_text(text, encoding="utf-8")
            return dict(tool.read_table(path))

    def test_keys_and_families_of_another_section(self):
        # the lines of a section that takes over, and what it then holds
        cases = {
            "OK.0 | [CARD]": [("OK.0", "Si", "Yes")],
            "LAB.* | [CARD]": [("LAB.0", "Marca", "Make"), ("LAB.1", "Anno", "Year")],
            "LAB.* | [CARD]\nLAB.1 | Mio | Mine": [("LAB.0", "Marca", "Make"), ("LAB.1", "Mio", "Mine")],
            "LAB.* | [CARD]\nLAB.* | [CARD]": [("LAB.0", "Marca", "Make"), ("LAB.1", "Anno", "Year")],
        }
        for lines, rows in cases.items():
            for text in (CARD + "[PAGE]\n" + lines, "[PAGE]\n" + lines + "\n" + CARD):
                with self.subTest(text):
                    self.assertEqual(self.read(text)["PAGE"], rows)

    def test_what_is_not_there_cannot_be_taken(self):
        for line in ("OK.1 | [CARD]", "OK.0 | [CARDS]", "LABEL.* | [CARD]", "OK.0 | [LATER]", "OK.0 | Si", "| [CARD]"):
            with self.subTest(line), self.assertRaises(tool.TableError):
                self.read(CARD + "[PAGE]\n" + line + "\n[LATER]\nOK.0 | [CARD]\n")


if __name__ == "__main__":
    unittest.main()
