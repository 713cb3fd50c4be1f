# SPDX-License-Identifier: LGPL-2.1-or-later
"""Drives the real program from outside: its folder, its process, its windows, the mouse, the keyboard and the sound.

Runs inside tests/rig/with_rig, which gives the display, the Wine prefix and the sound sink.
"""
import array
import math
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import typing

TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
WINE = "/usr/lib/wine/wine64"
PROBE = os.path.join(TOP, "build", "windows", "tests", "desktop", "probe.exe")
RATE = 48000
sys.path.insert(0, os.path.join(TOP, "demo"))
from stations import STATIONS  # noqa: E402


def wait_for(what, seconds=30.0, every=0.1):
    """The first true answer of `what`, or what it last answered when the time is over."""
    end = time.monotonic() + seconds
    while True:
        answer = what()
        if answer or time.monotonic() > end:
            return answer
        time.sleep(every)


class Answer:
    def __init__(self, returncode, stdout):
        self.returncode, self.stdout = returncode, stdout


def wine(*words, cwd=None, timeout=30):
    """Runs a Windows program to its end. Its output goes by way of a file: Wine's background processes, where this one
    happens to start them, would keep a pipe open for ever."""
    with tempfile.TemporaryFile() as out:
        done = subprocess.run([WINE, *words], cwd=cwd, stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.DEVNULL,
                              timeout=timeout, check=False)
        out.seek(0)
        return Answer(done.returncode, out.read())


class Control:
    def __init__(self, row):
        (self.name, self.kind, visible, enabled, focus, left, top, width, height, self.text, topmost) = row
        self.visible, self.enabled, self.focus, self.topmost = (value == "1" for value in (visible, enabled, focus, topmost))
        self.left, self.top, self.width, self.height = (int(value) for value in (left, top, width, height))

    @property
    def middle(self):
        return self.left + self.width // 2, self.top + self.height // 2


class Row(typing.NamedTuple):
    place: tuple
    text: str
    country: str


class Node(typing.NamedTuple):
    place: tuple
    depth: int
    selected: bool
    text: str


class Radio:
    """The demonstration radio; a port of 0 takes a free one, which it keeps when it comes back."""

    def __init__(self, folder):
        self.folder, self.port, self.process = folder, 0, None
        self.start()

    def start(self):
        port_file = os.path.join(self.folder, "port")
        if os.path.exists(port_file):
            os.remove(port_file)
        self.process = subprocess.Popen(
            [sys.executable, os.path.join(TOP, "demo", "demo_radio"), "--audio", os.path.join(TOP, "build", "demo-audio"),
             "--port", str(self.port), "--port-file", port_file], stdout=subprocess.DEVNULL)
        if not wait_for(lambda: os.path.exists(port_file), 120):
            raise RuntimeError("the demonstration radio does not start")
        with open(port_file, encoding="ascii") as source:
            self.port = int(source.read())

    def stop(self):
        """At once, as when a machine falls over."""
        self.process.kill()
        self.process.wait()

    def address(self, path):
        return f"http://127.0.0.1:{self.port}{path}"


