# SPDX-License-Identifier: LGPL-2.1-or-later
"""The invented directory of the demonstration: categories, stations, the information and the advertisement line.

Everything follows from the number of stations, the base address and the version: the same call gives the same bytes, and
a longer list begins with the stations of a shorter one.
"""
import random
import unicodedata
from dataclasses import dataclass
from functools import lru_cache

from stations import STATIONS

ENCODING = "cp1250"
SEPARATOR = "/@/"
LINE_END = "\r\n"
QUALITIES = 5

# The advertising area of the directory window, in its units.
ADVERT_HEIGHT = 1050
ADVERT_WINDOW_HEIGHT = 7125
ADVERT_PATH = "/lumotune.brelt/reklama.html"
INFO_INTERVAL_MS = 60
INFO_COLOUR = 0x800000  # red is the lowest byte: a dark blue

EVERYTHING = "100000"   # its subcategories choose by the part after the sixth character, in every category
TELEVISION = "100003"

GENRES = (
    ("01", "Pop a hity"), ("02", "Rock"), ("03", "Jazz a blues"), ("04", "Klasika"), ("05", "Folk a country"),
    ("06", "Zprávy a mluvené slovo"), ("07", "Pro děti"), ("08", "Elektronika"), ("09", "Dechovka a lidová"),
    ("10", "Šansony a trampské písně"),
)
TELEVISION_KINDS = (("06", "Zpravodajské"), ("07", "Dětské"), ("12", "Krajské"))


@dataclass(frozen=True)
class Region:
    """A top category of stations; names are made of a first and a second part."""
    identifier: str
    title: str
    countries: tuple
    weight: int
    first: tuple
    second: tuple
    site: str  # the last part of web addresses, of those that never exist


REGIONS = (
    Region("100001", "Česká rádia", ("Česko",), 10,
           ("Rádio", "Vlna", "Kanál", "Stanice", "Éter", "Studio", "Anténa", "Fonograf", "Ladička", "Tuner"),
           ("Borovice", "Modrý kámen", "Na Pasece", "Zvonička", "Dlouhá míle", "Tichý potok", "Šípek", "Žlutá čára",
            "U Mlýna", "Kometa", "Ořešák", "Větrník", "Šestá hodina", "Půlkruh", "Řepka", "Ledňáček", "Červený svah",
            "Kůrka", "Ďáblík", "Ťuhýk", "Růžová mlha", "Úhelník"), "cz.example"),
    Region("100002", "Slovenské rádiá", ("Slovensko",), 5, ("Rádio", "Vlna", "Kanál", "Stanica", "Éter", "Anténa"),
           ("Čučoriedka", "Kľúčik", "Ôsma míľa", "Ďatelina", "Ružový vŕšok", "Vŕba", "Pltník", "Jašterica", "Hríb",
            "Žriedlo", "Večernica", "Ľan", "Stĺp", "Môstik"), "sk.example"),
    Region("100004", "Polsko", ("Polsko",), 3, ("Radio", "Fala", "Kanał", "Stacja", "Eter"),
           ("Żółty Liść", "Źródełko", "Łódeczka", "Ćma", "Gęsi Puch", "Śnieżynka", "Wąwóz", "Sójka", "Trzy Dęby",
            "Ósmy Krąg", "Złota Nić"), "pl.example"),
    Region("100005", "Německo a Rakousko", ("Německo", "Rakousko"), 4,
           ("Radio", "Welle", "Kanal", "Sender", "Funkhaus"),
           ("Grünspecht", "Süßholz", "Morgenröte", "Kühle Quelle", "Fährmann", "Höhenweg", "Bächlein", "Räuberhut",
            "Drei Brücken", "Löwenzahn", "Glühwurm", "Überland"), "de.example"),
    Region("100006", "Velká Británie a Irsko", ("Velká Británie", "Irsko"), 4,
           ("Radio", "Channel", "Station", "Wave", "Tower"),
           ("Copper Kettle", "Slow Heron", "Night Ferry", "Seven Gates", "Old Lantern", "Paper Kite", "Rainy Acre",
            "Blue Turnip", "Long Meadow", "Tin Whistler", "Hollow Oak", "Velvet Crow"), "uk.example"),
    Region("100007", "Francie", ("Francie",), 3, ("Radio", "Onde", "Canal", "Fréquence", "Antenne"),
           ("Étoile Verte", "Châtaigne", "Cédille", "Île au Vent", "Hérisson", "Café Rond", "Côté Jardin", "Cerisier",
            "Écureuil", "Pré Doré", "Lune Carrée", "Garçon d'Été"), "fr.example"),
    Region("100008", "Itálie", ("Itálie",), 2, ("Radio", "Onda", "Canale", "Frequenza"),
           ("Girasole", "Castagna", "Tre Ponti", "Lago Quieto", "Pietra Viva", "Volpe Blu", "Ombra Lunga"), "it.example"),
    Region("100009", "Maďarsko", ("Maďarsko",), 2, ("Rádió", "Hullám", "Csatorna", "Adó"),
           ("Őzike", "Fűszál", "Kék Gyűrű", "Tűzmadár", "Hársfa", "Szélkakas", "Zöld Üveg", "Nádirigó"), "hu.example"),
    Region("100010", "Chorvatsko a Slovinsko", ("Chorvatsko", "Slovinsko"), 2, ("Radio", "Val", "Kanal", "Postaja"),
           ("Čvorak", "Šumski Put", "Žuta Točka", "Đurđica", "Ćuk", "Maslačak", "Plavi Škrinjar"), "hr.example"),
    Region("100011", "Severní Amerika", ("USA", "Kanada"), 3, ("Radio", "Channel", "Highway", "Porch"),
           ("Prairie Lamp", "Cactus Mile", "Lonesome Kettle", "Maple Tin", "Dusty Comet", "Freight Yard", "Late Acre",
            "Tumbleweed Nine"), "us.example"),
)

