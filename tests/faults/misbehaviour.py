# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a station can do wrong: a row each, {name: Fault}. `handler` gets the connection, in a stream also its tone.

A handler that begins at "open" answers in the station's place; one of a stream sends its nonsense and returns when the tone
goes on. `seconds` is how long a driver leaves it on (0: it is over by itself), `ends_patience` whether a player has given
the connection up by then, `recovers` whether the tone comes back at all.
"""
import random
import socket
import struct
import time
import typing
from email.utils import formatdate

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


# Nobody there.
at_open("refused", "the port is closed", port="closed")(lambda c: None)
at_open("no-such-name", "its host does not exist", port="name", recovers=False)(lambda c: None)


@at_open("closed-at-once", "ends every connection without an answer")
def closed_at_once(c):
    raise Cut


@at_open("reset-at-once", "resets every connection")
def reset_at_once(c):
    reset(c.link)


at_open("silent", "takes the request and never answers", 15, True)(lambda c: c.silence())


@at_open("half-headers", "stops in the middle of a header line", 15, True)
def half_headers(c):
    c.raw(b"HTTP/1.0 200 OK\r\nContent-Ty")
    c.silence()


@at_open("endless-headers", "sends header lines without end", 15, True)
def endless_headers(c):
    c.raw(b"HTTP/1.0 200 OK\r\n")
    while c.active:
        c.raw(b"".join(b"X-%d: %s\r\n" % (number, b"x" * 60) for number in range(20)))
        time.sleep(0.05)


@at_open("drip-headers", "sends its header a byte a second", 15, True)
def drip_headers(c):
    for byte in b"HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\nServer: " + b"x" * 1000:
        if not c.active:
            raise Cut
        c.raw(bytes([byte]))
        c.rest_for(1)


# Answers that are no sound.
answers("404", "404 Not Found")
answers("401", "401 Unauthorized", WWW_Authenticate='Basic realm="x"')
answers("403", "403 Forbidden")
answers("410", "410 Gone")
answers("429-retry-after", "429 Too Many Requests", "answers 429 and asks for five seconds", Retry_After=5)
answers("500", "500 Internal Server Error")
answers("502", "502 Bad Gateway")
answers("503", "503 Service Unavailable")
answers("503-retry-after", "503 Service Unavailable", "answers 503 and asks for five seconds", Retry_After=5)
answers("503-retry-day", "503 Service Unavailable", "answers 503 and asks for a day", Retry_After=86400)
answers("204", "204 No Content")
answers("redirect-nowhere", "302 Found", "redirects without an address")
answers("redirect-file", "302 Found", "redirects to a file of the listener", Location="file:///etc/hostname")


@at_open("503-retry-date", "answers 503 and asks for a time five seconds away")
def retry_date(c):
    now = time.time()
    c.head("HTTP/1.1 503 Service Unavailable", Content_Length=0, Date=formatdate(now, usegmt=True),
           Retry_After=formatdate(now + 5, usegmt=True))


@at_open("redirect-loop", "redirects to itself")
def redirect_loop(c):
    c.head("HTTP/1.1 302 Found", Location=f"/{c.name}", Content_Length=0)


@at_open("redirect-refused", "redirects to a closed port")
def redirect_refused(c):
    c.head("HTTP/1.1 302 Found", Location="http://127.0.0.1:1/", Content_Length=0)


@at_open("empty", "answers 200 with nothing")
def empty(c):
    c.head(Content_Type="audio/mpeg")


@at_open("page", "answers with a page for a browser")
def page(c):
    c.page("<html><body>" + "Stanice má přestávku. ".encode().decode("latin-1") * 200 + "</body></html>", "text/html")


@at_open("garbage", "sends noise without end", 15, True)
def garbage(c):
    c.head(Content_Type="audio/mpeg")
    noise = random.Random(1)
    while c.active:
        c.send(noise.randbytes(2000))
        time.sleep(0.1)


# Sound that is announced or wrapped wrongly. It plays all the same.
@at_open("lying-type", "says that its MP3 is a page for a browser")
def lying_type(c):
    c.head(Content_Type="text/html; charset=utf-8")
    flow(c, Tone(c.radio, "440.mp3"))


@at_open("lying-length", "announces more bytes than it sends before it ends", 6)
def lying_length(c):
    c.head(Content_Type="audio/mpeg", Content_Length=10 ** 9)
    flow(c, Tone(c.radio, "440.mp3"), seconds=3)


@at_open("garbage-at-the-start", "sends 64 KB of noise before its sound")
def garbage_at_the_start(c):
    c.head(Content_Type="audio/mpeg")
    c.send(random.Random(2).randbytes(65536))
    flow(c, Tone(c.radio, "440.mp3"))


@at_open("huge-tag", "sends a tag of 20 MB before its sound", 8)
def huge_tag(c):
    size = 20 << 20
    c.head(Content_Type="audio/mpeg")
    c.send(b"ID3\x03\0\0" + bytes(size >> shift & 127 for shift in (21, 14, 7, 0)))
    for _ in range(size >> 16):
        c.send(b"\x55" * (1 << 16))
    flow(c, Tone(c.radio, "440.mp3"))


def flow(c, tone, seconds=None):
    """The tone in place of the station's answer, until the misbehaviour ends or for so long."""
    start = time.monotonic()
    while c.active and not (seconds and time.monotonic() - start > seconds):
        tone.step(c)
        time.sleep(0.02)
    if seconds is None:
        c.met = c.state.epoch
        c.play(tone)


