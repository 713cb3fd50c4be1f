#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""tools/make-stations makes lists that the program reads: test_make_stations.py LIST_CHECK [TEST...]"""
import json
import os
import random
import resource
import sys
from unittest import mock

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from station_case import FORMS, Case, export, heard, made, main, table  # noqa: E402

import station_merging  # noqa: E402


MANY = 50000


class Many(Case):
    def made_of(self, form):
        stations = [made(number) for number in range(MANY)]
        started = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
        self.run_tool(self.put("many." + form, FORMS[form](stations)))
        self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - started, 60, "seconds of the processor")
        return stations

    def look_up(self, stations, fields):
        """Each field of some stations as the program's own look-up finds it."""
        records = self.by_name()
        chosen = random.Random(1).sample(stations, 300)
        questions = [f"field {records[station['name']][0]} {field}" for station in chosen for field in fields]
        told, answers = self.ask(*questions)
        self.assertTrue(told.startswith(f"{MANY} stations "), told)
        self.assertEqual(len(records), MANY)
        return chosen, [answers[at:at + len(fields)] for at in range(0, len(answers), len(fields))]

    def check_full(self, form):
        stations = self.made_of(form)
        for station, (name, address, rate, other, category) in zip(*self.look_up(stations, ("name", "u1", "k1", "k2", "kk"))):
            self.assertEqual((name, address, rate, other), (station["name"], heard(station), str(station["bitrate"]), ""))
            self.assertEqual(category, f"2000{station['countrycode']}{station['genre']}")
        told, (czech, everywhere) = self.ask("node a2000CZ", "node a10000001")
        self.assertEqual((czech, everywhere), (f"{MANY // 4} Česko", f"{MANY // 4} Pop a hity"))
        # All, four countries, and the one genre that each has.
        self.assertTrue(told.endswith(" 13 categories 0 orders"), told)
        self.same_as_converted()

    def test_m3u(self):
        self.check_full("m3u")

    def test_csv(self):
        self.check_full("csv")

    def test_json(self):
        self.check_full("json")

    def test_pls(self):
        stations = self.made_of("pls")
        for station, (name, address, rate, category) in zip(*self.look_up(stations, ("name", "u1", "k1", "kk"))):
            self.assertEqual((name, address, rate, category), (station["name"], heard(station), str(station["bitrate"]), "19999999"))
        self.same_as_converted()