# Which of the five qualities a station offers; a gap is as good as any, and some offer none just now.
OFFERS = ((1,), (1, 2), (1, 2, 3), (1, 2, 3, 4), (1, 2, 3, 4, 5), (1, 3), (2, 4), (1, 5), (3,), (2, 3), (2,), (4,), (5,),
          (2, 3, 5), (1, 2, 4, 5), (3, 4, 5), (1, 4), (2, 5))
NO_OFFER_EVERY = 97
RATES = (64, 96, 128, 192, 320)  # of qualities 1 to 5 of the made stations
TELEVISION_EVERY = 20
MARKERS = (("", 78), ("tip", 8), ("tip ", 2), ("tip  (novinka)", 4), ("Tip  – doporučujeme", 2), ("user", 3),
           ("user (od posluchačů)", 3))
ABOUT = (
    "Hraje bez přestávky, zprávy v celou hodinu.", "Vysílá z podkroví starého mlýna.", "Písničky na přání každý večer.",
    "Jen hudba, žádné řeči.", "V noci vysílá záznamy z koncertů; příští v sobotu od osmi.", "Zkušební vysílání.",
    "Příliš žluťoučký kůň úpěl ďábelské ódy.",
)


@dataclass(frozen=True)
class Entry:
    """A station as the directory knows it. Addresses are paths below the base address."""
    identifier: str
    name: str
    marker: str
    country: str
    category: str
    addresses: tuple    # five, "" where the quality does not exist
    rates: tuple        # five texts
    www: str            # "" or an address; one that begins with "/" lies below the base address
    about: str          # what follows a further separator after the web address; "" for none

    def record(self, base):
        www = base + self.www if self.www.startswith("/") else self.www
        fields = [self.identifier, self.name, self.marker, "1", self.country, self.category,
                  *[base + path if path else "" for path in self.addresses], *self.rates, www]
        return SEPARATOR.join(fields + [self.about] if self.about else fields)


