# SPDX-License-Identifier: LGPL-2.1-or-later
"""The demonstration's package: somebody unpacks it and starts spustit.exe."""
import glob
import os
import shutil
import socket
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from packed import unpack  # noqa: E402
from probing import PROBE, TOP, WINE, lines_of, wait_for, wine  # noqa: E402
from sound import STATIONS, Sound  # noqa: E402

USUAL_PORT = 47800
GROUP = os.path.join(TOP, "build", "desktop", "packed-demo")
UNPACKED = os.path.join(GROUP, "rozbaleno")


def running(part):
    """Programs of this desktop whose command line holds that."""
    found = []
    for folder in glob.glob("/proc/[0-9]*"):
        try:
            with open(os.path.join(folder, "cmdline"), "rb") as line, open(os.path.join(folder, "environ"), "rb") as environment:
                if part.encode() in line.read() and os.fsencode(os.environ["WINEPREFIX"]) in environment.read():
                    found.append(folder)
        except OSError:
            continue
    return found


class TestPackedDemo:
    def __init__(self):
        if not os.path.isdir(UNPACKED):
            unpack("demo", UNPACKED)
        self.folder = os.path.join(GROUP, "ukázka s mezerou")
        shutil.rmtree(self.folder, ignore_errors=True)
        shutil.copytree(UNPACKED, self.folder)
        self.process = None

    def tear_down(self):
        if self.process is not None and self.process.poll() is None:
            wine(PROBE, "close")
            if not wait_for(lambda: self.process.poll() is not None):
                self.process.kill()

    def start(self):
        self.process = subprocess.Popen([WINE, "spustit.exe"], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)

    def address(self):
        with open(os.path.join(self.folder, "lumotune", "Orb_Data", "orb_server.tt"), encoding="cp1250") as source:
            return source.read().partition("OrbServerAddr::")[2].split()[0]

    @staticmethod
    def plays():
        assert wait_for(lambda: Sound.loudest() == STATIONS[0].hertz), f"{STATIONS[0].hertz} Hz expected, {Sound.loudest()} heard"

    def test_it_plays_and_the_radio_ends_after_it(self):
        self.start()
        self.plays()
        assert running("demo_radio.exe")
        wine(PROBE, "close")
        assert wait_for(lambda: self.process.poll() is not None) and self.process.returncode == 0
        assert wait_for(lambda: not running("demo_radio.exe")), "the radio goes on"

    def test_a_port_that_is_taken_is_replaced(self):
        with socket.socket() as other:
            other.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
            other.bind(("127.0.0.1", USUAL_PORT))
            other.listen()
            self.start()
            self.plays()
        assert self.address() != f"http://127.0.0.1:{USUAL_PORT}"
        with open(os.path.join(self.folder, "lumotune", "radios.tt"), encoding="cp1250") as source:
            text = source.read()
        assert self.address() + STATIONS[0].path(1) in text and f":{USUAL_PORT}/" not in text

    def test_the_radio_ends_whatever_ends_the_start(self):
        self.start()
        self.plays()
        wine("taskkill", "/f", "/im", "spustit.exe")
        assert wait_for(lambda: not running("demo_radio.exe")), "the radio goes on"
        assert running("lumotune.exe"), "the program is not touched"

    def test_beside_a_lumotune_that_runs_it_says_so(self):
        self.start()
        self.plays()
        other = subprocess.Popen([WINE, "spustit.exe"], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL)
        try:
            assert wait_for(lambda: any("Lumotune už běží" in line for line in lines_of("boxes"))), lines_of("boxes")
            assert wine(PROBE, "press", "OK").returncode == 0
            assert wait_for(lambda: other.poll() is not None)
        finally:
            other.kill()
        assert Sound.loudest() == STATIONS[0].hertz, "the first one is not disturbed"

    def test_a_folder_that_is_not_whole_says_so(self):
        os.remove(os.path.join(self.folder, "radio", "odpovedi.bin"))
        self.start()
        assert wait_for(lambda: any("rádio se nepodařilo" in line for line in lines_of("boxes"))), lines_of("boxes")
        wine(PROBE, "press", "OK")
        assert wait_for(lambda: self.process.poll() is not None)
        assert not running("demo_radio.exe")


if __name__ == "__main__":
    shutil.rmtree(UNPACKED, ignore_errors=True)
    harness.run(TestPackedDemo)