class Stable(Case):
    def test_identifiers_and_qualities_stay_whatever_the_order(self):
        stations = [made(number) for number in range(500)]
        stations += [{**made(number), "url": f"http://proud{number}.example.com:8000/b", "bitrate": 256} for number in range(200)]
        self.run_tool(self.put("one.json", export(stations)))
        first = self.records()
        self.assertEqual(len(first), 500)
        random.Random(2).shuffle(stations)
        self.run_tool(self.put("one.json", export(stations)))
        self.assertEqual(self.records(), first)

    def test_without_the_state_the_same_source_gives_the_same(self):
        path = self.put("one.json", export([made(number) for number in range(500)]))
        self.run_tool(path)
        first = self.records()
        os.remove(self.path("out/stations.state"))
        self.run_tool(path)
        self.assertEqual(self.records(), first)

    def only(self, *entries, name="one.csv"):
        self.run_tool(self.put(name, table(list(entries), ",")))
        (fields,) = self.records().values()
        return fields

    def test_a_station_is_known_by_key_address_or_name(self):
        first = made(7)
        identifier = self.only(first)[0]
        renamed = {**first, "name": "Úplně jiné jméno"}
        self.assertEqual(self.only(renamed)[0], identifier)
        elsewhere = {**renamed, "url": "http://jinde.example.net/x", "homepage": ""}
        self.assertEqual(self.only(elsewhere)[0], identifier, "by its key")
        self.assertEqual(self.only({**elsewhere, "stationuuid": "", "name": "Zase jinak"})[0], identifier, "by its address")
        self.assertEqual(self.only({**elsewhere, "stationuuid": "", "name": "zase jinak", "url": "http://nove.example.org/"})[0],
                         identifier, "by its name")
        self.assertNotEqual(self.only({**made(8), "name": "Cizí"})[0], identifier)

    def test_an_identifier_is_never_given_away(self):
        identifier = self.only(made(7))[0]
        for number in range(20, 25):
            self.assertNotEqual(self.only(made(number))[0], identifier)
        self.assertEqual(self.only(made(7))[0], identifier)

    def test_an_old_address_of_a_station_does_not_take_its_identifier_away(self):
        first, other = made(1), made(2)
        identifier = self.only(first)[0]
        moved = {**first, "url": "http://proud1.example.com/novy"}
        self.run_tool(self.put("one.csv", table([moved])))
        self.run_tool(self.put("one.csv", table([{**other, "url": first["url"]}, {**moved, "stationuuid": ""}], ",")))
        self.assertEqual(self.by_name()[first["name"]][0], identifier)
        self.assertEqual(len(self.records()), 2)

    def test_a_quality_keeps_its_number(self):
        def at(rate, path=None):
            return {**made(3), "url": f"http://proud3.example.com/{path or rate}", "bitrate": rate}

        fields = self.only(at(64), at(128), at(320))
        self.assertEqual(fields[11:16], ["64", "128", "320", "", ""])
        fields = self.only(at(320), at(32), at(64))
        self.assertEqual(fields[11:16], ["64", "", "320", "32", ""], "a gap where 128 was, the new one behind")
        fields = self.only(at(320), at(32), at(64), at(128, "jinudy"))
        self.assertEqual(fields[11:16], ["64", "128", "320", "32", ""], "the rate comes back at another address")
        self.assertEqual(fields[7], "http://proud3.example.com/jinudy")

    def test_a_damaged_state_is_told_and_nothing_is_written(self):
        path = self.put("one.csv", table([made(number) for number in range(50)]))
        self.run_tool(path)
        before = {name: self.written(name) for name in os.listdir(self.path("out"))}
        whole = before["stations.state"]
        for damaged in (whole[:len(whole) // 2], b"", b"\0\1\2" * 1000, whole + whole.splitlines(True)[1], whole.replace(b"\t", b" ", 1)):
            with self.subTest(damaged[:60]):
                self.put("out/stations.state", damaged)
                self.assertIn("state", self.run_tool(path, wanted=1))
                self.assertEqual(self.written("radios.tt"), before["radios.tt"])


class Collisions(Case):
    """With two letters there are 64 identifiers: two stations soon want the same."""

    def named(self, numbers, state):
        stations = [station_merging.Station(f"R{n}", "", "", "", {f"http://x{n}.example.com/": 64}, [f"i{n:016x}"]) for n in numbers]
        with mock.patch.object(station_merging, "ALPHABET", "01"):
            station_merging.name_all(stations, state)
        return {station.name: station.identifier for station in stations}

    def test_every_station_has_an_identifier_of_its_own(self):
        first = self.named(range(30), {})
        self.assertEqual(len(set(first.values())), 30)
        self.assertEqual(self.named(reversed(range(30)), {}), first, "whatever the order")

    def test_one_that_is_gone_keeps_its_identifier(self):
        state = {}
        gone = self.named(range(30), state)
        here = self.named(range(30, 60), state)
        self.assertFalse(set(gone.values()) & set(here.values()))
        self.assertEqual(self.named(range(60), state), gone | here)


class Merged(Case):
    def lists(self, *entries):
        self.run_tool(self.put("one.json", json.dumps(list(entries))))
        return self.records()

    def test_addresses_of_one_station_become_its_qualities(self):
        self.run_tool(self.put("one.m3u", "#EXTM3U\n"
                               "#EXTINF:-1,Žlutá Vlna (MP3 128 kbps)\nhttp://a.vlna.example.com/128\n"
                               "#EXTINF:-1,ZLUTA VLNA 64k\nhttp://b.vlna.example.com/64\n"
                               "#EXTINF:-1,Žlutá vlna - AAC+ 32 kbit/s\nhttp://a.vlna.example.com/32\n"
                               "#EXTINF:-1,Žlutá Vlna\nhttp://a.vlna.example.com/128\n"
                               "#EXTINF:-1,Žlutá Vlna\nhttp://jina.example.org/128\n"))
        mine = [fields for fields in self.records().values() if "vlna.example.com" in fields[6]]
        self.assertEqual(len(self.records()), 2, "the same name elsewhere is another station")
        self.assertEqual(mine[0][11:16], ["32", "64", "128", "", ""])
        self.assertEqual(mine[0][1], "Žlutá Vlna")
        _, answers = self.ask(f"field {mine[0][0]} k3", f"field {mine[0][0].lower()} u3", f"field {mine[0][0]} name")
        self.assertEqual(answers, ["128", "http://a.vlna.example.com/128", "Žlutá Vlna"])

    def test_what_a_host_is_known_by(self):
        for address, wanted in (("http://a.b.example.com:80/x", "example.com"), ("https://x.example.com?y=1", "example.com"),
                                ("http://[2001:4860::1]:8000/x", "2001:4860::1"), ("http://8.8.8.8/x", "8.8.8.8"), ("mms://x.y", "x.y")):
            self.assertEqual(station_merging.domain(address), wanted)

    def test_a_common_page_makes_one_station_too(self):
        page = "https://www.jedna.example.cz/poslech"
        records = self.lists({"name": "Jedna", "url": "http://x.example.com/1", "homepage": page, "bitrate": 128},
                             {"name": "Jedna", "url": "http://y.example.net/1", "homepage": "http://jedna.example.cz", "bitrate": 64},
                             {"name": "Jedna", "url": "http://y.example.net/2", "bitrate": 96})
        self.assertEqual([fields[11:16] for fields in records.values()], [["64", "96", "128", "", ""]])

    def test_five_at_most_and_every_bit_rate_before_a_second_one_of_it(self):
        entries = [{"name": "Mnoho", "url": f"http://x.example.com/{rate}/{turn}", "bitrate": rate}
                   for turn in range(4) for rate in (128, 320, 64)]
        (fields,) = self.lists(*entries).values()
        self.assertEqual(fields[11:16], ["64", "128", "128", "320", "320"])
        self.assertEqual(len(set(fields[6:11])), 5)

    def test_an_address_is_one_station_whatever_its_names(self):
        records = self.lists({"name": "První", "url": "http://x.example.com/1"}, {"name": "Druhé", "url": "http://x.example.com/1"},
                             {"name": "Druhé", "url": "http://x.example.com/2", "bitrate": 64})
        self.assertEqual([(fields[1], fields[11:13]) for fields in records.values()], [("První", ["64", "?"])])

    def test_an_unknown_bit_rate_is_offered_all_the_same(self):
        (fields,) = self.lists({"name": "Tiché", "url": "http://x.example.com/1"}).values()
        self.assertEqual(fields[11:16], ["?", "", "", "", ""])


if __name__ == "__main__":
    main()
