# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a player does, seen from outside: its sound at the sink, its windows, its processes."""
import os
import re
import struct
import subprocess
import sys
import threading
import time

TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", ".."))
sys.path.insert(0, os.path.join(TOP, "tests", "desktop"))
from probing import wait_for  # noqa: E402
from sound import RATE, Sound  # noqa: E402

TICKS = os.sysconf("SC_CLK_TCK")


class Ear:
    """Listens at the desktop's sink, all the time, in pieces of ten milliseconds."""

    def __init__(self):
        self.closed = False
        self.recorder = self.record()
        self.last_loud = 0.0
        self.wanted = None  # (hertz, other hertz), or (None, None) for any sound
        self.heard_at = None
        threading.Thread(target=self.listen, daemon=True).start()

    @staticmethod
    def record():
        return subprocess.Popen(["parec", "-d", "nul.monitor", "--latency-msec=10", "--format=s16le", f"--rate={RATE}",
                                          "--channels=1", "--raw"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def listen(self):
        """The recorder ends when its sink does: another one tries until there is a sink again."""
        while not self.closed:
            self.listen_once()
            self.recorder.wait()
            if not self.closed:
                self.recorder = self.record()

    def listen_once(self):
        last = ()
        while piece := os.read(self.recorder.stdout.fileno(), 960):
            now = time.monotonic()
            samples = struct.unpack(f"<{len(piece) // 2}h", piece[:len(piece) // 2 * 2])
            last = (last + samples)[-1440:]
            if max(samples, default=0) > 100:
                self.last_loud = now
                if self.wanted and self.heard_at is None and self.is_wanted(last):
                    self.heard_at = now

    def is_wanted(self, samples):
        hertz, other = self.wanted
        return hertz is None or Sound.strength(samples, hertz) > max(30.0, 2 * Sound.strength(samples, other))

    def seconds_until(self, action, hertz=None, other=None, limit=30):
        """From the action to the first sound, or to that tone in place of the other; None after the limit."""
        self.heard_at, self.wanted = None, (hertz, other)
        begun = time.monotonic()
        action()
        wait_for(lambda: self.heard_at is not None, limit, 0.005)
        self.wanted = None
        return self.heard_at - begun if self.heard_at else None

    def silence(self, seconds=0.5, limit=30):
        return wait_for(lambda: time.monotonic() - self.last_loud > seconds, limit, 0.005)

    def close(self):
        self.closed = True
        self.recorder.terminate()
        self.recorder.wait()


class Windows:
    """Notes when a window of at least that size comes up on the screen."""

    def __init__(self, least=100):
        self.least, self.shown = least, []
        self.watch = subprocess.Popen(["stdbuf", "-oL", "xev", "-root", "-event", "substructure"], stdout=subprocess.PIPE,
                                      stderr=subprocess.DEVNULL, text=True)
        threading.Thread(target=self.listen, daemon=True).start()

    def listen(self):
        mapped = False
        for line in self.watch.stdout:
            if re.match(r"\w+ event", line):
                mapped = line.startswith("MapNotify")
            elif mapped and (window := re.search(r"window (0x[0-9a-f]+)", line)):
                self.shown.append((time.monotonic(), window[1]))
                mapped = False

    def first_since(self, begun, limit=30):
        """Seconds from `begun` until the first window of that size was mapped, None without one."""
        seen = set()

        def found():
            for when, window in list(self.shown):
                if when >= begun and window not in seen:
                    seen.add(window)
                    told = subprocess.run(["xwininfo", "-id", window], capture_output=True, text=True, check=False).stdout
                    size = re.search(r"Width: (\d+)\s+Height: (\d+)", told)
                    if size and min(int(size[1]), int(size[2])) >= self.least:
                        return when - begun
            return None
        return wait_for(found, limit, 0.02)

    def close(self):
        self.watch.terminate()
        self.watch.wait()


class Processes:
    """A process and all that it started."""

    def __init__(self, pid):
        self.pid = pid

    def all(self):
        parents = {}
        for name in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{name}/stat", encoding="utf-8", errors="replace") as file:
                    parents[int(name)] = int(file.read().rpartition(")")[2].split()[1])
            except OSError:
                pass
        found = [self.pid]
        for pid in found:
            found += [child for child, parent in parents.items() if parent == pid]
        return found

    def cpu_seconds(self):
        return sum(cpu_of(f"/proc/{pid}/stat") for pid in self.all())

    def pss_bytes(self):
        """Memory in which each shared page counts in parts."""
        total = 0
        for pid in self.all():
            try:
                with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
                    total += int(re.search(r"^Pss:\s+(\d+)", file.read(), re.MULTILINE)[1]) * 1024
            except (OSError, TypeError):
                pass
        return total

    def threads(self):
        """{(pid, thread): (name, CPU seconds, times it was woken)}"""
        found = {}
        for pid in self.all():
            try:
                names = os.listdir(f"/proc/{pid}/task")
            except OSError:
                continue
            for thread in names:
                folder = f"/proc/{pid}/task/{thread}"
                try:
                    with open(folder + "/comm", encoding="utf-8", errors="replace") as file:
                        name = file.read().strip()
                    with open(folder + "/status", encoding="utf-8", errors="replace") as file:
                        woken = int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", file.read(), re.MULTILINE)[1])
                    found[pid, int(thread)] = name, cpu_of(folder + "/stat"), woken
                except OSError:
                    pass
        return found


def cpu_of(path):
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            fields = file.read().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / TICKS
    except OSError:
        return 0.0


def over(processes, seconds):
    """What the threads did meanwhile: (CPU seconds, wake-ups a second, {name: (CPU seconds, wake-ups a second)})."""
    before = processes.threads()
    time.sleep(seconds)
    after = processes.threads()
    names = {}
    for key, (name, cpu, woken) in after.items():
        _, cpu_before, woken_before = before.get(key, (name, 0.0, 0))
        cpu_sum, woken_sum = names.get(name, (0.0, 0.0))
        names[name] = cpu_sum + cpu - cpu_before, woken_sum + (woken - woken_before) / seconds
    return sum(cpu for cpu, _ in names.values()), sum(woken for _, woken in names.values()), names
