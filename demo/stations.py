# SPDX-License-Identifier: LGPL-2.1-or-later
"""The invented stations that really sound: one table that the radio plays by and the directory begins with."""
from dataclasses import dataclass, field


@dataclass(frozen=True)
class Station:
    identifier: str          # six characters
    name: str
    country: str
    category: str            # a top category of directory_data.py, then the part of the subcategory
    hertz: int               # the loudest tone of its sound, for those who measure what is heard
    bit_rates: tuple = (128,)
    format: str = "mp3"      # of all its qualities
    marker: str = ""
    titles: tuple = field(default=("Demo",))
    about: str = ""          # a sentence for the directory's text box

    def path(self, quality: int) -> str:
        """The address below the radio, quality 1..5."""
        return f"/{self.identifier.lower()}-{self.bit_rates[quality - 1]}.{self.format}"


STATIONS = (
    Station("LUMO01", "Rádio Úsvit", "Česko", "10000101", 440, (128, 64, 320, 192, 96), titles=(
        "Žluťoučký kůň - Příliš tichá noc", "Jitřenka - Ráno u řeky", "Dvě struny - Šeřík")),
    Station("LUMO02", "Vlna Šumava", "Česko", "10000105", 523, (128, 64), titles=(
        "Kapela z Hůrky - Čirá voda", "Lesní zvony - Pod Boubínem"), about="Písně od ohníčku, z hor a z lesů."),
    Station("LUMO03", "Klub Půlnoc", "Česko", "10000108", 587, (192, 96), titles=(
        "Noční rychlík - Poslední stanice", "Sametová tma - Světla")),
    Station("LUMO04", "Rádio Děti a pohádky", "Česko", "10000107", 659, (64,), titles=(
        "O zlaté rybce - 1. část", "O zlaté rybce - 2. část"), about="Pohádka každý večer v půl sedmé."),
    Station("LUMO05", "Tatranská ozvena", "Slovensko", "10000205", 698, (128,), titles=(
        "Ľadová kvapka - Kriváň", "Goralské husle - Ďaleká cesta")),
    Station("LUMO06", "Rádio Dunaj", "Slovensko", "10000201", 784, (128, 64), titles=(
        "Mesto pri rieke - Mosty",)),
    Station("LUMO07", "Radio Łódka", "Polsko", "10000401", 880, (128,), titles=("Źródło - Jaźń",)),
    Station("LUMO08", "Alpenglühen", "Rakousko", "10000505", 370, (128,), titles=("Bergquartett - Grüße",)),
    Station("LUMO09", "Café Étoile", "Francie", "10000703", 349, (96,), "ogg", titles=("Élodie - Déjà vu",)),
    Station("LUMO10", "Night Drive FM", "Velká Británie", "10000602", 494, (320, 128), titles=(
        "Northern Line - Last Train", "Glass Harbour - Low Tide")),
    Station("LUMO11", "Klasika & ticho", "Česko", "10000104", 330, (128,), "aac", marker="tip  – tip redakce", titles=(
        "Smyčcové kvarteto - Largo",)),
    Station("LUMO12", "Jazzový sklep", "Česko", "10000103", 392, (128, 64), marker="tip", titles=(
        "Trio Hvězda - Modrá pětka", "Trio Hvězda - Čtvrtá ráno")),
    Station("LUMO13", "Rádio s velmi dlouhým jménem, které se nevejde", "Česko", "10000106", 466, (128,), titles=(
        "Dlouhý název skladby, který se také nevejde na jeden řádek displeje, protože nikdy nekončí - Nekonečno",)),
    Station("LUMO14", "Televize Lumo", "Česko", "100003", 415, (128,)),
)
