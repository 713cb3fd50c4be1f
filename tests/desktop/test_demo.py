# SPDX-License-Identifier: LGPL-2.1-or-later
"""The demonstration by itself: its directory, the folder that is laid out, its servers and its companions."""
import os
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from demo_folder import COUNT, TOP, Folder, text_lines  # noqa: E402
from test_demo_companions import TestCompanions  # noqa: E402
from test_demo_server import TestRadio, TestServer  # noqa: E402
import directory_data  # noqa: E402
from stations import STATIONS  # noqa: E402

BASE = "http://127.0.0.1:8000"
FIELDS = 17


def kinds(lines):
    """The list's lines by their prefix, as the program sorts them."""
    found = {"orb:k:": [], "orb:i:": [], "orb:r:": [], "": []}
    for line in lines:
        if line and line != "<end>":
            key = line[:6].lower() if line[:6].lower() in found else ""
            found[key].append(line[len(key):])
    return found


class TestDirectoryData(Folder):
    def setting(self):
        lines = text_lines(directory_data.downloaded_list(BASE, COUNT))
        assert lines[-1] == "<end>"
        return kinds(lines)

    def test_every_record_is_whole(self):
        records = [line.split("/@/") for line in self.setting()[""]]
        assert len(records) == COUNT >= 300
        assert all(len(record) in (FIELDS, FIELDS + 1) for record in records)
        assert any(len(record) == FIELDS + 1 and record[FIELDS] for record in records)
        assert all(len(record[0]) == 6 and record[1] for record in records)
        assert len({record[0].lower() for record in records}) == COUNT
        assert len({record[1] for record in records}) == COUNT, "two stations bear one name"
        for record in records:
            for quality in range(5):
                address, rate = record[6 + quality], record[11 + quality]
                assert bool(address) == bool(rate), record
                # An address really plays, in the rate that is told.
                assert not address or f"-{rate}." in address and directory_data.hertz_of(address)

    def test_every_kind_of_station_is_there(self):
        records = [line.split("/@/") for line in self.setting()[""]]
        offers = {tuple(bool(rate) for rate in record[11:16]) for record in records}
        assert all(any(offer[quality] for offer in offers) for quality in range(5))
        assert {sum(offer) for offer in offers} == {0, 1, 2, 3, 4, 5}
        assert (True, False, True, False, False) in offers, "a gap"
        markers = {record[2] for record in records}
        assert {"", "tip", "tip ", "user"} < markers
        assert any(marker.lower().startswith("tip") and len(marker) > 4 for marker in markers)
        assert any(marker and not marker.lower().startswith("tip") and len(marker) > 4 for marker in markers)
        television = [record for record in records if record[5].startswith("100003")]
        assert len(television) > 10 and {record[5] for record in television} >= {"100003", "10000306"}
        webs = [record[16] for record in records]
        assert "" in webs and any(web.startswith("http") for web in webs) and any(web.startswith("www.") for web in webs)
        assert all(any(host in web for host in (".example", "127.0.0.1")) for web in webs if web), "nobody's real address"
        assert any("Ž" in record[1] or "ř" in record[1] for record in records)
        assert len({record[4] for record in records}) > 8

    def test_categories_come_before_their_children_and_hold_stations(self):
        found = self.setting()
        tops, all_keys = {}, set()
        for line in found["orb:k:"]:
            key, _, name = line[5:].partition("/@/")
            assert name and key not in all_keys
            all_keys.add(key)
            if line.startswith("new//"):
                assert len(key) == 6
                tops[key] = name
            else:
                assert line.startswith("add//") and len(key) > 6 and key[:6] in tops, line
        assert {"100000", "100003"} < set(tops)
        codes = [line.split("/@/")[5] for line in found[""]]
        assert all(code in all_keys for code in codes)
        for suffix in [key[6:] for key in all_keys if key.startswith("100000") and len(key) > 6]:
            assert len({code[:6] for code in codes if code[6:] == suffix}) > 1, f"{suffix} chooses across"

    def test_the_information_and_the_advertisement_are_whole(self):
        for action in directory_data.INFO_ACTIONS:
            found = kinds(text_lines(directory_data.downloaded_list(BASE, 20, info=action)))
            (info,), (advert,) = found["orb:i:"], found["orb:r:"]
            fields = info.split("/@/")
            assert len(fields) == 7 and fields[0] == "1" and int(fields[1]) > 0 and int(fields[2]) > 0 and fields[5] == action
            fields = advert.split("/@/")
            assert len(fields) == 4 and fields[2] == "1" and fields[3].startswith(BASE)
            assert 5280 + int(fields[0]) <= int(fields[1]), "the area lies inside the window"
        assert len(directory_data.INFO_ACTIONS["showusers"].split("||")) == 4

    def test_the_same_call_gives_the_same_bytes(self):
        script = "import sys, hashlib; sys.path.insert(0, sys.argv[1]); import directory_data as d; " \
                 "print(hashlib.sha256(d.downloaded_list('http://127.0.0.1:8000', 999)).hexdigest())"
        sums = {subprocess.run([sys.executable, "-B", "-c", script, os.path.join(TOP, "demo")], capture_output=True, check=True,
                               env={**os.environ, "PYTHONHASHSEED": seed}).stdout for seed in ("1", "2")}
        assert len(sums) == 1
        assert directory_data.entries(999)[:COUNT] == directory_data.entries(COUNT)
        later = directory_data.entries(COUNT, 2)
        assert later[:-1] == directory_data.entries(COUNT)[:-1] and later[-1] != directory_data.entries(COUNT)[-1]

    def test_a_list_of_fifty_thousand_is_made_and_split(self):
        subprocess.run([sys.executable, os.path.join(TOP, "demo", "make_directory.py"), "--stations", "50000", "--split",
                        "--out", self.path("seznam.tt")], check=True, stdout=subprocess.DEVNULL)
        data = self.read("seznam.tt")
        assert 8e6 < len(data) < 13e6, len(data)
        found = kinds(text_lines(data))
        assert self.read("radios.tt") == directory_data.encoded(found[""] + [""])
        assert self.read("kategories.tt") == directory_data.encoded(found["orb:k:"] + [""])
        assert len({line[:6] for line in found[""]}) == 50000
        refused = subprocess.run([sys.executable, os.path.join(TOP, "demo", "make_directory.py"), "--stations", "-1", "--out",
                                  self.path("x")], stderr=subprocess.DEVNULL, check=False)
        assert refused.returncode != 0 and not os.path.exists(self.path("x"))


