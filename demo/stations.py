# SPDX-License-Identifier: LGPL-2.1-or-later
"""The invented stations of the demonstration: one table that the radio plays by and the program folder is made from."""
from dataclasses import dataclass, field


@dataclass(frozen=True)
class Station:
    identifier: str          # six characters
    name: str
    country: str
    category: str            # six characters, then the part of the subcategory
    hertz: int               # the loudest tone of its sound, for those who measure what is heard
    bit_rates: tuple = (128,)
    format: str = "mp3"      # of all its qualities
    marker: str = ""
    titles: tuple = field(default=("Demo",))

    def path(self, quality: int) -> str:
        """The address below the radio, quality 1..5."""
        return f"/{self.identifier.lower()}-{self.bit_rates[quality - 1]}.{self.format}"


STATIONS = (
    Station("LUMO01", "Rádio Úsvit", "Česko", "1000011", 440, (128, 64, 320), titles=(
        "Žluťoučký kůň - Příliš tichá noc", "Jitřenka - Ráno u řeky", "Dvě struny - Šeřík")),
    Station("LUMO02", "Vlna Šumava", "Česko", "1000011", 523, (128, 64), titles=(
        "Kapela z Hůrky - Čirá voda", "Lesní zvony - Pod Boubínem")),
    Station("LUMO03", "Klub Půlnoc", "Česko", "1000012", 587, (192, 96), titles=(
        "Noční rychlík - Poslední stanice", "Sametová tma - Světla")),
    Station("LUMO04", "Rádio Děti a pohádky", "Česko", "1000012", 659, (64,), titles=(
        "O zlaté rybce - 1. část", "O zlaté rybce - 2. část")),
    Station("LUMO05", "Tatranská ozvena", "Slovensko", "1000021", 698, (128,), titles=(
        "Ľadová kvapka - Kriváň", "Goralské husle - Ďaleká cesta")),
    Station("LUMO06", "Rádio Dunaj", "Slovensko", "1000021", 784, (128, 64), titles=(
        "Mesto pri rieke - Mosty",)),
    Station("LUMO07", "Radio Łódka", "Polsko", "1000022", 880, (128,), titles=("Źródło - Jaźń",)),
    Station("LUMO08", "Alpenglühen", "Rakousko", "1000022", 370, (128,), titles=("Bergquartett - Grüße",)),
    Station("LUMO09", "Café Lumière", "Francie", "1000031", 349, (96,), "ogg", titles=("Élodie - Déjà vu",)),
    Station("LUMO10", "Night Drive FM", "Velká Británie", "1000031", 494, (320, 128), titles=(
        "Northern Line - Last Train", "Glass Harbour - Low Tide")),
    Station("LUMO11", "Klasika & ticho", "Česko", "1000032", 330, (128,), "aac", marker="tip tip redakce", titles=(
        "Smyčcové kvarteto - Largo",)),
    Station("LUMO12", "Jazzový sklep", "Česko", "1000032", 392, (128, 64), marker="tip", titles=(
        "Trio Hvězda - Modrá pětka", "Trio Hvězda - Čtvrtá ráno")),
    Station("LUMO13", "Rádio s velmi dlouhým jménem, které se nevejde", "Česko", "1000011", 466, (128,), titles=(
        "Dlouhý název skladby, který se také nevejde na jeden řádek displeje, protože nikdy nekončí - Nekonečno",)),
    Station("LUMO14", "Televize Lumo", "Česko", "100003", 415, (128,)),
)
