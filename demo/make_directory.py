#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Makes a station list of any size, the same one each time: 50,000 stations are about 10 MB.

    demo/make_directory.py --stations N --out FILE [--base ADDRESS] [--split] [--version N]

FILE is the list as the server sends it. --split puts radios.tt and kategories.tt beside it, as the program makes them.
"""
import argparse
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import directory_data  # noqa: E402


def write(path, data):
    with open(path, "wb") as out:
        out.write(data)
    print(f"make_directory: {path}: {len(data)} bytes")


def main():
    parser = argparse.ArgumentParser(description="Makes a station list of any size.")
    parser.add_argument("--stations", type=int, default=320)
    parser.add_argument("--out", required=True)
    parser.add_argument("--base", default="http://127.0.0.1:8000")
    parser.add_argument("--split", action="store_true")
    parser.add_argument("--version", type=int, default=1)
    options = parser.parse_args()
    if not 0 <= options.stations <= 1000000:
        parser.error("between 0 and 1000000 stations")
    write(options.out, directory_data.downloaded_list(options.base, options.stations, options.version))
    if options.split:
        folder = os.path.dirname(os.path.abspath(options.out))
        write(os.path.join(folder, "radios.tt"),
              directory_data.station_file(options.base, options.stations, options.version))
        write(os.path.join(folder, "kategories.tt"), directory_data.category_file())


if __name__ == "__main__":
    main()
