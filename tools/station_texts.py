# SPDX-License-Identifier: LGPL-2.1-or-later
"""Texts of a station list: what fits into a record in Windows-1250, Czech names of countries, genres by their tags."""
import functools
import re
import unicodedata

ENCODING = "cp1250"
SEPARATOR = "/@/"
MAX_NAME = 80        # characters: the list of favourites shows 93, and the bit rate stands behind the name
MAX_COUNTRY = 60
MAX_ADDRESS = 2048   # the shortest of the program's limits for addresses
MAX_RAW = 8192       # characters looked at of any text from outside

CYRILLIC = dict(zip("абвгдеёжзийклмнопрстуфхцчшщъыьэюяєіїґђјљњћџўѓќѕ",
                    "a b v g d e jo ž z i j k l m n o p r s t u f ch c č š šč * y * e ju ja je i ji g đ j lj nj ć dž u ď ť dz".split()))
GREEK = dict(zip("αβγδεζηθικλμνξοπρσςτυφχψω", "a v g d e z i th i k l m n x o p r s s t y f ch ps o".split()))
OTHERS = {"æ": "ae", "œ": "oe", "ø": "o", "ð": "d", "þ": "th", "ħ": "h", "ı": "i", "ŋ": "ng", "ĸ": "k", "ſ": "s", "ŧ": "t"}
LATIN = {"ъ": "", "ь": "", **{key: value.replace("*", "") for key, value in (CYRILLIC | GREEK | OTHERS).items()}}

# Codes of ISO 3166-1 and the names that the directory shows.
COUNTRIES = {
    "AL": "Albánie", "AR": "Argentina", "AT": "Rakousko", "AU": "Austrálie", "BA": "Bosna a Hercegovina", "BE": "Belgie",
    "BG": "Bulharsko", "BR": "Brazílie", "BY": "Bělorusko", "CA": "Kanada", "CH": "Švýcarsko", "CL": "Chile", "CN": "Čína",
    "CO": "Kolumbie", "CU": "Kuba", "CY": "Kypr", "CZ": "Česko", "DE": "Německo", "DK": "Dánsko", "EE": "Estonsko", "EG": "Egypt",
    "ES": "Španělsko", "FI": "Finsko", "FR": "Francie", "GB": "Velká Británie", "GE": "Gruzie", "GR": "Řecko", "HR": "Chorvatsko",
    "HU": "Maďarsko", "ID": "Indonésie", "IE": "Irsko", "IL": "Izrael", "IN": "Indie", "IS": "Island", "IT": "Itálie",
    "JP": "Japonsko", "KR": "Jižní Korea", "LI": "Lichtenštejnsko", "LT": "Litva", "LU": "Lucembursko", "LV": "Lotyšsko",
    "MA": "Maroko", "MD": "Moldavsko", "ME": "Černá Hora", "MK": "Severní Makedonie", "MT": "Malta", "MX": "Mexiko",
    "NL": "Nizozemsko", "NO": "Norsko", "NZ": "Nový Zéland", "PE": "Peru", "PH": "Filipíny", "PL": "Polsko", "PT": "Portugalsko",
    "RO": "Rumunsko", "RS": "Srbsko", "RU": "Rusko", "SE": "Švédsko", "SI": "Slovinsko", "SK": "Slovensko", "TH": "Thajsko",
    "TN": "Tunisko", "TR": "Turecko", "TW": "Tchaj-wan", "UA": "Ukrajina", "US": "USA", "UY": "Uruguay", "VE": "Venezuela",
    "VN": "Vietnam", "XK": "Kosovo", "ZA": "Jihoafrická republika",
}
ENGLISH = {
    "austria": "AT", "belgium": "BE", "bulgaria": "BG", "canada": "CA", "croatia": "HR", "czech republic": "CZ", "czechia": "CZ",
    "denmark": "DK", "england": "GB", "finland": "FI", "france": "FR", "germany": "DE", "great britain": "GB", "greece": "GR",
    "hungary": "HU", "ireland": "IE", "italy": "IT", "netherlands": "NL", "norway": "NO", "poland": "PL", "portugal": "PT",
    "romania": "RO", "russia": "RU", "serbia": "RS", "slovakia": "SK", "slovenia": "SI", "spain": "ES", "sweden": "SE",
    "switzerland": "CH", "the czech republic": "CZ", "uk": "GB", "ukraine": "UA", "united kingdom": "GB", "united states": "US",
    "united states of america": "US", "usa": "US",
}

