# SPDX-License-Identifier: LGPL-2.1-or-later
"""Reads stations from .m3u, .pls, .csv and .json. What is torn or makes no sense is left out and counted."""
import collections
import csv
import ipaddress
import json
import os
import re
import urllib.parse
from dataclasses import dataclass

from station_texts import MAX_ADDRESS, MAX_RAW, SEPARATOR, folded, one_line

MAX_BYTES = 256 * 1024 * 1024  # of one file
MAX_ENTRIES = 2_000_000        # of all files
MAX_LINE = 16 * 1024           # bytes; of a JSON object four times as many characters
MAX_JOINED = 10                # lines of one CSV record
MAX_TORN = 1000                # torn JSON objects, after which the file is given up
SCHEMES = ("http", "https", "mms", "mmsh", "mmst")


class Unusable(Exception):
    """A file that cannot be used at all."""


@dataclass
class Found:
    """What a file says of one address; texts as they came, in bounds."""
    name: str
    address: str
    rate: int = 0          # kbit/s, 0 when unknown
    country: str = ""
    code: str = ""         # of the country
    tags: str = ""
    page: str = ""
    key: str = ""          # the source's own identifier


class Sources:
    def __init__(self, private_too=False):
        self.private_too = private_too
        self.found = []
        self.left_out = collections.Counter()  # reason: how many

    def read(self, path):
        kind = os.path.splitext(path)[1].lower()
        readers = {".m3u": m3u, ".m3u8": m3u, ".pls": pls, ".csv": table, ".json": objects, ".jsonl": objects}
        if kind not in readers:
            raise Unusable(f"{path}: .m3u, .pls, .csv or .json is wanted")
        if os.path.getsize(path) > MAX_BYTES:
            raise Unusable(f"{path}: larger than {MAX_BYTES // 1024 // 1024} MiB")
        with open(path, "rb") as source:
            data = source.read(MAX_BYTES + 1)
        for entry in readers[kind](data, self.left_out):
            self.add(entry)

    def add(self, entry):
        address, reason = usable_address(entry.address, self.private_too)
        if reason:
            self.left_out[reason] += 1
            return
        if len(self.found) == MAX_ENTRIES:
            raise Unusable(f"more than {MAX_ENTRIES} stations")
        entry.address, entry.page = address, usable_page(entry.page)
        entry.name, rate = split_rate(one_line(entry.name))
        entry.rate = entry.rate if 0 < entry.rate <= 9999 else rate
        self.found.append(entry)


def text_of(data):
    """Text of bytes in UTF-8, of those that are not in Windows-1250."""
    try:
        return data.decode("utf-8-sig")
    except UnicodeDecodeError:
        return data.decode("cp1250", "replace")


def lines_of(data, left_out):
    # Line by line: one torn character must not change how the others are read.
    for line in data.removeprefix(b"\xef\xbb\xbf").splitlines():
        if len(line) > MAX_LINE:
            left_out["too long a line"] += 1
        else:
            yield text_of(line)


NO_SIGN_OF_AN_ADDRESS = re.compile(r'[\x00-\x20\x7f"<>\\|]')
PLAIN_NAME = re.compile(r"[^:\[\]]+\.[a-z]{2,}", re.IGNORECASE)
OWN_NETWORKS = ("localhost", "local", "internal", "lan")


def is_private(host):
    """Whether a host is, as far as its name tells, no machine of the internet."""
    if PLAIN_NAME.fullmatch(host):
        return host.rpartition(".")[2].lower() in OWN_NETWORKS
    try:
        return not ipaddress.ip_address(host.strip("[]")).is_global
    except ValueError:
        last = host.rstrip(".").rpartition(".")[2].lower()
        # "127.1" and "0x7f.1" are addresses as well.
        return "." not in host.rstrip(".") or last in OWN_NETWORKS or last[:1].isdigit()


def usable_address(address, private_too):
    """(address, "") or ("", why not)."""
    address = address.strip()
    if not address or len(address) > MAX_ADDRESS:
        return "", "no address" if not address else "too long an address"
    if NO_SIGN_OF_AN_ADDRESS.search(address):
        return "", "an address with signs that none has"
    try:
        parts = urllib.parse.urlsplit(address)
        host, _ = parts.hostname or "", parts.port
        ascii_host = host if host.isascii() else host.encode("idna").decode("ascii")
    except (ValueError, UnicodeError):
        return "", "a broken address"
    if parts.scheme.lower() not in SCHEMES or not host:
        return "", "an address of no kind that plays"
    if "@" in parts.netloc:
        return "", "an address with a password"
    if is_private(host) and not private_too:
        return "", "an address of a private network"
    netloc = ascii_host if ":" not in ascii_host else f"[{ascii_host}]"
    netloc += f":{parts.port}" if parts.port else ""
    rest = address.split(parts.netloc, 1)[1].split("#")[0].replace("/@", "/%40")
    if not rest.isascii():
        rest = urllib.parse.quote(rest, safe="%/:?#[]@!$&'()*+,;=~-._")
    made = f"{parts.scheme.lower()}://{netloc.lower()}{rest}"
    return (made, "") if len(made) <= MAX_ADDRESS and SEPARATOR not in made else ("", "too long an address")


def usable_page(page):
    """A web page as the program opens one, else empty. A comma would be a second argument of the system's browser."""
    page, reason = usable_address(page, private_too=False)
    return page if not reason and page.startswith(("http://", "https://")) and "," not in page else ""


