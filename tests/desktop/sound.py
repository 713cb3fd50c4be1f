# SPDX-License-Identifier: LGPL-2.1-or-later
"""What is heard: the sound sink of the test's desktop."""
import array
import math
import os
import subprocess
import sys

from probing import TOP

sys.path.insert(0, os.path.join(TOP, "demo"))
from stations import STATIONS  # noqa: E402

RATE = 48000


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