# In the middle of the sound.
@fault("garbage-in-the-middle", "sends 16 KB of noise amid its sound")
def garbage_in_the_middle(c, _):
    c.send(random.Random(3).randbytes(16384))


@fault("zeros-in-the-middle", "sends 64 KB of zeros amid its sound")
def zeros_in_the_middle(c, _):
    c.send(bytes(65536))


@fault("noise-for-ever", "turns to noise", 15, True)
def noise_for_ever(c, tone):
    noise = random.Random(4)
    while c.active:
        c.send(noise.randbytes(int(tone.rate / 10)))
        c.rest_for(0.1)
    raise Cut


def stall(c, tone, seconds):
    c.rest_for(seconds)
    tone.skip(seconds)


fault("stall-5", "sends nothing for 5 s", 5)(lambda c, tone: stall(c, tone, 5))
fault("stall-8-held-back", "sends nothing for 8 s, then all that it held back", 8)(lambda c, tone: c.rest_for(8))
fault("stall-20", "sends nothing for 20 s", 20, True)(lambda c, tone: stall(c, tone, 20))
fault("burst-then-stall", "sends nothing for 12 s after a burst of ten", 12, healthy=long_burst)(
    lambda c, tone: stall(c, tone, 12))


@fault("stall-for-ever", "sends nothing any more; the next connection is served when that ends", 30, True)
def stall_for_ever(c, _):
    c.silence()
    raise Cut


@fault("drip", "sends a byte a second", 20, True)
def drip(c, tone):
    while c.active:
        c.send(tone.piece(1))
        c.rest_for(1)
    raise Cut


@fault("too-slow", "sends half of what it should", 20)
def too_slow(c, tone):
    while c.active:
        c.send(tone.piece(int(tone.rate / 20)))
        c.rest_for(0.1)
    tone.start, tone.sent = time.monotonic(), 0


@fault("ragged", "sends two seconds at once, then nothing for two seconds, and so on", 10)
def ragged(c, tone):
    while c.active:
        c.rest_for(2)
        tone.step(c)


@fault("cut-in-the-middle", "ends the connection in the middle of a frame")
def cut_in_the_middle(c, tone):
    c.send(tone.piece(100))
    raise Cut


@fault("reset-in-the-middle", "resets the connection")
def reset_in_the_middle(c, _):
    reset(c.link)


@at_open("cut-again-and-again", "ends each connection after a second", 10)
def cut_again_and_again(c):
    c.head(Content_Type="audio/mpeg")
    flow(c, Tone(c.radio, "440.mp3", burst=0.5), seconds=1)


@fault("broken-chunk", "sends a chunk without a length", healthy=chunked)
def broken_chunk(c, tone):
    c.raw(b"no length\r\n" + tone.piece(1000) + b"\r\n")


@fault("huge-chunk", "announces a chunk of 2^63 bytes", healthy=chunked)
def huge_chunk(c, tone):
    c.raw(b"8000000000000000\r\n" + tone.piece(1000))


@fault("early-last-chunk", "sends the last chunk, then more of them", healthy=chunked)
def early_last_chunk(c, _):
    c.raw(b"0\r\n\r\n")


@fault("other-rate", "goes on at 22 kHz with one channel for ten seconds")
def other_rate(c, _):
    c.send(c.radio.sound("mono.mp3"))


@fault("other-codec", "goes on in AAC for a second")
def other_codec(c, _):
    c.send(c.radio.sound("500.aac")[:16000])


@fault("chained-ogg", "goes on with a chain of 22 kHz and one channel", healthy=ogg)
def chained_ogg(c, tone):
    c.send(tone.data[tone.sent % len(tone.data):])
    c.send(c.radio.sound("mono.ogg"))
    tone.sent = 0
    tone.start = time.monotonic() + 10


@fault("cut-ogg", "begins a new chain in the middle of a page", healthy=ogg)
def cut_ogg(c, tone):
    c.send(tone.piece(777))
    tone.sent, tone.start = 0, time.monotonic()


# Titles.
TITLE = "Umělec - Píseň o žluťoučkém koni"
WHOLE = b"StreamTitle='" + TITLE.encode() + b"';StreamUrl='';"
ENCODINGS = ["utf-8", "cp1250", "iso8859-2", "utf-16-le", "utf-16-be"]


@fault("titles-cut", "cuts its titles at every offset", 20, healthy=titled)
def titles_cut(_, number):
    return WHOLE[:number % len(WHOLE)]


