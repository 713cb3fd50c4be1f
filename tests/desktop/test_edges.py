# SPDX-License-Identifier: LGPL-2.1-or-later
"""The edges of the program: what lies beside it, what hangs around it, and a start that meets its end."""
import contextlib
import glob
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from probing import BUILD, PROBE, WINE, wait_for  # noqa: E402
from program import Program  # noqa: E402
from sound import Sound  # noqa: E402

PLANTED = os.path.join(BUILD, "tests", "desktop", "planted.dll")
# What users are promised, and what a busy machine may add to it: the click is made and the end seen by other programs.
LONGEST_END, ALLOWANCE = 6.0, 6.0


def processes(part, variable):
    """Those of this desktop whose command line holds that."""
    wanted = f"{variable}={os.environ[variable]}".encode() if variable else b""
    for folder in glob.glob("/proc/[0-9]*"):
        try:
            with open(os.path.join(folder, "cmdline"), "rb") as source:
                line = source.read()
            with open(os.path.join(folder, "environ"), "rb") as source:
                environment = source.read().split(b"\0")
        except OSError:
            continue
        if part.encode() in line and (not wanted or wanted in environment):
            yield int(os.path.basename(folder))


@contextlib.contextmanager
def hanging(*numbers):
    """Processes that answer nobody for a while, as one does that hangs."""
    assert numbers
    for number in numbers:
        os.kill(number, signal.SIGSTOP)
    try:
        yield
    finally:
        for number in numbers:
            with contextlib.suppress(ProcessLookupError):
                os.kill(number, signal.SIGCONT)


def sound_server():
    return list(processes(os.environ["PULSE_SERVER"].removeprefix("unix:"), None))


class TestEdges(Program):
    def test_libraries_beside_the_program_are_not_taken(self):
        self.desk = desk = Desk(self.folder, self.radio)
        names = ("avrt", "msimg32", "secur32", "winmm", "wininet")
        for name in names:
            shutil.copy(PLANTED, desk.path(name + ".dll"))
        # As on Windows, where a library beside the program goes before the system's unless the program says otherwise.
        before = os.environ["WINEDLLOVERRIDES"]
        os.environ["WINEDLLOVERRIDES"] = ";".join([before, *(f"{name}=n,b" for name in names)])
        try:
            desk.start()
        finally:
            os.environ["WINEDLLOVERRIDES"] = before
        def taken():
            return glob.glob(glob.escape(self.folder) + "/*.taken")

        # By the time that there is sound, everything that a listener needs has been loaded.
        wait_for(lambda: taken() or Sound.loudest() == 440)
        assert not taken(), os.listdir(self.folder)
        self.hear(440)

    def client(self):
        """The client that the program started, once its window is there to be spoken to."""
        self.until(lambda: "ready" in self.desk.log("orb").splitlines(), text=self.desk.log("orb"))
        return list(processes("orb.exe", "WINEPREFIX"))

    def ends_in_time(self):
        begun = time.monotonic()
        self.desk.click("LineMenu_End")
        assert self.desk.ended(LONGEST_END + ALLOWANCE), f"still there after {time.monotonic() - begun:.1f} s"
        print(f"ended after {time.monotonic() - begun:.1f} s", flush=True)

    def test_ends_while_the_client_hangs(self):
        desk = self.begin("20=#020:LTvolume:777")
        with hanging(*self.client()):
            self.ends_in_time()
        assert desk.options()[20] == "#020:LTvolume:100", "the settings are saved all the same"

    def test_ends_while_the_sound_server_hangs(self):
        desk = self.begin("20=#020:LTvolume:777")
        self.hear(440)
        with hanging(*sound_server()):
            self.ends_in_time()
        assert desk.options()[20] == "#020:LTvolume:100", "the settings are saved all the same"

    def test_ends_while_everything_hangs(self):
        self.begin()
        self.hear(440)
        with hanging(*sound_server(), *self.client()):
            self.ends_in_time()

    def test_a_client_that_hangs_leaves_the_window_to_its_user(self):
        desk = self.begin()
        self.hear(440)
        client = self.client()

        def listeners_then_press(caption):
            """Seconds from the question for listeners to the answer of the window to the next press."""
            desk.click("Control_ShowUser")
            begun = time.monotonic()
            desk.click("Control_Play")
            self.until(lambda: desk.text("Control_Play") == caption, text=f"no click is obeyed: {caption}")
            return time.monotonic() - begun

        answering = listeners_then_press("Zapnout")
        self.until(lambda: "lts:" in desk.log("orb"), text=desk.log("orb"))
        with hanging(*client):
            hung = listeners_then_press("Stop")
        print(f"{answering:.2f} s beside a client that answers, {hung:.2f} s beside one that hangs", flush=True)
        assert hung < answering + 1.5, "the three seconds of a message are not the user's"
        self.hear(440)

    def memory(self):
        """Of the program, in kB."""
        with open(f"/proc/{self.desk.process.pid}/status", encoding="ascii") as source:
            return int(next(line.split()[1] for line in source if line.startswith("VmRSS:")))

    def test_a_flood_of_commands_leaves_the_window_to_its_user(self):
        desk = self.begin()
        self.hear(440)
        before = self.memory()
        over = desk.path("flood.over")
        with tempfile.TemporaryFile() as out:
            flood = subprocess.Popen([WINE, PROBE, "flood", "flood.over"], cwd=desk.folder, stdin=subprocess.DEVNULL,
                                     stdout=out, stderr=subprocess.DEVNULL)
            try:
                for caption in ("Zapnout", "Stop"):
                    desk.click("Control_Play")
                    self.until(lambda: desk.text("Control_Play") == caption, text=f"no click is obeyed: {caption}")
                self.hear(440)
                assert flood.poll() is None, "the flood was over before the clicks were obeyed"
                grown = self.memory() - before
            finally:
                open(over, "wb").close()
                flood.wait(30)
            out.seek(0)
            sent, a_second = out.read().split()
        print(f"{int(sent)} commands, {int(a_second)} a second, memory grew by {grown} kB", flush=True)
        assert int(sent) > 1000 and grown < 16 * 1024

    def test_a_start_during_the_end_waits_for_it(self):
        desk = self.begin("20=#020:LTvolume:777")
        client = self.client()
        with hanging(*client):
            desk.click("LineMenu_End")
            first = desk.process
            # A start before the click is obeyed would meet a copy that runs, and show it.
            self.until(lambda: desk.options()[20] == "#020:LTvolume:100", text="the end does not begin")
            assert first.poll() is None, "the end waits for the client"
            second = subprocess.Popen([WINE, "lumotune.exe"], cwd=desk.folder, stdin=subprocess.DEVNULL,
                                      stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            assert wait_for(lambda: first.poll() is not None, LONGEST_END + ALLOWANCE)
            desk.process = second
            self.until(lambda: desk.form() is not None and desk.form().visible, text="the second start is a program of its own")
        self.hear(440)
        assert second.poll() is None


if __name__ == "__main__":
    harness.run(TestEdges)
