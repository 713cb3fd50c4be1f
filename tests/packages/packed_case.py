# SPDX-License-Identifier: LGPL-2.1-or-later
"""What every test of a package begins and ends with: a client's folder, the program in it, the registry as it was."""
import glob
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import packed  # noqa: E402
from packed import KEY, UNINSTALLER, WINE, contents, digests, setup, tree, wine  # noqa: E402
from desk import Desk  # noqa: E402
from program import Program  # noqa: E402
from sound import STATIONS  # noqa: E402

HERTZ = STATIONS[0].hertz


def with_folders(files):
    """The files, and the folders that they lie in."""
    found = dict(files)
    for path in files:
        for at, letter in enumerate(path):
            if letter == "/":
                found[path[:at + 1]] = ""
    return found


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as out:
        out.write(content)


class Unpacked(Desk):
    """A folder that something else has laid out and started."""

    def __init__(self, folder, process):  # pylint: disable=super-init-not-called
        self.folder, self.process, self.last_click = folder, process, (-100, -100)


def begin(folder, *words):
    """A Windows program that runs on."""
    return subprocess.Popen([WINE, *words], cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def opened(path):
    """Whether a process holds the file open."""
    for link in glob.glob("/proc/[0-9]*/fd/*"):
        try:
            if os.readlink(link) == path:
                return True
        except OSError:
            continue
    return False


class Packages(Program):
    def __init__(self):
        super().__init__()
        self.folder = os.path.join(os.path.dirname(self.folder), "Můj klient Orb, žluťoučký")
        self.client = None
        wine("reg", "delete", KEY, "/f")
        if packed.shortcut():
            os.remove(packed.shortcut())

    def tear_down(self):
        if self.client is not None:
            wine("taskkill", "/f", "/im", "orb.exe")
            self.client.wait()
        super().tear_down()

    def lay_out(self):
        """A client that was never told of Lumotune, with the listener's files; what lies there."""
        self.desk = Desk(self.folder, self.radio)
        for name in ("skins", "pictures"):
            shutil.rmtree(self.desk.path("Orb_Data", name))
        os.remove(self.desk.path("lumotune.exe"))
        return tree(self.folder)

    def install(self):
        before = self.lay_out()
        assert setup(self.windows_folder()) == 0
        return before

    def program_files(self):
        return with_folders({**digests(contents("portable.zip")), UNINSTALLER: tree(self.folder).get(UNINSTALLER)})

    def start_client(self):
        self.client = begin(self.folder, "orb.exe", "m")
        self.until(lambda: "ready" in self.desk.log("orb").splitlines())

    def says(self, text):
        """A window of the installer, or a box of it."""
        self.until(lambda: any(text in part for box in self.desk.boxes() for part in box), 120, text)

    def plays(self):
        self.desk.start()
        self.hear(HERTZ)
