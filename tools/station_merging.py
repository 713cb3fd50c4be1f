# SPDX-License-Identifier: LGPL-2.1-or-later
"""Makes stations of addresses: several of one station become its qualities, identifiers stay the same from run to run.

A favourite of a listener is an identifier and the number of a quality, so both are kept in a state file: an identifier is never
given to another station, and a quality keeps its number as long as its address or its bit rate is there. What an identifier
stands for is recognised by the source's own key, by an address, or by name and country, in this order.
"""
import collections
import hashlib
import os
import re
from dataclasses import dataclass, field

from station_texts import as_field, country_field, folded, genre_of, name_field

QUALITIES = 5
MAX_KEYS = 24              # of one station, taken over into the state file
MAX_STATE_KEYS = 64        # of a line of that file
MAX_STATE_LINES = 2_000_000
ALPHABET = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
STATE_HEAD = "lumotune stations 1"
NOT_NAMED = re.compile(r"[\W_]+")


class BadState(Exception):
    pass


@dataclass
class Station:
    name: str
    country: str
    tags: str
    page: str
    addresses: dict                                  # address: kbit/s, 0 when unknown
    keys: list = field(default_factory=list)         # what recognises it, the surest first
    identifier: str = ""
    slots: list = field(default_factory=lambda: [None] * QUALITIES)  # (address, kbit/s) or None


def digest(text):
    return hashlib.sha256(text.encode("utf-8", "replace")).hexdigest()[:16]


HOST = re.compile(r"\w+://(?:\[([^\]]+)\]|([^/:?]+))")


def host(address):
    """Of an address as station_sources makes them."""
    found = HOST.match(address)
    return found[1] or found[2]


def domain(address):
    """The last two labels of a name, all of an address in numbers."""
    name = host(address)
    return name if name.replace(".", "").isdigit() or ":" in name else ".".join(name.split(".")[-2:])


def merged(found):
    """Stations of what was found. Entries are one station when name and country are the same, apart from letter case and
    diacritics, and they share a web page's host or the last two labels of a stream's host. A name alone is not enough:
    many stations are called the same."""
    named = collections.OrderedDict()
    for entry in found:
        name = name_field(entry.name, host(entry.address))
        country = country_field(entry.country, entry.code)
        named.setdefault((NOT_NAMED.sub(" ", folded(name)).strip() or name, country), []).append((name, entry))
    stations = []
    for (_, country), entries in named.items():
        groups = grouped(entries)
        stations += [station_of(group, country, len(groups) == 1) for group in groups]
    return by_address(stations)


def grouped(entries):
    """The entries of one name, those together that share a host."""
    group_of, groups = {}, {}
    for name, entry in entries:
        tokens = [f"s{domain(entry.address)}"] + ([f"p{host(entry.page).removeprefix('www.')}"] if entry.page else [])
        mine = sorted({group_of[token] for token in tokens if token in group_of})
        number = mine[0] if mine else len(groups)
        members, own = groups.setdefault(number, ([], set()))
        for other in mine[1:]:
            more, theirs = groups[other]
            members += more
            own |= theirs
            groups[other] = ([], set())
        members.append((name, entry))
        own |= set(tokens)
        group_of.update(dict.fromkeys(own, number))
    return [members for members, _ in groups.values() if members]


def station_of(group, country, only_one):
    name, first = group[0]
    addresses = {}
    for _, entry in group:
        addresses[entry.address] = max(entry.rate, addresses.get(entry.address, 0))
    page = next((entry.page for _, entry in group if entry.page), "")
    tags = ",".join(dict.fromkeys(entry.tags for _, entry in group if entry.tags))
    keys = ["i" + digest(entry.key) for _, entry in group if entry.key] + ["a" + digest(address) for address in addresses]
    if only_one:
        keys.append("n" + digest(folded(name) + "|" + country))
    return Station(name, country, tags, as_field(page, 2048), addresses, list(dict.fromkeys(keys)))


def by_address(stations):
    """One address is one station, whatever names it has: the first name stays."""
    owner, kept = {}, []
    for station in stations:
        known = next((owner[address] for address in station.addresses if address in owner), None)
        if known is None:
            kept.append(station)
        else:
            for address, rate in station.addresses.items():
                known.addresses[address] = known.addresses.get(address) or rate
            known.keys = list(dict.fromkeys(known.keys + [key for key in station.keys if key[0] != "n"]))
            known.page = known.page or station.page
        for address in station.addresses:
            owner[address] = known or station
    return kept


@dataclass
class Kept:
    """A line of the state file."""
    keys: list
    slots: list  # (digest of the address, kbit/s) or None


