# SPDX-License-Identifier: LGPL-2.1-or-later
"""What every test of the real program begins and ends with."""
import os
import re
import subprocess
import sys

from desk import Desk, Radio
from probing import TOP, wait_for
from sound import STATIONS, Sound

CHECK_VALUE = "0123456789abcdef"
IDENTITY = f"idh=demo-uzivatel&h={CHECK_VALUE}"
# How a program's window is shown.
NORMAL, MINIMIZED, WITHOUT_FOCUS = 1, 2, 4
BY_ID = {station.identifier: station for station in STATIONS}


class Program:
    def __init__(self):
        # Of its own for each group of tests: they run side by side.
        group = os.path.splitext(os.path.basename(sys.argv[0]))[0]
        folder = os.path.join(TOP, "build", "desktop", group)
        os.makedirs(folder, exist_ok=True)
        self.radio = Radio(folder)
        self.folder = os.path.join(folder, "složka programu")
        self.desk = None

    def tear_down(self):
        if self.desk is not None:
            self.desk.close()
        self.radio.stop()

    def begin(self, *options, arguments=(), wait=True):
        self.desk = Desk(self.folder, self.radio, options)
        self.desk.start(*arguments, wait=wait)
        return self.desk

    @staticmethod
    def hear(hertz, seconds=30):
        assert wait_for(lambda: Sound.loudest() == hertz, seconds), f"{hertz} Hz expected, {Sound.loudest()} heard"

    @staticmethod
    def until(what, seconds=30, text=""):
        assert wait_for(what, seconds), text

    def log_has(self, program, part, seconds=30):
        """A companion of the client was started with that in its command line, or heard of it."""
        self.until(lambda: part in self.desk.log(program), seconds, f"{part!r} not in {program}: {self.desk.log(program)}")

    def started(self, program, line, show, seconds=30):
        """A companion of the client was started with exactly that command line, in the program's folder and so shown."""
        wanted = f"start show={show} dir={self.windows_folder()} line={line}"
        self.until(lambda: wanted in self.desk.log(program).splitlines(), seconds,
                   f"{wanted!r} not in {program}: {self.desk.log(program)}")

    def windows_folder(self):
        return "Z:" + self.folder.replace("/", "\\")

    def login(self, page=""):
        """The login page's address for the demonstration's account."""
        def swapped(text):
            return "".join(text[at:at + 2][::-1] for at in range(0, len(text), 2))

        def codes(text):
            return "".join(f"{ord(letter)}-" for letter in swapped(text))

        token = swapped(codes(swapped(codes(CHECK_VALUE))))
        return self.radio.address(f"/login/demo-uzivatel/{token}/{page}/1")

    def box(self, text, button="OK"):
        """A message box says that; it is closed by that button."""
        self.until(lambda: any(text in part for box in self.desk.boxes() for part in box), 30, f"{text!r}: {self.desk.boxes()}")
        assert self.desk.press(button)
        self.until(lambda: not any(text in part for box in self.desk.boxes() for part in box), 30, "the box closes")

    @staticmethod
    def tray_icon():
        """The middle of the icon in the notification area, None without one."""
        tree = subprocess.run(["xwininfo", "-root", "-tree"], capture_output=True, text=True, check=True).stdout
        found = re.findall(r'"explorer\.exe".*?\s2\dx2\d\+\d+\+\d+\s+\+(\d+)\+(\d+)', tree)
        return tuple(int(value) + 10 for value in found[-1]) if found else None
