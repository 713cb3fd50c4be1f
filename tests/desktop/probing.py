# SPDX-License-Identifier: LGPL-2.1-or-later
"""Windows programs run from here, and the probe, which reads and moves the windows of the program under test."""
import os
import subprocess
import tempfile
import time

TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
WINE = "/usr/lib/wine/wine64"
# The build under test; a program of 32 bits is watched by one of 32 bits.
BUILD = os.environ.get("LUMOTUNE_BUILD", os.path.join(TOP, "build", "windows"))
PROBE = os.path.join(BUILD, "tests", "desktop", "probe.exe")


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


def lines_of(*words):
    """What the probe prints."""
    return wine(PROBE, *words).stdout.decode("utf-8", "replace").splitlines()
