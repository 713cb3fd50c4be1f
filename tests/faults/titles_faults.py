# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a station does wrong with its titles."""
import random

from fault_table import at_open, fault, flow, mp3, titled
from tone import Tone


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
