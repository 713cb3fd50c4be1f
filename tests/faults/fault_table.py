# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a station can do wrong: a row each, {name: Fault}. `handler` gets the connection, in a stream also its tone.

A handler that begins at "open" answers in the station's place; one of a stream sends its nonsense and returns when the tone
goes on. `seconds` is how long a driver leaves it on (0: it is over by itself), `ends_patience` whether a player has given
the connection up by then, `recovers` whether the tone comes back at all.
"""
import socket
import struct
import time
import typing

from tone import METAINT, Cut, Tone

FAULTS = {}


class Fault(typing.NamedTuple):
    description: str
    handler: typing.Callable
    seconds: float
    ends_patience: bool
    begins: str = "stream"  # "open", "stream" or "handshake"
    healthy: typing.Callable = None
    port: str = ""  # one of its own: "closed" while it lasts, "tls"; or "name": a host that does not exist
    suffix: str = ""
    recovers: bool = True


def reset(link):
    """Ends a connection with a reset instead of an end."""
    link.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    link.close()
    raise Cut


# The ways to be well.
def mp3(c):
    c.head(Content_Type="audio/mpeg")
    c.play(Tone(c.radio, "440.mp3"))


def long_burst(c):
    c.head(Content_Type="audio/mpeg")
    c.play(Tone(c.radio, "440.mp3", burst=10))


def chunked(c):
    c.head("HTTP/1.1 200 OK", Content_Type="audio/mpeg", Transfer_Encoding="chunked")
    c.chunked = True
    c.play(Tone(c.radio, "440.mp3"))


def ogg(c):
    c.head(Content_Type="application/ogg")
    c.play(Tone(c.radio, "600.ogg"))


def titled(c):
    if not c.wants_titles:
        return mp3(c)
    c.head(Content_Type="audio/mpeg", icy_metaint=METAINT)
    tone = Tone(c.radio, "440.mp3", titles=lambda number: title_of(c, number))
    return c.play(tone)


def title_of(c, number):
    """Every eighth block, which is every other second, has a title; a misbehaviour may fill all of them."""
    if c.active:
        return c.fault.handler(c, number)
    if number % 8:
        return b""
    return b"StreamTitle='Um\xc4\x9blec - P\xc3\xadse\xc5\x88 %d';" % (number // 8)


def segment_list(c, segments, first, target=2):
    return f"#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:{target}\n#EXT-X-MEDIA-SEQUENCE:{first}\n" + "".join(
        f"#EXT-X-DISCONTINUITY\n#EXTINF:2,\n/{c.name}/{number}.ts\n" if number % 3 == 0 else
        f"#EXTINF:2,\n/{c.name}/{number}.ts\n" for number in range(first, first + segments))


def live_list(c, at=None):
    return segment_list(c, 3, int((at or time.monotonic()) / 2))


def hls(c):
    if not c.rest:
        return c.page(live_list(c), "application/vnd.apple.mpegurl")
    number = int(c.rest.partition(".")[0]) % 3
    return c.page(c.radio.sound(f"550{number}.ts"), "video/mp2t")


def playlist(c):
    if c.rest == "tone":
        return mp3(c)
    return c.page(c.url(f"/{c.name}/tone") + "\n", "audio/x-mpegurl")


def fault(name, description, seconds=0.0, ends_patience=False, **more):
    def add(handler):
        more.setdefault("healthy", mp3)
        FAULTS[name] = Fault(description, handler, seconds, ends_patience, **more)
        return handler

    return add


def at_open(name, description, seconds=5.0, ends_patience=False, **more):
    return fault(name, description, seconds, ends_patience, begins="open", **more)


def answers(name, first, description=None, **fields):
    """An answer without a body."""
    @at_open(name, description or f"answers {first}")
    def handler(c):
        c.head("HTTP/1.1 " + first, Content_Length=0, **fields)


def flow(c, tone, seconds=None):
    """The tone in place of the station's answer, until the misbehaviour ends or for so long."""
    start = time.monotonic()
    while c.active and not (seconds and time.monotonic() - start > seconds):
        tone.step(c)
        c.pace(0.02)
    if seconds is None:
        c.met = c.state.epoch
        c.play(tone)