def padded(values):
    return tuple(list(values) + [""] * (QUALITIES - len(values)))


@lru_cache(maxsize=1)
def sounding():
    """The stations that have sound of their own, as entries."""
    entries = []
    for station in STATIONS:
        count = len(station.bit_rates)
        entries.append(Entry(
            station.identifier, station.name, station.marker, station.country, station.category,
            padded([station.path(n) for n in range(1, count + 1)]), padded([str(rate) for rate in station.bit_rates]),
            f"/radio/{station.identifier.lower()}", station.about))
    return tuple(entries)


@lru_cache(maxsize=1)
def mounts():
    """Bit rate to the addresses that play in it."""
    found = {rate: [] for rate in RATES}
    for station in STATIONS:
        for quality, rate in enumerate(station.bit_rates, 1):
            found[rate].append((station.identifier, station.path(quality)))
    return found


def mount(rate, number):
    """An address in that bit rate: of the station that lends its sound, or of another one that has it."""
    lender = STATIONS[number % len(STATIONS)].identifier
    choices = mounts()[rate]
    return next((path for identifier, path in choices if identifier == lender), choices[number % len(choices)][1])


def hertz_of(path):
    """The tone of an address."""
    return next(station.hertz for station in STATIONS
                for quality in range(1, len(station.bit_rates) + 1) if path.endswith(station.path(quality)))


def identifier_of(number):
    """Six characters, a different one for each number below 36^5; the multiplier has no factor in common with 36."""
    value, text = number * 7919123 % 36 ** 5, ""
    for _ in range(5):
        value, digit = divmod(value, 36)
        text = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[digit] + text
    return "D" + text


def slug(name):
    """The name as a web host could bear it."""
    split = unicodedata.normalize("NFKD", name.lower().translate({ord("ł"): "l", ord("đ"): "d", ord("ß"): "ss"}))
    return "".join(c if c.isascii() and c.isalnum() else "-" if c == " " else "" for c in split)


def pick(choice, table):
    """One of (value, weight) pairs."""
    return choice.choices([value for value, _ in table], [weight for _, weight in table])[0]


def name_of(region, number, first=None):
    """A name; numbers past the number of pairs get a numeral."""
    firsts = first or region.first
    turn, at = divmod(number, len(firsts) * len(region.second))
    row, column = divmod(at, len(region.second))
    # Both parts change from one number to the next.
    name = f"{firsts[(row + column) % len(firsts)]} {region.second[column]}"
    return name if turn == 0 else f"{name} {turn + 1}"


def web_of(choice, name, region, identifier):
    kind = choice.randrange(10)
    if kind < 3:
        return f"/radio/{identifier.lower()}"
    if kind < 6:
        return f"http://www.{slug(name)}.{region.site}/"
    return f"www.{slug(name)}.{region.site}" if kind < 8 else ""


def made(number, counters):
    """The station of that number, 0 on; `counters` keeps how many names each region has given."""
    choice = random.Random(f"lumotune directory {number}")
    television = number % TELEVISION_EVERY == TELEVISION_EVERY - 1
    region = REGIONS[0] if television else pick(choice, [(each, each.weight) for each in REGIONS])
    key = TELEVISION if television else region.identifier
    counters[key] = counters.get(key, 0) + 1
    name = name_of(region, counters[key] - 1, ("Televize", "TV", "Obrazovka") if television else None)
    if television:
        category = TELEVISION + choice.choice(("",) + tuple(kind for kind, _ in TELEVISION_KINDS))
    else:
        category = region.identifier + choice.choice(GENRES)[0]
    offer = (3,) if television else OFFERS[choice.randrange(len(OFFERS))]
    if number % NO_OFFER_EVERY == NO_OFFER_EVERY - 1:
        offer = ()
    identifier = identifier_of(number)
    addresses = tuple(mount(RATES[q - 1], number) if q in offer else "" for q in range(1, QUALITIES + 1))
    rates = tuple(str(RATES[q - 1]) if q in offer else "" for q in range(1, QUALITIES + 1))
    about = choice.choice(ABOUT) if choice.randrange(6) == 0 else ""
    return Entry(identifier, name, pick(choice, MARKERS), choice.choice(region.countries), category, addresses, rates,
                 web_of(choice, name, region, identifier), about)