def read_state(path):
    """Identifier: Kept. A missing file is an empty one; a damaged one is no state."""
    if not os.path.exists(path):
        return {}
    state = {}
    with open(path, encoding="ascii", errors="replace", newline="\n") as source:
        if source.readline(200).rstrip("\n") != STATE_HEAD:
            raise BadState(f"{path} is not a state file")
        for number, line in enumerate(source, 2):
            cells = line.rstrip("\n").split("\t")
            slots = [tuple(cell.split(":")) if cell else None for cell in cells[2:]]
            whole = (line.endswith("\n") and len(cells) == 2 + QUALITIES and re.fullmatch(r"[0-9A-Z]{6}", cells[0])
                     and cells[0] not in state and re.fullmatch(r"([ain][0-9a-f]{16})(,[ain][0-9a-f]{16}){0,63}", cells[1])
                     and all(re.fullmatch(r"([0-9a-f]{16}:\d{1,4})?", cell) for cell in cells[2:]))
            if not whole or number > MAX_STATE_LINES:
                raise BadState(f"{path}: line {number} is damaged; mend it, or take the copy of an earlier run")
            state[cells[0]] = Kept(cells[1].split(","), [slot and (slot[0], int(slot[1])) for slot in slots])
    return state


def state_text(state):
    lines = [STATE_HEAD]
    for identifier in sorted(state):
        kept = state[identifier]
        slots = [f"{slot[0]}:{slot[1]}" if slot else "" for slot in kept.slots]
        lines.append("\t".join([identifier, ",".join(kept.keys), *slots]))
    return "".join(line + "\n" for line in lines)


def identifier_of(key, taken):
    """Six letters and digits of the key; of the next that is free when two keys give the same."""
    turn = 0
    while True:
        value, text = int(hashlib.sha256(f"{key} {turn}".encode()).hexdigest(), 16), ""
        for _ in range(6):
            value, digit = divmod(value, len(ALPHABET))
            text += ALPHABET[digit]
        if text not in taken:
            return text
        turn += 1


def name_all(stations, state):
    """Gives every station its identifier and every address its quality, and brings the state up to date."""
    owner = {}
    for identifier in sorted(state):
        for key in state[identifier].keys:
            owner.setdefault(key, identifier)
    free = set(state)
    for kind in "ian":
        for station in stations:
            if not station.identifier:
                wanted = (owner[key] for key in station.keys if key[0] == kind and key in owner)
                station.identifier = next((each for each in wanted if each in free), "")
                free.discard(station.identifier)
    taken = set(state)
    for station in sorted(stations, key=lambda each: each.keys[0]):
        if not station.identifier:
            station.identifier = identifier_of(station.keys[0], taken)
            taken.add(station.identifier)
    for station in stations:
        kept = state.setdefault(station.identifier, Kept([], [None] * QUALITIES))
        # Of addresses only the present ones: another station may come to use an old one.
        other = [key for key in kept.keys if key[0] in "in" and not any(own[0] == key[0] for own in station.keys)]
        kept.keys = (station.keys[:MAX_KEYS] + other)[:MAX_STATE_KEYS]
        fill_slots(station, kept)


def fill_slots(station, kept):
    """Known addresses keep their numbers; a new one takes that of a gone one of its bit rate, else the first that was never
    used, else one of a gone address."""
    left = {digest(address): (address, rate) for address, rate in station.addresses.items()}
    for place, slot in enumerate(kept.slots):
        if slot and slot[0] in left:
            address, rate = left.pop(slot[0])
            station.slots[place] = (address, rate or slot[1])
    gone = [place for place in range(QUALITIES) if kept.slots[place] and not station.slots[place]]
    rest = []
    for address, rate in chosen(left.values(), QUALITIES - sum(map(bool, station.slots))):
        place = next((each for each in gone if kept.slots[each][1] == rate), None)
        if place is None:
            rest.append((address, rate))
        else:
            gone.remove(place)
            station.slots[place] = (address, rate)
    unused = [place for place in range(QUALITIES) if not kept.slots[place]]
    for place, entry in zip(unused + gone, rest):
        station.slots[place] = entry
    for place, entry in enumerate(station.slots):
        if entry:
            kept.slots[place] = (digest(entry[0]), entry[1])


def chosen(entries, count):
    """That many of the addresses, each bit rate once before any comes twice, in the order of the bit rates."""
    turns, order = collections.Counter(), []
    for address, rate in sorted(entries, key=lambda entry: (-entry[1], entry[0])):
        order.append((turns[rate], -rate, address, rate))
        turns[rate] += 1
    picked = [(address, rate) for _, _, address, rate in sorted(order)[:max(count, 0)]]
    return sorted(picked, key=lambda entry: (entry[1] or 10000, entry[0]))


def category_of(station, top):
    return top + genre_of(station.tags)
