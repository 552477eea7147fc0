"""The built console as its users start it: pipes, exit statuses, real time, a device on a pseudo-terminal.

Called with the console program, and with the simulated unit's program where there is one. Nothing here sleeps: every
step waits for a condition.
"""

import json
import os
import queue
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

CONSOLE = None
CENTRALINA = None
LIMIT = 20  # seconds that any one answer may take


class Program:
    """A program whose lines are read as they come."""

    def __init__(self, *arguments):
        self.process = subprocess.Popen([str(a) for a in arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, encoding="utf-8")
        self.lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.put(line.rstrip("\n"))
        self.lines.put(None)

    def line(self):
        return self.lines.get(timeout=LIMIT)

    def say(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        return self.line()

    def status(self):
        return self.process.wait(timeout=LIMIT)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        for stream in (self.process.stdin, self.process.stdout, self.process.stderr):
            try:
                stream.close()
            except BrokenPipeError:
                pass


class Console(Program):
    def __init__(self, *arguments):
        super().__init__(CONSOLE, *arguments)

    def ask(self, command):
        return json.loads(self.say(command))


class Unit(Program):
    """The simulated unit on a device that goes, like a cable pulled out, together with its name: the number of a
    pseudo-terminal passes at once to the next program that asks, and an old link would lead to a stranger's line."""

    def __init__(self, link):
        super().__init__(CENTRALINA, "--link", link, "--commands")
        self.link = link

    def __exit__(self, *details):
        self.link.unlink(missing_ok=True)
        super().__exit__(*details)


def run(*arguments, text="", cwd=None):
    return subprocess.run([str(CONSOLE), *[str(a) for a in arguments]], input=text, capture_output=True, encoding="utf-8",
                          timeout=LIMIT, check=False, cwd=cwd)


class EndToEnd(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = Path(folder.name)
        self.folder = self.home / "prog"
        self.virtual = ("--folder", self.folder, "--simulate", "--virtual-time")

    def ok(self, console, command):
        answer = console.ask(command)
        self.assertTrue(answer["ok"], (command, answer))
        return answer

    def test_a_script_on_virtual_time(self):
        script = "# a script\nwait SenzaImmagine 0 60000\nrun 60000\nrecord ValMin(1)\nquit\nstate\n"
        first = run(*self.virtual, text=script)
        answers = [json.loads(line) for line in first.stdout.splitlines()]
        self.assertEqual([a["ok"] for a in answers], [True] * 4)
        self.assertEqual(answers[1]["ms"], 60000)
        self.assertEqual((first.returncode, first.stderr), (0, ""))
        self.assertEqual(run(*self.virtual, text=script).stdout, first.stdout, "every run repeats exactly")

    def test_exit_statuses(self):
        for text, status in (("", 0), ("quit\n", 0), ("pages", 0), ("menu MainMenu 9\n", 0), ("close Marlovent\n", 0)):
            self.assertEqual(run(*self.virtual, text=text).returncode, status, text)
        for arguments in (("--nonsense",), ("--port", "COM11=/dev/null"), ("--virtual-time",), ("--variant", "LPG"),
                          ("--simulate", self.home / "missing.scn", "--virtual-time"), ("stray",)):
            ended = run("--folder", self.folder, *arguments)
            self.assertEqual((ended.returncode, ended.stdout), (2, ""), arguments)
            self.assertEqual(len(ended.stderr.splitlines()), 1, ended.stderr)
        for arguments in (("--version",), ("--help",)):
            ended = run(*arguments)
            self.assertEqual((ended.returncode, ended.stderr), (0, ""), arguments)
        self.assertEqual(len(run("--version").stdout.splitlines()), 1)

    def test_a_second_program_on_the_directory_is_refused(self):
        with Console(*self.virtual) as first:
            self.ok(first, "state")
            with Console(*self.virtual) as second:
                self.assertEqual(second.ask("pages")["pages"][-1]["name"], "SystemMessage")
                self.ok(second, "press SystemMessage OK")
                self.assertEqual(second.status(), 1)
            first.process.stdin.close()
            self.assertEqual(first.status(), 0)

    def test_scenarios_that_ship_are_known_by_name(self):
        text = "run 3000\nstate\n"
        blank = run("--folder", self.folder, "--simulate", "blank", "--virtual-time", text=text)
        self.assertEqual(blank.returncode, 0, blank.stderr)

    def test_the_trace_holds_every_frame(self):
        trace = self.home / "trace.txt"
        run(*self.virtual, "--trace", trace, text="wait SenzaImmagine 0 60000\n")
        lines = trace.read_text(encoding="ascii").splitlines()
        self.assertIn("> \\x02X327680010\\x03", [line.split(" ", 1)[1] for line in lines])
        self.assertEqual(sum(" > " in line for line in lines), 65)  # identification and the blocks of the image


    def test_paths_of_the_command_line_are_those_of_the_caller(self):
        (self.home / "own.scn").write_text("image image.mvn\n", encoding="ascii")
        (self.home / "image.mvn").write_text(("F" * 32 + "\r\n") * 128, encoding="ascii", newline="")
        ended = run("--folder", "prog", "--trace", "trace.txt", "--simulate", "own.scn", "--virtual-time", cwd=self.home,
                    text="run 1000\nsim image image.mvn\n")
        self.assertEqual(ended.returncode, 0, ended.stderr)
        self.assertIn('{"ok":true}', ended.stdout.splitlines()[1])
        self.assertTrue((self.home / "prog" / "MARLO.INI").exists())
        self.assertGreater((self.home / "trace.txt").stat().st_size, 0)


class RealTime(EndToEnd):
    """In real time, with the device that the simulated unit offers."""

    def unit(self, link):
        unit = Unit(link)
        self.assertTrue(unit.line().startswith("device "))
        return unit

    def test_the_simulated_unit_inside(self):
        with Console("--folder", self.folder, "--simulate") as console:
            waited = self.ok(console, "wait page LeggoIn open 5000")
            self.assertLess(waited["ms"], 2000)
            self.assertGreaterEqual(self.ok(console, "run 50")["ms"], 50)
            self.ok(console, "menu MainMenu 9")
            self.assertEqual(console.status(), 0)

    def test_instruments_show_what_the_device_streams(self):
        link = self.home / "tty"
        with Console("--folder", self.folder, "--port", f"COM1={link}") as console:
            # No device yet: told once, and the instruments wait.
            self.assertIn("SystemMessage", [page["name"] for page in console.ask("pages")["pages"]])
            self.ok(console, "press SystemMessage OK")
            self.assertFalse(self.ok(console, "state")["port"]["open"])
            unit = self.unit(link)
            with unit:
                self.assertTrue(unit.say("rpm 2345").startswith("ok"))
                self.ok(console, "menu MenuConf 1")
                self.ok(console, "press ConfSer Salva")
                self.assertEqual(self.ok(console, "state")["port"]["device"], str(link))
                self.ok(console, "wait SenzaImmagine 0 15000")
                self.ok(console, "wait FlussoAttivo -1 2000")
                self.ok(console, "run 150")
                self.assertEqual(self.ok(console, "get Grafici DatiMot(0)")["text"], "2345")
            # The device is gone with its program: silence, until another one comes.
            self.ok(console, "wait CentralinaDaRiconoscere -1 8000")
            with self.unit(link):
                self.ok(console, "wait CentralinaDaRiconoscere 0 5000")
            console.process.stdin.close()
            self.assertEqual(console.status(), 0)

    def test_erasing_a_device(self):
        link = self.home / "tty"
        with self.unit(link) as unit:
            with Console("--folder", self.folder, "--port", f"COM1={link}") as console:
                self.ok(console, "wait FlussoAttivo -1 20000")
                kept = unit.say("read O 4016 80")
                self.ok(console, "tool EEPROM_SETUP")
                self.ok(console, "press InEEPROM Inizializza")
                self.ok(console, "press InEEPROM TastoSI")
                self.ok(console, "wait StatoCmd 92 19000")
                self.ok(console, "wait StatoCmd -1 19000")
                self.assertEqual(self.ok(console, "state")["beeps"], 1)
                self.assertTrue(self.ok(console, "get InEEPROM Inizializza")["visible"])
                self.assertEqual(unit.say("read I 0 1024"), "ok data=" + "FF" * 1024)
                self.assertEqual(unit.say("read O 3072 944"), "ok data=" + "FF" * 944)
                self.assertEqual(unit.say("read O 4016 80"), kept, "the cells that say who the unit is")
                console.process.stdin.close()
                self.assertEqual(console.status(), 0)

    def test_a_value_is_stored_in_the_device(self):
        link = self.home / "tty"
        with self.unit(link) as unit, Console("--folder", self.folder, "--port", f"COM1={link}") as console:
            self.ok(console, "wait FlussoAttivo -1 15000")
            self.ok(console, "menu MenuPunto 4")
            self.ok(console, "wait StatoCmd -1 5000")
            self.assertEqual(self.ok(console, "get MessaP ValFG(0)")["text"], "6200")
            self.assertFalse(console.ask("enter MessaP ValFG(0) 100000")["text"] == "6200")
            self.assertIn("held", self.ok(console, "press MessaP InMemor"))
            self.ok(console, "enter MessaP ValFG(0) 6000")
            self.ok(console, "press MessaP InMemor")
            self.ok(console, "wait StatoCmd -1 5000")
            self.assertEqual(self.ok(console, "get MessaP FGDef(0)")["text"], "6000")
            self.assertIn("1770", unit.say("read O 3150 2"))
            self.assertIn("1770", unit.say("read R 39 2"))
            self.ok(console, "press MessaP Esci")
            self.ok(console, "wait page MessaP closed 1000")
            console.process.stdin.close()
            self.assertEqual(console.status(), 0)


def main():
    global CONSOLE, CENTRALINA
    CONSOLE = Path(sys.argv[1]).resolve()
    CENTRALINA = Path(sys.argv[2]).resolve() if len(sys.argv) > 2 and sys.argv[2] else None
    loader = unittest.TestLoader()
    suite = loader.loadTestsFromTestCase(EndToEnd)
    if CENTRALINA is not None:
        for name in ("test_the_simulated_unit_inside", "test_instruments_show_what_the_device_streams",
                     "test_erasing_a_device", "test_a_value_is_stored_in_the_device"):
            suite.addTest(RealTime(name))
    os.environ.pop("MARLOVENT_HOME", None)
    sys.exit(not unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful())


if __name__ == "__main__":
    main()
