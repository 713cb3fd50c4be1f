# SPDX-License-Identifier: LGPL-2.1-or-later
"""What the machine can do while a station plays well: MACHINE_FAULTS, by its name. For a desktop of tests/rig.

`begin` and `end` get the process number of the program; `seconds` lie between them. `frozen`: the program cannot answer meanwhile.
"""
import os
import signal
import subprocess
import typing

NULL_SINK = "module-null-sink"


class MachineFault(typing.NamedTuple):
    description: str
    begin: typing.Callable
    end: typing.Callable
    seconds: float
    frozen: bool = False
    recovers: bool = True
    ends_patience: bool = False


def pactl(*words):
    return subprocess.run(["pactl", *words], check=True, capture_output=True, text=True, timeout=20).stdout


def sound_server():
    """The process number of this desktop's own."""
    socket = os.environ["PULSE_SERVER"].removeprefix("unix:")
    for number in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{number}/cmdline", "rb") as source:
                words = os.fsdecode(source.read())
        except OSError:
            continue
        if words.startswith("pulseaudio") and socket in words:
            return int(number)
    raise RuntimeError("no sound server")


def stop_sound_server(_):
    os.kill(sound_server(), signal.SIGSTOP)


def continue_sound_server(_):
    os.kill(sound_server(), signal.SIGCONT)


class Sink:
    """The desktop's only sound device."""
    arguments = []

    def take_away(self, _):
        for line in pactl("list", "short", "modules").splitlines():
            number, name, *words = line.split("\t")
            if name == NULL_SINK and "sink_name=nul" in words[0].split():
                self.arguments = words[0].split()
                pactl("unload-module", number)

    def bring_back(self, _):
        pactl("load-module", NULL_SINK, *self.arguments)


def make_another_default(_):
    if "\tother\t" not in pactl("list", "short", "sinks"):
        pactl("load-module", NULL_SINK, "sink_name=other")
    pactl("set-default-sink", "other")


def make_first_default(_):
    pactl("set-default-sink", "nul")


def freeze(program):
    os.kill(program, signal.SIGSTOP)


def wake(program):
    os.kill(program, signal.SIGCONT)


SINK = Sink()
MACHINE_FAULTS = {
    "sound-server-hung": MachineFault("the sound server does not answer for 6 s", stop_sound_server, continue_sound_server, 6),
    "sound-server-hung-long": MachineFault("the sound server does not answer for 25 s", stop_sound_server, continue_sound_server, 25),
    "device-away": MachineFault("the only sound device goes away and comes back after 5 s", SINK.take_away, SINK.bring_back, 5),
    "device-away-long": MachineFault("the only sound device goes away and comes back after 25 s", SINK.take_away, SINK.bring_back, 25),
    "default-device-changed": MachineFault("another sound device becomes the default one, then the first again",
                                           make_another_default, make_first_default, 5),
    "asleep": MachineFault("nothing of the program runs for 5 s, as in a short sleep of the machine", freeze, wake, 5, frozen=True),
    "asleep-long": MachineFault("nothing of the program runs for 40 s, as in a sleep of the machine", freeze, wake, 40, frozen=True),
}
