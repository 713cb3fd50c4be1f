# SPDX-License-Identifier: LGPL-2.1-or-later
"""Drives the real program from outside: its folder, its process, its windows, the mouse and the keyboard.

Runs inside tests/rig/with_rig, which gives the display, the Wine prefix and the sound sink.
"""
import os
import shutil
import signal
import subprocess
import sys
import typing

from open_menus import OpenMenus
from probing import BUILD, PROBE, TOP, WINE, lines_of, wait_for, wine


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


class Desk(OpenMenus):
    """One program folder and the program that runs in it."""

    def __init__(self, folder, radio, options=()):
        self.folder, self.radio, self.process = folder, radio, None
        self.last_click = (-100, -100)
        shutil.rmtree(folder, ignore_errors=True)
        words = [sys.executable, os.path.join(TOP, "demo", "layout"), folder, "--port", str(radio.port), "--fresh",
                 "--build", BUILD]
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
        rows = [line.split("\t") for line in lines_of("controls", window)]
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
        return lines_of("items")

    def boxes(self):
        return [line.split("\t") for line in lines_of("boxes")]

    def press(self, caption):
        return wine(PROBE, "press", caption).returncode == 0

    def rows(self):
        """The directory's list: Row(place, text, country)."""
        parts = [line.split("\t") for line in lines_of("rows")]
        return [Row((int(row[0]), int(row[1])), row[2], row[3]) for row in parts if len(row) == 4]

    def nodes(self):
        """The directory's tree: Node(place, depth, selected, text); a place of (-1, -1) is folded away."""
        parts = [line.split("\t") for line in lines_of("nodes")]
        return [Node((int(row[0]), int(row[1])), int(row[2]), row[3] == "1", row[4]) for row in parts if len(row) == 5]

    def selected_row(self):
        return int(wine(PROBE, "selected").stdout.decode() or 0)

    def favourite_place(self, index):
        return tuple(int(value) for value in wine(PROBE, "item", str(index)).stdout.decode().split())

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
