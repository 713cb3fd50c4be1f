#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes what the small radio (demo/radio/) answers with: demo/export_radio.py FOLDER [--audio FOLDER]

The replies of directory_server.py become odpovedi.tsv and odpovedi.bin, whose form demo/radio/programme.h describes. With
--audio the sound that demo_radio made there is copied too.
"""
import argparse
import os
import shutil
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import demo_sound  # noqa: E402
import directory_data  # noqa: E402
import directory_server  # noqa: E402
import pages  # noqa: E402
from stations import STATIONS  # noqa: E402

ADDRESS = "{RADIO}"  # in place of the radio's own
HTML = "text/html; charset=utf-8"
TEXT = "text/plain; charset=utf-8"
VERSION = 1
PAGES = ("/", "/index.html", "/faq", directory_data.ADVERT_PATH, "/orb/diskuze.php", "/orb/melodeon.php",
         "/lumotune.brelt/user_lt_add.php", "/lumotune.brelt/novinky.php", "/novinky.php")


def replies(count):
    """(kind, key, type, body, milliseconds) of everything that the directory's server answers."""
    seconds = float(directory_server.SETTINGS["seconds"][0])
    yield "list", directory_server.LIST_PATH, TEXT, directory_data.downloaded_list(ADDRESS, count), int(seconds * 1000)
    yield "reply", directory_server.REPORT_PATH, TEXT, b"lt:ok\r\n", 0
    yield "prefix", "/login/", HTML, pages.login("/login/").encode(), 0
    for path in PAGES:
        yield "reply", path, HTML, pages.page(path, {}, count, VERSION).encode(), 0
    for entry in directory_data.entries(count, VERSION):
        name = entry.identifier.lower()
        yield "reply", f"/radio/{name}", HTML, pages.station(name, count, VERSION).encode(), 0
        yield "reply", f"/orb/diskuze.php?tid={name}", HTML, pages.discussion({"tid": name}, count, VERSION).encode(), 0


def streams():
    for station in STATIONS:
        for quality, rate in enumerate(station.bit_rates, 1):
            path = station.path(quality)
            yield ("stream", path, demo_sound.TYPES[station.format], path[1:], str(demo_sound.LOOP_SECONDS * 1000), str(rate), station.name,
                   "|".join(station.titles))


def write(folder, count=int(directory_server.SETTINGS["stations"][0])):
    os.makedirs(folder, exist_ok=True)
    rows, offset = list(streams()), 0
    with open(os.path.join(folder, "odpovedi.bin"), "wb") as out:
        for kind, key, content_type, body, milliseconds in replies(count):
            rows.append((kind, key, content_type, str(offset), str(len(body)), str(milliseconds)))
            out.write(body)
            offset += len(body)
    with open(os.path.join(folder, "odpovedi.tsv"), "w", encoding="utf-8", newline="\n") as out:
        for row in rows:
            assert not any("\t" in cell or "\n" in cell for cell in row), row
            out.write("\t".join(row) + "\n")


def copy_sound(audio, folder):
    os.makedirs(os.path.join(folder, "zvuk"), exist_ok=True)
    for row in streams():
        shutil.copyfile(os.path.join(audio, row[3]), os.path.join(folder, "zvuk", row[3]))


def main():
    parser = argparse.ArgumentParser(description="Writes what the small radio answers with.")
    parser.add_argument("folder")
    parser.add_argument("--audio")
    options = parser.parse_args()
    write(options.folder)
    if options.audio:
        copy_sound(options.audio, options.folder)
    print(f"export_radio: {options.folder} is ready")


if __name__ == "__main__":
    main()