@fault("titles-encoded", "sends its titles in five encodings", 20, healthy=titled)
def titles_encoded(_, number):
    every, turn = 4, number // 4
    return b"" if number % every else f"StreamTitle='{TITLE}';".encode(ENCODINGS[turn % len(ENCODINGS)])


@fault("titles-hostile", "sends titles of control characters, references and quotation marks", 20, healthy=titled)
def titles_hostile(_, number):
    texts = ["\x1b[31m\x07\x08", "&#0;&#xD800;&#99999999;&amp;", "';StreamTitle='';", "%s%n%x", "\u202eoplatz", "&" * 3000]
    return f"StreamTitle='{texts[number % len(texts)]}';".encode()[:4080]


@fault("titles-full", "sends metadata blocks of the largest size, of noise", 10, healthy=titled)
def titles_full(_, number):
    return random.Random(number).randbytes(4080)


@fault("lying-interval", "sends its titles at another interval than it says", 10, healthy=titled)
def lying_interval(_, number):
    return b"StreamTitle='%d';" % number + b"\0" * (16 * (number % 3)) + b"\xff" * 7


@at_open("interval-of-one", "announces a metadata block after each byte")
def interval_of_one(c):
    c.head(Content_Type="audio/mpeg", icy_metaint=1)
    flow(c, Tone(c.radio, "440.mp3"))


# HLS and playlists.
def at_list(name, description, seconds=10.0, ends_patience=False, **more):
    return fault(name, description, seconds, ends_patience, begins="open", healthy=more.pop("healthy", hls),
                 suffix=more.pop("suffix", ".m3u8"), **more)


@at_list("hls-list-404", "its list is gone")
def hls_list_404(c):
    c.page("", first="HTTP/1.1 404 Not Found")


@at_list("hls-missing", "names segments that are not there", 10, True)
def hls_missing(c):
    if c.rest:
        return c.page("", first="HTTP/1.1 404 Not Found")
    return hls(c)


@at_list("hls-late", "sends each segment five seconds late", 15)
def hls_late(c):
    if c.rest:
        c.rest_for(5)
    hls(c)


@at_list("hls-standing", "its live list stands still", 20, True)
def hls_standing(c):
    if c.rest:
        return hls(c)
    return c.page(live_list(c, c.state.began), "application/vnd.apple.mpegurl")


@at_list("hls-garbage", "its segments are noise", 10, True)
def hls_garbage(c):
    if c.rest:
        return c.page(random.Random(5).randbytes(30000), "video/mp2t")
    return hls(c)


@at_list("hls-cut-segments", "ends each segment in its middle")
def hls_cut_segments(c):
    if not c.rest:
        return hls(c)
    data = c.radio.sound(f"550{int(c.rest.partition('.')[0]) % 3}.ts")
    c.head(Content_Type="video/mp2t", Content_Length=len(data))
    return c.raw(data[:len(data) // 2])


@at_list("hls-endless", "its list never ends", 15, True)
def hls_endless(c):
    c.head(Content_Type="application/vnd.apple.mpegurl")
    c.raw(segment_list(c, 1, 1).encode())
    while c.active:
        c.raw(f"#EXTINF:2,\n/{c.name}/1.ts\n".encode() * 500)
        time.sleep(0.01)


@at_list("hls-itself", "its list is a choice of itself")
def hls_itself(c):
    c.page(f"#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=128000\n/{c.name}.m3u8\n", "application/vnd.apple.mpegurl")


@at_list("playlist-itself", "its list names itself", healthy=playlist, suffix=".m3u")
def playlist_itself(c):
    c.page(c.url(f"/{c.name}.m3u") + "\n", "audio/x-mpegurl")


@at_list("playlist-deep", "its list names others without end", healthy=playlist, suffix=".m3u")
def playlist_deep(c):
    here = c.rest or "0"
    c.page("".join(c.url(f"/{c.name}/{here}.{number}.m3u") + "\n" for number in range(32)), "audio/x-mpegurl")


@at_list("playlist-empty", "its list is empty", healthy=playlist, suffix=".m3u")
def playlist_empty(c):
    c.page("#EXTM3U\n", "audio/x-mpegurl")


# TLS. Its certificate is its own, so that the station is never a verified one.
def at_handshake(name, description, seconds=10.0, ends_patience=False):
    return fault(name, description, seconds, ends_patience, begins="handshake", port="tls")


@at_handshake("tls-dies", "ends the handshake in the middle of its greeting")
def tls_dies(c):
    c.link.recv(65536)
    c.raw(b"\x16\x03\x03\x00\x7a\x02")
    raise Cut


@at_handshake("tls-garbage", "answers the handshake in plain text")
def tls_garbage(c):
    c.link.recv(65536)
    c.raw(b"HTTP/1.1 400 The plain HTTP request was sent to HTTPS port\r\n\r\n")


@at_handshake("tls-silent", "never answers the handshake", 15, True)
def tls_silent(c):
    c.silence()


@fault("tls-cut", "ends a TLS connection without saying so", port="tls")
def tls_cut(c, _):
    raise Cut
