#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Each path of the fake radio plays, does what its row says when told to, and plays again: test_radio.py MEDIA_FOLDER"""
import random
import re
import socket
import ssl
import sys
import threading
import time
import traceback
import urllib.request
from email.utils import parsedate_to_datetime

from misbehaviour import FAULTS
from radio import Radio
from radio_client import Check, Client
from titles_faults import ENCODINGS, TITLE, WHOLE


def refused(check):
    try:
        check.client()
    except ConnectionRefusedError:
        return
    raise AssertionError("it answers")


def no_such_name(check):
    host = check.radio.url(check.name).split("/")[2].rpartition(":")[0]
    assert len(host.split(".")[0]) > 63
    try:
        socket.getaddrinfo(host, 80)
    except (socket.gaierror, UnicodeError):
        return
    raise AssertionError("it exists")


def retry_date(check):
    head = check.answers(503).head()
    fields = dict(line.split(": ", 1) for line in head.splitlines()[1:])
    between = parsedate_to_datetime(fields["Retry-After"]) - parsedate_to_datetime(fields["Date"])
    assert between.total_seconds() == 5, head


def endless(check, unit, count, closed=False):
    client = check.client()
    client.until(lambda: client.data.count(unit) > count)
    check.radio.end(check.name)
    if closed:
        client.end()


def segment(check):
    """The number of a segment that the list names now."""
    return check.client().end().body().decode().split(f"/{check.name}/")[-1].split(".")[0]


def standing(check):
    check.radio.states[check.name].began -= 60  # as if it had begun a minute ago
    well = Check(check.radio, "hls-late")
    assert int(segment(well)) - int(segment(check)) in range(29, 33), "thirty segments of two seconds"


def late(check):
    start = time.monotonic()
    body = check.client(rest=f"/{segment(check)}.ts").end().body()
    assert time.monotonic() - start >= 5 and body[0] == 0x47


def cut_segment(check):
    client = check.client(rest=f"/{segment(check)}.ts").end()
    assert len(client.body()) * 2 < int(re.search(r"Content-Length: (\d+)", client.head())[1]) + 2


def drips(check):
    check.radio.end(check.name)
    client = check.client().bytes(30000)
    check.radio.start(check.name)
    client.until_quiet(0.5)
    for _ in range(3):
        before = len(client.data)
        client.more()
        assert len(client.data) == before + 1, len(client.data) - before
    check.radio.end(check.name)
    client.end()


def too_slow(check):
    check.radio.end(check.name)
    client = check.client().bytes(30000)
    check.radio.start(check.name)
    client.until_quiet(0.05)
    before, start = len(client.data), time.monotonic()
    while time.monotonic() - start < 2:
        client.more(0.5)
    rate = (len(client.data) - before) / (time.monotonic() - start)
    assert 4000 < rate < 10000, rate


def garbled_tls(check, answer):
    client = check.client(secure=False).end()
    assert client.data.startswith(answer), client.data
    try:
        check.client()
    except (ssl.SSLError, OSError):
        return
    raise AssertionError("the handshake succeeds")


def again_and_again(check):
    for _ in range(2):
        start = time.monotonic()
        assert check.client().end().body()
        assert time.monotonic() - start < 5


def interval(check):
    """Somewhere a block is not where it should be."""
    for number, block in enumerate(check.titles()):
        if b"\xff" * 7 in block:
            return
        assert number < 100


def plays_sound(data):
    return data[:2] in (b"\xff\xfb", b"\xff\xf3") or data[:4] == b"OggS" or data[:1] == b"\x47"


