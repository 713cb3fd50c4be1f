# SPDX-License-Identifier: LGPL-2.1-or-later
"""The demonstration's downloader, and the programs that only tell how they were started, under Wine."""
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_folder import LIST, Folder  # noqa: E402
from directory_server_control import OwnServer  # noqa: E402
from probing import BUILD, WINE, wait_for, wine  # noqa: E402

COMPANIONS = os.path.join(BUILD, "demo", "companions")


class TestCompanions(Folder):
    def __init__(self):
        super().__init__()
        self.program = self.path("složka programu")
        shutil.copytree(COMPANIONS, self.program, ignore=lambda _, names: [name for name in names if not name.endswith(".exe")])
        self.windows = "Z:" + self.program.replace("/", "\\")
        self.server = OwnServer(self.folder, "--set", "probe_seconds=0", "--set", "seconds=0")
        os.environ["LUMOTUNE_DEMO_QUIET"] = "1"

    def tear_down(self):
        self.server.stop()
        super().tear_down()

    def load(self, address, target):
        return self.run(f"load.exe {address}/@/{target}")

    def run(self, line):
        # Word by word: Wine then hands the line on without quotation marks, as the player does.
        return wine(*line.split(" "), cwd=self.program, timeout=60).returncode

    def begin(self, line):
        return subprocess.Popen([WINE, *line.split(" ")], cwd=self.program, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def log(self, name):
        return self.read("složka programu", name + ".log").decode("utf-8").splitlines()

    def test_the_downloader_stores_the_exact_bytes(self):
        wanted = self.server.list_bytes()
        address = self.server.base + LIST
        # A folder with a blank and Czech letters, joined once with a backslash and once with a slash.
        for joint, name in (("\\", "probe.tt"), ("/", "seznam.tt")):
            assert self.load(address, self.windows + joint + name) == 0
            assert self.read("složka programu", name) == wanted
        assert self.server.requests() == [f"GET {LIST} HTTP/1.1"] * 2
        assert self.log("load")[-1] == "done"

    def test_the_file_grows_while_the_reply_arrives(self):
        self.server.set(seconds=6)
        size, path = len(self.server.list_bytes()), self.path("složka programu", "seznam.tt")
        process = self.begin(f"load.exe {self.server.base}{LIST}/@/{self.windows}/seznam.tt")
        seen = set()

        def look():
            if os.path.exists(path):
                seen.add(os.path.getsize(path))
            return process.poll() is not None
        assert wait_for(look, 40, 0.05) and process.returncode == 0
        assert max(seen) == size and len([each for each in seen if 0 < each < size]) > 10, sorted(seen)

    def test_what_fails_leaves_no_file(self):
        path = self.path("složka programu", "seznam.tt")
        for how in ("not_found", "broken", "dies"):
            self.server.set(list=how)
            assert self.load(self.server.base + LIST, self.windows + "\\seznam.tt") == 1, how
            assert not os.path.exists(path), how
        self.server.stop()
        assert self.load(self.server.base + LIST, self.windows + "\\seznam.tt") == 1
        assert not os.path.exists(path)
        assert self.load("no address", self.windows + "\\seznam.tt") == 1
        assert self.load(self.server.base + LIST, self.windows + "\\neni\\seznam.tt") == 1
        assert self.run("load.exe no separator") == 2

    def test_a_second_download_waits_for_the_first_ones_file(self):
        self.server.set(seconds=4)
        line = f"load.exe {self.server.base}{LIST}/@/{self.windows}\\seznam.tt"
        first = self.begin(line)
        assert wait_for(lambda: os.path.exists(self.path("složka programu", "seznam.tt")), 20, 0.05)
        self.server.set(seconds=0, version=2)
        assert self.run(line) == 0
        assert first.wait(20) == 0
        assert self.read("složka programu", "seznam.tt") == self.server.list_bytes()

    def test_a_companion_tells_exactly_how_it_was_started(self):
        words = "RadioOFF/@/LUMO01/@/Žlutá & spol. 100 %/@/idh/@/h/@/http://127.0.0.1"
        for name in ("OrbBrowser", "OrbRecorder", "remind", "Telvix", "explorer"):
            self.run(f"{name}.exe {words}")
            (told,) = self.log(name)
            assert told.startswith("start show="), told
            assert f" dir={self.windows} line=" in told, told
            assert told.endswith(words), told