class Desk:
    """One program folder and the program that runs in it."""

    def __init__(self, folder, radio, options=()):
        self.folder, self.radio, self.process = folder, radio, None
        self.last_click = (-100, -100)
        shutil.rmtree(folder, ignore_errors=True)
        words = [sys.executable, os.path.join(TOP, "demo", "layout"), folder, "--port", str(radio.port), "--fresh"]
        for option in options:
            words += ["--option", option]
        subprocess.run(words, check=True, stdout=subprocess.DEVNULL)
        os.environ["LUMOTUNE_DEMO_QUIET"] = "1"

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def start(self, *arguments, wait=True):
        self.process = subprocess.Popen([WINE, "lumotune.exe", *arguments], cwd=self.folder, stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if wait and not wait_for(lambda: self.form() is not None and self.form().visible):
            raise RuntimeError("the main window does not appear")

    def second(self, *arguments):
        return wine("lumotune.exe", *arguments, cwd=self.folder)

    def controls(self, window="Lumotune"):
        lines = wine(PROBE, "controls", window).stdout.decode("utf-8", "replace").splitlines()
        rows = [line.split("\t") for line in lines]
        return {row[0]: Control(row) for row in rows if len(row) == 11}

    def form(self):
        return self.controls().get("Form")

    def text(self, name):
        control = self.controls().get(name)
        return control.text if control else None

    def visible(self, name):
        control = self.controls().get(name)
        return control is not None and control.visible

    def items(self):
        return wine(PROBE, "items").stdout.decode("utf-8").splitlines()

    def boxes(self):
        return [line.split("\t") for line in wine(PROBE, "boxes").stdout.decode("utf-8").splitlines()]

    def press(self, caption):
        return wine(PROBE, "press", caption).returncode == 0

    def rows(self):
        """The directory's list: Row(place, text, country)."""
        lines = wine(PROBE, "rows").stdout.decode("utf-8", "replace").splitlines()
        parts = [line.split("\t") for line in lines]
        return [Row((int(row[0]), int(row[1])), row[2], row[3]) for row in parts if len(row) == 4]

    def nodes(self):
        """The directory's tree: Node(place, depth, selected, text); a place of (-1, -1) is folded away."""
        lines = wine(PROBE, "nodes").stdout.decode("utf-8", "replace").splitlines()
        parts = [line.split("\t") for line in lines]
        return [Node((int(row[0]), int(row[1])), int(row[2]), row[3] == "1", row[4]) for row in parts if len(row) == 5]

    def selected_row(self):
        return int(wine(PROBE, "selected").stdout.decode() or 0)

    def favourite_place(self, index):
        return tuple(int(value) for value in wine(PROBE, "item", str(index)).stdout.decode().split())

    def menus(self):
        """The places of the open menus: (left, top, width, height)."""
        return [tuple(int(value) for value in line.split()) for line in wine(PROBE, "menus").stdout.decode().splitlines()]

    def app_command(self, number):
        """A special key of the keyboard; whether the program took it."""
        return wine(PROBE, "command", str(number)).returncode == 0

    def maximize(self, window):
        wine(PROBE, "state", window, "x")

    def minimize(self, window):
        wine(PROBE, "state", window, "n")

    def restore(self, window):
        wine(PROBE, "state", window, "r")

    def close_window(self, window):
        wine(PROBE, "close", window)

    def click(self, name, button=1, times=1, window="Lumotune"):
        self.click_at(self.controls(window)[name].middle, button, times)

    def click_at(self, place, button=1, times=1):
        """Two clicks in a row at one place would be a double click: the second one goes some pixels aside."""
        x, y = place
        if abs(x - self.last_click[0]) < 5 and abs(y - self.last_click[1]) < 5:
            x += 6
        self.last_click = x, y
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "80", str(button)],
                       check=True)

    @staticmethod
    def key(*names):
        subprocess.run(["xdotool", "key", "--delay", "120", *names], check=True)

    @staticmethod
    def type(text):
        subprocess.run(["xdotool", "type", "--delay", "30", text], check=True)

    def keyboard_at(self, window="Lumotune"):
        """The name of the control that has the keyboard; nothing for none."""
        return next((name for name, control in self.controls(window).items() if control.focus and name != "Form"), None)

    def tab(self, window="Lumotune"):
        """To the next control; where the keyboard is then."""
        before = self.keyboard_at(window)
        self.key("Tab")
        wait_for(lambda: self.keyboard_at(window) not in (before, None))
        return self.keyboard_at(window)

    def tab_to(self, name):
        for _ in range(20):
            if self.keyboard_at() == name:
                return
            self.tab()
        raise RuntimeError(f"Tab does not reach {name}")

    def in_menu(self, *keys):
        """Chooses from the menu that was just opened, once it is there. What it starts may still be on its way."""
        if not wait_for(self.menus):
            raise RuntimeError("no menu opens")
        self.key(*keys)
        if not wait_for(lambda: not self.menus()):
            raise RuntimeError("the menu stays open")

    def into_box(self, text, look=None):
        """Types into the input box, once it waits for that; what is typed can be looked at before it is sent."""
        def field():
            return self.controls("InputBox").get("Text")
        if not wait_for(lambda: (box := field()) and box.focus and not box.text):
            raise RuntimeError("no input box waits for a text")
        self.type(text)
        if not wait_for(lambda: (box := field()) and box.text == text):
            raise RuntimeError(f"{field().text!r} instead of {text!r} in the input box")
        if look:
            look()
        self.key("Return")

    def send(self, text):
        """One command from another program; whether it was answered."""
        if wine("orb.exe", "--send", text, cwd=self.folder).returncode == 0:
            return True
        print("send failed: " + " / ".join(self.log("orb").splitlines()[-2:]), flush=True)
        return False

    def log(self, program):
        try:
            with open(self.path(program + ".log"), encoding="utf-8") as source:
                return source.read()
        except OSError:
            return ""

    def options(self):
        with open(self.path("Orb_Data", "options.ini"), encoding="cp1250", newline="") as source:
            return source.read().split("\r\n")

    def ended(self, seconds=30):
        return wait_for(lambda: self.process.poll() is not None, seconds)

    def close(self):
        """Ends the program and its companions, by the ways that they know."""
        if self.process is not None and self.process.poll() is None:
            wine(PROBE, "close")
            if not self.ended():
                self.process.send_signal(signal.SIGKILL)
        for program in ("lumotune.exe", "orb.exe"):
            wine("taskkill", "/f", "/im", program)
        self.process = None


def picture(path):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    subprocess.run(["import", "-window", "root", path], check=True)


class Sound:
    """What the sink plays, mono samples."""

    @staticmethod
    def record(seconds):
        recorder = subprocess.Popen(["parec", "-d", "nul.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1",
                                     "--latency-msec=20"], stdout=subprocess.PIPE)
        data = recorder.stdout.read(int(seconds * RATE) * 2)
        recorder.terminate()
        recorder.wait()
        return array.array("h", data)

    @staticmethod
    def level(samples):
        return math.sqrt(sum(value * value for value in samples) / max(1, len(samples)))

    @staticmethod
    def strength(samples, hertz):
        """How much of that tone there is."""
        turn = 2 * math.cos(2 * math.pi * hertz / RATE)
        one = two = 0.0
        for value in samples:
            one, two = value + turn * one - two, one
        return math.sqrt(max(0.0, one * one + two * two - turn * one * two)) / max(1, len(samples))

    @classmethod
    def loudest(cls, seconds=0.6):
        """The tone of the demonstration's stations that is heard, in hertz; 0 for silence."""
        samples = cls.record(seconds)
        if cls.level(samples) < 20:
            return 0
        return max((station.hertz for station in STATIONS), key=lambda hertz: cls.strength(samples, hertz))
