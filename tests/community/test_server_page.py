#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""docs/SERVER.md is true: test_server_page.py LIST_CHECK REQUEST_LIST

Its examples are asked of the reference server, its replies are read by the program's own code, and its requests are compared with
those that the program makes. LIST_CHECK and REQUEST_LIST are the programs beside this file.
"""
import argparse
import http.client
import io
import os
import re
import subprocess
import sys
import tempfile
import threading
import unittest
import urllib.parse

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from community import TOP, Program  # noqa: E402

import directory_server  # noqa: E402

PAGE = os.path.join(TOP, "docs", "SERVER.md")
ADDRESS = "http://obec.example.com"
EXAMPLE = re.compile(r"<!-- server: ?(.*?) ?-->\n```http\n(.*?)\n```\n", re.DOTALL)


def examples(page):
    """(settings, path, status, {header: value}, lines of the body) of each example."""
    for settings, text in EXAMPLE.findall(page):
        request, reply = text.split("\n\n", 1)
        head, _, body = reply.partition("\n\n")
        first, *fields = head.split("\n")
        yield (dict(pair.partition("=")[::2] for pair in re.split(r" (?=\w+=)", settings) if pair), request.split()[1],
               int(first.split()[1]), dict(field.split(": ", 1) for field in fields), body.split("\n"))


def parts(lines):
    """The runs of lines between the lines of three dots."""
    runs = [[]]
    for line in lines:
        if line == "...":
            runs.append([])
        else:
            runs[-1].append(line)
    return runs


def is_told(lines, body):
    """Whether the body is what the lines say, with anything in the place of three dots."""
    first, *others = parts(lines)
    if not others:
        return body == lines
    if body[:len(first)] != first:
        return False
    at = len(first)
    for run in others[:-1]:
        at = next((place + len(run) for place in range(at, len(body)) if body[place:place + len(run)] == run), None)
        if at is None:
            return False
    last = others[-1]
    return not last or (len(body) - at >= len(last) and body[-len(last):] == last)


class Reference:
    """The reference server on the loopback, giving its addresses below the address of the page."""

    def __init__(self, own_list=None):
        options = argparse.Namespace(port=0, set=["seconds=0", "probe_seconds=0"], request_log=None, list=own_list)
        self.server = directory_server.make_server(options, directory_server.Handler)
        self.port = self.server.server_address[1]
        self.server.directory.base = ADDRESS
        threading.Thread(target=self.server.serve_forever, kwargs={"poll_interval": 0.05}, daemon=True).start()

    def ask(self, path, settings):
        directory = self.server.directory
        directory.settings = dict(directory.begin)
        directory.change(settings.items())
        line = http.client.HTTPConnection("127.0.0.1", self.port, timeout=20)
        try:
            line.request("GET", path)
            answer = line.getresponse()
            return answer.status, dict(answer.getheaders()), answer.read()
        finally:
            line.close()

    def end(self):
        self.server.directory.stopping = True
        self.server.shutdown()
        self.server.server_close()


class ServerPage(unittest.TestCase):
    program, requests = None, ""

    @classmethod
    def setUpClass(cls):
        with open(PAGE, encoding="utf-8") as source:
            cls.page = source.read()
        cls.reference = Reference()
        cls.addClassCleanup(cls.reference.end)

    def made(self):
        """{name: what the program starts or opens}"""
        done = subprocess.run([self.requests, ADDRESS], capture_output=True, encoding="utf-8", timeout=60, check=True)
        return dict(line.split("\t", 1) for line in done.stdout.splitlines())

    def written(self, data):
        out = tempfile.NamedTemporaryFile(delete=False)
        self.addCleanup(os.remove, out.name)
        with out:
            out.write(data)
        return out.name

    def test_every_example_is_what_the_reference_says(self):
        found = list(examples(self.page))
        self.assertGreaterEqual(len(found), 8)
        self.assertEqual(self.page.count("```http"), len(found), "an example that nobody asks")
        for settings, path, status, fields, lines in found:
            with self.subTest(path=path, settings=settings):
                got, head, body = self.reference.ask(path, settings)
                self.assertEqual(got, status)
                self.assertEqual({name: head.get(name) for name in fields}, fields)
                self.assertEqual(head.get("Content-Length"), str(len(body)))
                html = head["Content-Type"].startswith("text/html")
                text = body.decode("utf-8" if html else "cp1250")
                told = text.removesuffix("\n") if html else text.removesuffix("\r\n")
                self.assertTrue(is_told(lines, told.split("\n" if html else "\r\n")), text[:2000])

    def test_the_program_understands_the_replies(self):
        sizes = lists = 0
        for settings, path, _, _, lines in examples(self.page):
            body = self.reference.ask(path, settings)[2]
            if "size=1" in path:
                told = self.program.of_probe(self.written(body), ADDRESS)
                self.assertEqual(told, "refused" if "probe" in settings else lines[0].replace(":", " "))
                sizes += 1
            elif "lt_list.php" in path:
                list_path = self.written(body)
                told, answers = self.program.of_list(list_path, "field lumo01 name", "field LUMO01 k3", "field LUMO01 u2", "node a10000103")
                orders = sum(line.startswith(("orb:i:", "orb:r:")) for line in body.decode("cp1250").split("\r\n"))
                self.assertTrue(told.startswith("2 stations ") and told.endswith(f" {orders} orders"), told)
                self.assertEqual(answers, ["Rádio Úsvit", "320", ADDRESS + "/lumo01-64.mp3", "0 Jazz a blues"])
                probe = self.reference.ask(path.replace("?", "?size=1&"), settings)[2]
                self.assertEqual(probe, b"size:%d\r\n" % len(body))
                lists += 1
        self.assertTrue(sizes >= 2 and lists >= 4)

    def test_its_requests_are_the_programs(self):
        made = self.made()
        told = "".join(f"{name}\t{what}\n" for name, what in made.items())
        self.assertIn("\n```\n" + told + "```\n", self.page, "the section of all requests is another")
        asked = {path for _, path, *_ in examples(self.page)}
        for name, what in made.items():
            address = self.address_in(what)
            with self.subTest(name):
                if what.startswith("load.exe") or name == "login and on":
                    self.assertIn(address.removeprefix(ADDRESS), asked, "a request without an example")
                else:
                    self.assertIn(f"| `{address}` |", self.page)

    def address_in(self, command_line):
        return next(part for part in command_line.split(" ") if part.startswith(ADDRESS)).split("/@/")[0]

    def test_every_page_is_there(self):
        for address in re.findall(rf"^\| `({re.escape(ADDRESS)}[^`]+)` \|", self.page, re.MULTILINE):
            with self.subTest(address):
                path = address.removeprefix(ADDRESS)
                self.assertEqual(self.reference.ask(urllib.parse.quote(path, safe="/?&=*\\-."), {})[0], 200)

    def test_the_token_is_unscrambled_as_told(self):
        def swapped(text):
            return "".join(text[at:at + 2][::-1] for at in range(0, len(text), 2))

        def once(text):
            return swapped("".join(chr(int(code)) for code in swapped(text).split("-") if code))

        token = self.made()["login"].split("/")[5]
        self.assertEqual(once(once(token)), "7c1f")

    def test_the_reference_gives_a_list_of_ones_own(self):
        own = "Rádio, které tu nikdo nevymyslel\r\n<end>\r\n".encode("cp1250")
        server = Reference(io.BytesIO(own))
        self.addCleanup(server.end)
        self.assertEqual(server.ask("/lumotune.brelt/lt_list.php?idh=jana", {})[2], own)
        self.assertEqual(server.ask("/lumotune.brelt/lt_list.php?size=1&idh=jana", {})[2], b"size:%d\r\n" % len(own))

    def test_its_limits_are_the_codes(self):
        def number(path, name):
            with open(os.path.join(TOP, path), encoding="utf-8") as source:
                value = re.search(rf"\b{name} = ([^;]+);", source.read())[1]
            return eval(re.sub(r"ULL|'", "", value), {})  # a product of numbers

        for path, name, told in (
                ("stations/station_limits.h", "max_station_bytes", "268,435,456 (256 MiB)"),
                ("stations/station_limits.h", "max_station_lines", "2,000,000 lines"),
                ("stations/conversion.h", "max_categories", "5,000 at most"), ("stations/conversion.h", "max_orders", "10 at most, 64 KiB each"),
                ("stations/conversion.h", "max_order_bytes", "64 KiB each"), ("directory/probe.h", "max_probe_bytes", "more than 64 KiB"),
                ("stations/categories.h", "max_category_id", "at most 100 characters"), ("stations/categories.h", "max_category_name", "names 1,000"),
                ("companions/command_lines.h", "max_field", "cut to\n1,000 characters|cut to 1,000"), ("platform/media/address.h", "max_address_bytes", "4,000 bytes"),
                ("companions/web_address.h", "max_web_address", "2,048 characters"), ("directory/info_panel.h", "max_parameter", "up to 2,000 characters"),
                ("directory/info_panel.h", "max_typed", "32,767 characters"), ("player/client_link.h", "max_reply_bytes", "up to 64 KiB")):
            with self.subTest(name):
                value, page = number(path, name), " ".join(self.page.split())
                self.assertTrue(any(" ".join(each.split()) in page for each in told.split("|")), told)
                written = {int(digits.replace(",", "")) * (1024 if unit else 1) for digits, unit in re.findall(r"(\d[\d,]*)( KiB)?", told)}
                self.assertIn(value, written)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    ServerPage.program = Program(sys.argv.pop(1))
    ServerPage.requests = sys.argv.pop(1)
    unittest.main()
