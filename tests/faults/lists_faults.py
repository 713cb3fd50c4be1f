# SPDX-License-Identifier: LGPL-2.1-or-later
"""What lists, playlists and secured connections do wrong."""
import random
import time

from fault_table import answers, fault, hls, live_list, playlist, segment_list
from tone import Cut


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
        c.pace(0.01)


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
