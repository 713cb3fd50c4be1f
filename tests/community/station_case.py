# SPDX-License-Identifier: LGPL-2.1-or-later
"""For the tests of tools/make-stations: made stations in every form of file, and a folder that the tool writes."""
import csv
import io
import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

from community import TOP, Program

TOWNS = "Břeclav Žďár Třeboň Kroměříž Děčín Ústí Říčany Český Krumlov Písek Šumperk Jeseník Ďáblice Ťapkov Ňuchov Úhonice".split()
COUNTRIES = (("CZ", "Česko"), ("SK", "Slovensko"), ("PL", "Polsko"), ("DE", "Německo"))
TAGS = (("pop,hits", "01"), ("news", "06"), ("Klasická hudba", "04"), ("", "99"))


def made(number):
    """The station of that number as a source tells it, and what the list must say of it."""
    code, country = COUNTRIES[number % len(COUNTRIES)]
    tags, genre = TAGS[number % len(TAGS)]
    return {"name": f"Rádio {TOWNS[number % len(TOWNS)]} {number}", "url": f"http://proud{number}.example.com:8000/živě.mp3",
            "bitrate": (64, 128, 192, 320)[number % 4], "countrycode": code, "country": country, "tags": tags, "genre": genre,
            "homepage": f"https://www.radio{number}.example.com/", "stationuuid": f"u-{number}"}


def heard(station):
    return station["url"].replace("živě", "%C5%BEiv%C4%9B")


def m3u(stations):
    return "#EXTM3U\n" + "".join(f'#EXTINF:-1 tvg-id="{s["stationuuid"]}" tvg-country="{s["countrycode"]}" group-title="{s["tags"]}"'
                                 f',{s["name"]} ({s["bitrate"]} kbps)\n{s["url"]}\n' for s in stations)


def pls(stations):
    return "[playlist]\n" + "".join(f"File{n}={s['url']}\nTitle{n}={s['name']} ({s['bitrate']}k)\nLength{n}=-1\n"
                                    for n, s in enumerate(stations, 1)) + f"NumberOfEntries={len(stations)}\nVersion=2\n"


def table(stations, delimiter=";"):
    out = io.StringIO()
    writer = csv.DictWriter(out, ("name", "url", "bitrate", "countrycode", "tags", "homepage", "stationuuid"), delimiter=delimiter,
                            extrasaction="ignore", quoting=csv.QUOTE_NONNUMERIC)
    writer.writeheader()
    writer.writerows(stations)
    return out.getvalue()


def export(stations):
    return json.dumps([{**s, "favicon": "", "lastcheckok": 1, "nested": {"a": [1]}} for s in stations], ensure_ascii=False)


FORMS = {"m3u": m3u, "pls": pls, "csv": table, "json": export}


class Case(unittest.TestCase):
    program = None

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="make-stations-")
        self.addCleanup(shutil.rmtree, self.folder)

    def path(self, name):
        return os.path.join(self.folder, name)

    def put(self, name, content):
        with open(self.path(name), "wb") as out:
            out.write(content if isinstance(content, bytes) else content.encode("utf-8"))
        return self.path(name)

    def run_tool(self, *words, wanted=0):
        done = subprocess.run([sys.executable, os.path.join(TOP, "tools", "make-stations"), "--out", self.path("out"), *words],
                              capture_output=True, encoding="utf-8", timeout=600)
        self.assertNotIn("Traceback", done.stderr)
        self.assertEqual(done.returncode, wanted, done.stdout + done.stderr)
        return done.stdout + done.stderr

    def records(self, name="radios.tt"):
        """{identifier: fields}"""
        with open(self.path("out/" + name), "rb") as source:
            lines = source.read().decode("cp1250").split("\r\n")
        return {line[:6]: line.split("/@/") for line in lines if line and not line.startswith(("orb:", "<end>"))}

    def by_name(self):
        return {fields[1]: fields for fields in self.records().values()}

    def ask(self, *questions):
        return self.program.of_list(self.path("out/seznam.tt"), *questions)

    def same_as_converted(self):
        """The two files are what the program itself makes of the list."""
        _, answers = self.ask(f"stations {self.path('out/radios.tt')}", f"categories {self.path('out/kategories.tt')}")
        self.assertEqual(answers, ["same", "same"])

    def written(self, name):
        with open(self.path("out/" + name), "rb") as source:
            return source.read()


def main():
    """For a test of its own: TEST LIST_CHECK [NAME...]"""
    if len(sys.argv) < 2:
        sys.exit("the program list_check is wanted")
    Case.program = Program(sys.argv.pop(1))
    unittest.main()