RATE = re.compile(r"[\s(\[,/-]*(?:(?:mp3|aac\+?|he-?aac|ogg|opus|flac|vorbis)[\s,/@-]{0,3})?\b(\d{2,4})\s?(?:kbps|kb/s|kbit/s|kbit|kb|k)\b"
                  r"(?:[\s,/-]{0,3}(?:mp3|aac\+?|ogg|opus|flac|vorbis))?[\s)\]]*$", re.IGNORECASE)


def split_rate(name):
    """A name without the bit rate at its end, and that bit rate: "Rádio (MP3 128 kbps)"."""
    found = RATE.search(name[-60:])
    if not found:
        return name, 0
    rate = int(found[1])
    bare = name[:len(name) - len(name[-60:]) + found.start()].strip()
    return (bare, rate) if bare and 8 <= rate <= 9999 else (name, 0)


def number(text):
    """A bit rate; of "128 kbps" or "128000" as well."""
    digits = re.match(r"\s*(\d{1,7})", str(text))
    value = int(digits[1]) if digits else 0
    return value // 1000 if value >= 8000 else value


ATTRIBUTE = re.compile(r'([\w-]{1,40})="([^"]{0,500})"')


def m3u(data, left_out):
    name, attributes, group = "", {}, ""
    for line in lines_of(data, left_out):
        line = line.strip()[:MAX_RAW]
        if line[:8].upper() == "#EXTINF:":
            attributes = {key.lower(): value for key, value in ATTRIBUTE.findall(line)}
            name = ATTRIBUTE.sub("", line).partition(",")[2].strip() or attributes.get("tvg-name", "")
        elif line[:8].upper() == "#EXTGRP:":
            group = line[8:]
        elif line and not line.startswith("#"):
            page = attributes.get("url") or attributes.get("homepage", "")
            yield Found(name or host_of(line), line, number(attributes.get("bitrate", 0)), attributes.get("tvg-country", ""),
                        tags=attributes.get("group-title", group), page=page, key=attributes.get("tvg-id", ""))
            name, attributes, group = "", {}, ""


def host_of(address):
    try:
        return urllib.parse.urlsplit(address[:MAX_ADDRESS].strip()).hostname or ""
    except ValueError:
        return ""


def pls(data, left_out):
    files, titles = {}, {}
    for line in lines_of(data, left_out):
        key, _, value = line.partition("=")
        found = re.fullmatch(r"\s*(file|title)(\d{1,7})\s*", key, re.IGNORECASE)
        if found:
            (files if found[1].lower() == "file" else titles).setdefault(int(found[2]), value.strip())
    for place in sorted(files):
        yield Found(titles.get(place) or host_of(files[place]), files[place])


COLUMNS = {
    "name": "name", "title": "name", "station": "name", "jmeno": "name", "nazev": "name", "radio": "name",
    "url_resolved": "address", "url": "address2", "address": "address", "stream": "address", "adresa": "address", "proud": "address",
    "bitrate": "rate", "rate": "rate", "kbps": "rate", "kvalita": "rate", "country": "country", "zeme": "country",
    "countrycode": "code", "iso_3166_1": "code", "tags": "tags", "genre": "tags", "category": "tags", "kategorie": "tags",
    "zanr": "tags", "homepage": "page", "www": "page", "web": "page", "page": "page", "stationuuid": "key", "id": "key",
}


def found_of(values):
    """An entry of the values of one record by their folded column names; none without an address."""
    known = {}
    for column, value in values.items():
        if value and column in COLUMNS:
            known.setdefault(COLUMNS[column], str(value)[:MAX_RAW])
    address = known.pop("address", "") or known.get("address2", "")
    known.pop("address2", None)
    known["rate"] = number(known.get("rate", 0))
    name = known.pop("name", "") or host_of(address)
    return Found(name, address, **known)


def cells_of(text, delimiter):
    return next(csv.reader(text.splitlines(keepends=True), delimiter=delimiter), [])


def record_at(lines, at, delimiter, columns):
    """(cells, lines used) of the record that begins there: lines within quotation marks are joined. No cells when it is torn."""
    text, used = lines[at], 1
    while text.count('"') % 2 and at + used < len(lines) and used < MAX_JOINED:
        text += "\n" + lines[at + used]
        used += 1
    try:
        cells = [] if text.count('"') % 2 else cells_of(text, delimiter)
    except csv.Error:
        cells = []
    # Two torn lines would join what lies between them.
    return (cells, used) if used == 1 or len(cells) == columns else ([], 1)


def table(data, left_out):
    lines = list(lines_of(data, left_out))
    head = lines[0] if lines else ""
    delimiter = max(",;\t|", key=head.count)
    columns = [folded(cell.strip()[:100]) for cell in cells_of(head, delimiter)]
    if not {"address", "address2"} & {COLUMNS.get(column) for column in columns}:
        raise Unusable("a .csv file begins with the names of its columns, among them url")
    at = 1
    while at < len(lines):
        cells, used = record_at(lines, at, delimiter, len(columns))
        at += used
        if cells:
            yield found_of(dict(zip(columns, cells)))
        elif lines[at - 1].strip():
            left_out["torn"] += 1


def objects(data, left_out):
    """The objects of an array, or one a line. After a torn one it goes on with the next that begins."""
    text = data.decode("utf-8-sig", "replace")
    decoder, at, torn = json.JSONDecoder(), 0, 0
    while (at := text.find("{", at)) >= 0:
        try:
            value, after = decoder.raw_decode(text, at)
            if after - at > 4 * MAX_LINE:
                left_out["too long an object"] += 1
            else:
                yield found_of({folded(key[:100]): each for key, each in value.items() if isinstance(each, (str, int, float))})
            at = after
        except (ValueError, RecursionError):
            torn += 1
            left_out["torn"] += 1
            if torn == MAX_TORN:
                left_out["given up after a thousand torn objects"] += 1
                return
            at += 1