CODES = {"404": 404, "401": 401, "403": 403, "410": 410, "500": 500, "502": 502, "503": 503, "204": 204}
CHECKS = {
    "refused": refused,
    "no-such-name": no_such_name,
    "closed-at-once": lambda c: c.client().end().data == b"" or 1 / 0,
    "reset-at-once": lambda c: c.client().end().reset or 1 / 0,
    "silent": lambda c: c.quiet(b""),
    "half-headers": lambda c: c.quiet(rb"HTTP/1.0 200 OK\r\nContent-Ty"),
    "endless-headers": lambda c: endless(c, b"\r\nX-1: ", 5, closed=True),
    "drip-headers": lambda c: c.client().silence(0.5) < 2 or 1 / 0,
    "429-retry-after": lambda c: c.answers(429, "Retry-After: 5$|Retry-After: 5\r"),
    "503-retry-after": lambda c: c.answers(503, "Retry-After: 5$|Retry-After: 5\r"),
    "503-retry-day": lambda c: c.answers(503, "Retry-After: 86400"),
    "503-retry-date": retry_date,
    "redirect-nowhere": lambda c: "Location" not in c.answers(302).head() or 1 / 0,
    "redirect-file": lambda c: c.answers(302, "Location: file:///"),
    "redirect-loop": lambda c: c.answers(302, "Location: /redirect-loop"),
    "redirect-refused": lambda c: c.answers(302, "Location: http://127.0.0.1:1/"),
    "empty": lambda c: c.answers(200).body() == b"" or 1 / 0,
    "page": lambda c: c.answers(200, "text/html").body().startswith(b"<html>") or 1 / 0,
    "garbage": lambda c: c.client().bytes(5000).body().startswith(random.Random(1).randbytes(2000)) or 1 / 0,
    "lying-type": lambda c: plays_sound(c.client().bytes(30000).body()) or 1 / 0,
    "lying-length": lambda c: len(c.answers(200, "Content-Length: 1000000000").body()) < 10 ** 6 or 1 / 0,
    "garbage-at-the-start": lambda c: plays_sound(c.client().bytes(90000).body()[65536:]) or 1 / 0,
    "huge-tag": lambda c: plays_sound(c.client().bytes((20 << 20) + 9000).body()[(20 << 20) + 10:]) or 1 / 0,
    "garbage-in-the-middle": lambda c: c.noise(3, 16384),
    "zeros-in-the-middle": lambda c: c.met(lambda _, data: bytes(65536) in data),
    "noise-for-ever": lambda c: c.noise(4, 1600),
    "stall-5": lambda c: c.stalls(4.5, 6.5),
    "stall-8-held-back": lambda c: len(c.stalls(7.5, 9.5).bytes(8 * 16000).data) or 1 / 0,
    "stall-20": lambda c: c.stalls(19, 22),
    "burst-then-stall": lambda c: len(c.stalls(11, 14).data) > 10 * 16000 or 1 / 0,
    "stall-for-ever": lambda c: c.quiet_then_cut(),
    "drip": drips,
    "too-slow": too_slow,
    "ragged": lambda c: c.stalls(1.5, 2.8),
    "cut-in-the-middle": lambda c: c.ends().reset and 1 / 0,
    "reset-in-the-middle": lambda c: c.ends().reset or 1 / 0,
    "cut-again-and-again": again_and_again,
    "broken-chunk": lambda c: c.met(lambda _, data: b"no length\r\n" in data),
    "huge-chunk": lambda c: c.met(lambda _, data: b"8000000000000000\r\n" in data),
    "early-last-chunk": lambda c: c.met(lambda _, data: re.search(rb"0\r\n\r\n[0-9a-f]+\r\n", data)),
    "other-rate": lambda c: c.met(lambda _, data: c.radio.sound("mono.mp3") in data),
    "other-codec": lambda c: c.met(lambda _, data: c.radio.sound("500.aac")[:16000] in data),
    "chained-ogg": lambda c: c.met(lambda _, data: c.radio.sound("mono.ogg") in data),
    "cut-ogg": lambda c: c.met(lambda _, data: c.radio.sound("600.ogg")[:3000] in data),
    "titles-cut": lambda c: c.until_titles(WHOLE[:length].ljust((length + 15) // 16 * 16, b"\0") for length in (1, 5, 13, 20, 40)),
    "titles-encoded": lambda c: c.until_titles(f"StreamTitle='{TITLE}';".encode(each) for each in ENCODINGS),
    "titles-hostile": lambda c: c.until_titles([b"StreamTitle='\x1b[31m", b"StreamTitle='&#0;", b"StreamTitle='';StreamTitle="]),
    "titles-full": lambda c: next(block for block in c.titles() if len(block) == 4080),
    "lying-interval": interval,
    "interval-of-one": lambda c: c.client().bytes(30000).head().index("icy-metaint: 1\r") and None,
    "hls-list-404": lambda c: c.answers(404),
    "hls-missing": lambda c: " 404 " in c.client(rest=f"/{segment(c)}.ts").end().head() or 1 / 0,
    "hls-late": late,
    "hls-standing": standing,
    "hls-garbage": lambda c: c.client(rest=f"/{segment(c)}.ts").end().body() == random.Random(5).randbytes(30000) or 1 / 0,
    "hls-cut-segments": cut_segment,
    "hls-endless": lambda c: endless(c, b"#EXTINF", 5000, closed=True),
    "hls-itself": lambda c: c.client().end().body().endswith(b"\n/hls-itself.m3u8\n") or 1 / 0,
    "playlist-itself": lambda c: c.client().end().body().endswith(b"/playlist-itself.m3u\n") or 1 / 0,
    "playlist-deep": lambda c: c.client(rest="/0.3.m3u").end().body().count(b"/playlist-deep/0.3.m3u.") == 32 or 1 / 0,
    "playlist-empty": lambda c: c.client().end().body() == b"#EXTM3U\n" or 1 / 0,
    "tls-dies": lambda c: garbled_tls(c, b"\x16\x03\x03"),
    "tls-garbage": lambda c: garbled_tls(c, b"HTTP/1.1 400"),
    "tls-silent": lambda c: Client(c.radio, c.name, secure=False).until_quiet(1),
    "tls-cut": lambda c: c.ends(),
}
CHECKS.update({name: lambda c, code=code: c.answers(code) for name, code in CODES.items()})


def assert_plays(radio, name):
    fault = FAULTS[name]
    rest = {"hls": "/3.ts", "playlist": "/tone"}.get(fault.healthy.__name__, "")
    client = Client(radio, name, rest)
    client.bytes(6000)
    assert " 200 " in client.head().splitlines()[0] + " ", client.head()
    body = client.body()
    assert plays_sound(body.partition(b"\r\n")[2] if fault.healthy.__name__ == "chunked" else body), body[:20]
    client.link.close()


def run(radio, name, failures):
    try:
        if FAULTS[name].recovers:
            assert_plays(radio, name)
        radio.start(name)
        CHECKS[name](Check(radio, name))
        radio.end(name)
        if FAULTS[name].recovers:
            assert_plays(radio, name)
    except Exception:
        failures[name] = traceback.format_exc()


def controls(radio):
    def get(path):
        with urllib.request.urlopen(f"http://127.0.0.1:{radio.port}/control/{path}") as answer:
            return answer.read().decode()

    assert get("start/404") == "done" and radio.states["404"].active
    before = int(get("hits/404"))
    Client(radio, "404").end()
    assert int(get("hits/404")) == before + 1
    assert get("end/404") == "done" and not radio.states["404"].active
    assert get("list").count('"ends_patience"') == len(FAULTS) >= 40


def main():
    assert set(CHECKS) == set(FAULTS), set(CHECKS) ^ set(FAULTS)
    names = sys.argv[2:] or list(FAULTS)
    failures = {}
    with Radio(sys.argv[1]) as radio:
        threads = [threading.Thread(target=run, args=(radio, name, failures)) for name in names]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        controls(radio)
    for name, failure in sorted(failures.items()):
        print(f"--- {name}\n{failure}")
    print(f"test_radio: {len(names)} paths, {len(failures)} wrong")
    return bool(failures)


sys.exit(main())