class TestLayout(Folder):
    """The folder that is laid out, with stand-ins for what is built."""

    def __init__(self):
        super().__init__()
        for name in ("app/lumotune", *("demo/companions/" + name for name in
                                       ("orb", "load", "OrbBrowser", "OrbRecorder", "remind", "Telvix", "explorer"))):
            path = self.path("built", name + ".exe")
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="ascii") as out:
                out.write(name)

    def lay_out(self, *options):
        subprocess.run([sys.executable, os.path.join(TOP, "demo", "layout"), self.path("program"), "--port", "4321", "--build",
                        self.path("built"), *options], check=True, stdout=subprocess.DEVNULL)

    def test_the_folder_is_whole(self):
        self.lay_out()
        for name in ("lumotune", "orb", "load", "OrbBrowser", "OrbRecorder", "remind", "Telvix", "explorer"):
            assert os.path.exists(self.path("program", name + ".exe")), name
        for name in ("orb_server.tt", "orb_server.tt.tmp"):
            lines = text_lines(self.read("program", "Orb_Data", name))
            assert len(lines) > 7 and lines[6][15:] == "http://127.0.0.1:4321" and lines[0][15:] != lines[6][15:]
        options = [line for line in text_lines(self.read("program", "Orb_Data", "options.ini")) if line]
        assert len(options) == 24 and all(line.startswith(f"#0{number:02}:") for number, line in enumerate(options))
        assert [options[5][11:], options[6][13:], options[7][13:]] == ["demo-uzivatel", "0123456789abcdef", "Posluchač"]
        assert options[12] == "#012:LTLast:LUMO01/1" and options[18][9:] == "on"

    def test_few_stations_at_first_and_favourites_among_them(self):
        self.lay_out()
        stations = text_lines(self.read("program", "radios.tt"))
        assert stations.pop() == "" and len(stations) == len(STATIONS)
        records = {line[:6]: line.split("/@/") for line in stations}
        favourites = text_lines(self.read("program", "list.tt"))
        assert favourites.pop(0) == "" and len(favourites) == 3
        for line in favourites:
            assert line[:3] == "lt:" and line[9] == "/"
            assert records[line[3:9]][10 + int(line[10])], "the favourite's quality is there"
        categories = text_lines(self.read("program", "kategories.tt"))
        assert categories.pop() == "" and categories[0].startswith("new//100000/@/") and len(categories) > 10
        assert set(categories) < set(directory_data.category_lines())
        self.lay_out("--stations", "500")
        assert self.read("program", "radios.tt") == directory_data.station_file("http://127.0.0.1:4321", 500)

    def test_a_listeners_own_files_stay(self):
        self.lay_out()
        own = {("Orb_Data", "options.ini"): b"vlastni\r\n", ("list.tt",): b"lt:LUMO05/1\r\n"}
        for names, data in own.items():
            with open(self.path("program", *names), "wb") as out:
                out.write(data)
        with open(self.path("program", "seznam.tt"), "wb") as out:
            out.write(b"zbytek")
        self.lay_out()
        assert all(self.read("program", *names) == data for names, data in own.items())
        assert not os.path.exists(self.path("program", "seznam.tt")), "what a last run left half done goes"
        self.lay_out("--fresh", "--option", "12=#012:LTLast:LUMO02/2")
        assert b"#012:LTLast:LUMO02/2\r\n" in self.read("program", "Orb_Data", "options.ini")
        assert len(text_lines(self.read("program", "list.tt"))) == 4


if __name__ == "__main__":
    harness.run(TestDirectoryData, TestLayout, TestServer, TestRadio, TestCompanions)
