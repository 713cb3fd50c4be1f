# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a station does wrong before its sound begins."""
import random
import time
from email.utils import formatdate

from fault_table import answers, at_open, flow, mp3, reset
from tone import Cut, Tone


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
        c.pace(0.05)


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
        c.pace(0.1)


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
