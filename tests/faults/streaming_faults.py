# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a station does wrong in the middle of its sound."""
import random
import time

from fault_table import at_open, chunked, fault, flow, long_burst, mp3, ogg, reset
from tone import Cut, Tone


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