def newcomer(version):
    """The station that a later version of the list adds at its end."""
    return Entry(f"NOVY{version % 100:02}", f"Rádio Nováček {version}", "tip  (právě přibylo)", "Česko", "10000101",
                 padded([STATIONS[0].path(1)]), padded(["128"]), f"/radio/novy{version % 100:02}", "")


@lru_cache(maxsize=8)
def entries(count, version=1):
    """`count` stations, the sounding ones first; version 2 on differs by its last one."""
    counters = {}
    found = list(sounding()[:count])
    found += [made(number, counters) for number in range(count - len(found))]
    if version > 1 and found:
        found[-1] = newcomer(version)
    return tuple(found)


def category_lines():
    lines = [f"new//{EVERYTHING}{SEPARATOR}Všechna rádia"]
    lines += [f"add//{EVERYTHING}{suffix}{SEPARATOR}{title}" for suffix, title in GENRES]
    for region in REGIONS:
        lines.append(f"new//{region.identifier}{SEPARATOR}{region.title}")
        lines += [f"add//{region.identifier}{suffix}{SEPARATOR}{title}" for suffix, title in GENRES]
    lines.append(f"new//{TELEVISION}{SEPARATOR}Televize")
    lines += [f"add//{TELEVISION}{suffix}{SEPARATOR}{title}" for suffix, title in TELEVISION_KINDS]
    return lines


INFO_ACTIONS = {
    "openurl": "novinky.php?od=lumotune&co=1",
    "showusers": f"..orb.exe||Orb - Lumotune||lts:{STATIONS[0].identifier}||2",
    "opengbrowser": "lumotune.brelt*.l*novinky.php?idh=*.Orbidh*&h=*.Orbh*&t=*.!Orbh*|=|"
                    "9000||9000||Novinky (Orb)||normal||endtestnull||",
}


def info_text(count):
    return f"V adresáři je dnes {count} rádií. Klikněte a přečtěte si, která přibyla."


def info_line(action, count):
    return SEPARATOR.join(["1", str(INFO_COLOUR), str(INFO_INTERVAL_MS), info_text(count), "Otevře novinky", action,
                           INFO_ACTIONS[action]])


def advert_line(base, shown=True):
    return SEPARATOR.join([str(ADVERT_HEIGHT), str(ADVERT_WINDOW_HEIGHT), "1" if shown else "0", base + ADVERT_PATH])


def downloaded_list(base, count, version=1, info="openurl", advert="shown", orders=()):
    """The whole list as the server sends it, in bytes. `info` is an action or "none"; `advert` shown, hidden or none; `orders` are
    further lines for the window, in front of those."""
    lines = ["orb:k:" + line for line in category_lines()]
    lines += orders
    if info != "none":
        lines.append("orb:i:" + info_line(info, count))
    if advert != "none":
        # After the information line, which gives the window a height of its own.
        lines.append("orb:r:" + advert_line(base, advert == "shown"))
    lines += [entry.record(base) for entry in entries(count, version)]
    lines.append("<end>")
    return encoded(lines)


def encoded(lines):
    return "".join(line + LINE_END for line in lines).encode(ENCODING)


def station_file(base, count, version=1):
    """radios.tt as the program makes it of the list."""
    return encoded([entry.record(base) for entry in entries(count, version)] + [""])


def category_file():
    """kategories.tt as the program makes it of the list."""
    return encoded(category_lines() + [""])
