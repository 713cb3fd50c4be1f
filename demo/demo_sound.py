# SPDX-License-Identifier: LGPL-2.1-or-later
"""The sound of the demonstration's stations: made by ffmpeg, the same bytes each time."""
import os
import subprocess

from stations import STATIONS

LOOP_SECONDS = 24
TYPES = {"mp3": "audio/mpeg", "aac": "audio/aac", "ogg": "audio/ogg"}


def melody(hertz):
    """A calm chord whose first tone is the loudest, swelling slowly."""
    parts = [f"0.32*sin(2*PI*{hertz}*t)", f"0.10*sin(2*PI*{hertz * 1.25:.2f}*t)*(0.6+0.4*sin(2*PI*0.25*t))",
             f"0.10*sin(2*PI*{hertz * 1.5:.2f}*t)*(0.6-0.4*sin(2*PI*0.25*t))"]
    return f"aevalsrc='{'+'.join(parts)}':s=44100:d={LOOP_SECONDS}"


def make_audio(folder):
    os.makedirs(folder, exist_ok=True)
    codecs = {"mp3": ["-c:a", "libmp3lame"], "aac": ["-c:a", "aac", "-f", "adts"],
              "ogg": ["-c:a", "libvorbis", "-f", "ogg"]}
    for station in STATIONS:
        for quality, rate in enumerate(station.bit_rates, 1):
            path = os.path.join(folder, station.path(quality)[1:])
            if os.path.exists(path):
                continue
            print(f"demo_radio: making {os.path.basename(path)}", flush=True)
            made = f"{path}.new{os.getpid()}"  # two radios may start at once
            subprocess.run(["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", melody(station.hertz), "-ac", "2",
                            *codecs[station.format], "-b:a", f"{rate}k", "-map_metadata", "-1",
                            "-fflags", "+bitexact", "-flags:a", "+bitexact", "-f",
                            {"mp3": "mp3", "aac": "adts", "ogg": "ogg"}[station.format], made], check=True)
            os.replace(made, path)