# Part of the category code, name in the tree, beginnings of the words that a tag of it has (folded).
GENRES = (
    ("06", "Zprávy a mluvené slovo", "news talk zprav mluven sport info spoken podcast literatur drama public publicist"),
    ("07", "Pro děti", "child kids deti detsk pohadk disney"),
    ("12", "Náboženská", "christ religi nabozens krest gospel cathol katolic church bible islam"),
    ("04", "Klasika", "classic klasik klasick opera symphon baro komorni vazna"),
    ("03", "Jazz a blues", "jazz blues swing soul funk bossa"),
    ("11", "Hip hop a rap", "hip hiphop rap rnb r&b urban"),
    ("02", "Rock a metal", "rock metal punk grunge hardcore indie alternativ"),
    ("08", "Elektronika a tanec", "elect elektr techno house trance dance edm drum dnb ambient chill lounge club disco tanec"),
    ("05", "Folk a country", "folk country bluegrass americana tramp"),
    ("09", "Dechovka a lidová", "dechov lidov volksm schlager polka ludov brass"),
    ("10", "Oldies a retro", "oldie retro 60s 70s 80s 90s golden sanson chanson nostalg"),
    ("01", "Pop a hity", "pop hit top chart adult hot contemporar"),
)
OTHER_GENRE = ("99", "Ostatní")
WORDS = re.compile(r"[\w&]+")


@functools.lru_cache(maxsize=65536)  # names of columns and tags come again and again
def folded(text):
    """Lower case without diacritics, for comparisons."""
    if text.isascii():
        return text.lower()
    plain = "".join(LATIN.get(sign, sign) for sign in text.casefold())
    return "".join(sign for sign in unicodedata.normalize("NFKD", plain) if not unicodedata.combining(sign))


def fits(text):
    try:
        text.encode(ENCODING)
        return True
    except UnicodeEncodeError:
        return False


@functools.lru_cache(maxsize=65536)
def latin(sign):
    """A character as Windows-1250 can write it; empty when it cannot."""
    if fits(sign):
        return sign
    bare = "".join(part for part in unicodedata.normalize("NFKD", sign) if not unicodedata.combining(part))
    for each in (sign, bare):
        small = LATIN.get(each.lower())
        if small is not None:
            return small if sign.islower() else small[:1].upper() + small[1:]
    return bare if fits(bare) else ""


def one_line(text):
    """One line without control characters, double blanks and what a terminal or a list would reorder."""
    text = text[:MAX_RAW]
    if text.isprintable():
        return " ".join(text.split())
    clean = "".join(sign if unicodedata.category(sign)[0] not in "CZ" else " " if sign.isspace() or sign == "\0" else ""
                    for sign in text)
    return " ".join(clean.split())


def as_field(text, longest):
    """A field of a record: in the code page, in bounds, without the separator or the beginning of one at its end."""
    text = unicodedata.normalize("NFC", one_line(text))
    if not fits(text):
        text = "".join(map(latin, text))
    while SEPARATOR in text:
        text = text.replace(SEPARATOR, " ")
    text = " ".join(text.split())[:longest].strip()
    while text.endswith("/@"):
        text = text[:-2].rstrip()
    return text


def name_field(text, host):
    """A station's name; its host's where too little of the name is left in the code page."""
    name = as_field(text, MAX_NAME)
    letters = sum(sign.isalnum() for sign in text[:MAX_RAW])
    kept = sum(sign.isalnum() for sign in name)
    return name if kept and (kept * 2 >= min(letters, MAX_NAME)) else as_field(host, MAX_NAME)


def country_field(name, code):
    """The Czech name of a country by its code or English name, else the name as given."""
    code = code.strip().upper() or ENGLISH.get(folded(one_line(name)), "")
    if name.strip().upper() in COUNTRIES:
        code = name.strip().upper()
    if code in COUNTRIES:
        return COUNTRIES[code]
    return as_field(name, MAX_COUNTRY) or as_field(code, MAX_COUNTRY)


@functools.lru_cache(maxsize=65536)
def genre_of(tags):
    """The part of the category code of the first tag that says something."""
    for tag in re.split(r"[,;|/]", tags[:MAX_RAW]):
        for word in WORDS.findall(folded(tag)):
            for part, _, beginnings in GENRES:
                if any(word.startswith(start) for start in beginnings.split()):
                    return part
    return OTHER_GENRE[0]


CZECH = {"č": "c\x7f", "ř": "r\x7f", "š": "s\x7f", "ž": "z\x7f"}


def czech_order(text):
    """A key that sorts as a Czech reader looks things up: č after c, ch after h."""
    text = unicodedata.normalize("NFC", text.casefold()).replace("ch", "h\x7f")
    return ("".join(CZECH.get(sign) or folded(sign) for sign in text), text)
