# SPDX-License-Identifier: LGPL-2.1-or-later
"""The web pages of the demonstration's community: small, Czech, without scripts. No page repeats who asks for it."""
import html

import directory_data

STYLE = ("body{font:15px/1.5 'Segoe UI',Tahoma,sans-serif;color:#1d2b3a;background:#f4f7fa;margin:0}"
         "h1{font-size:20px;margin:0;padding:12px 18px;background:#24507a;color:#fff}"
         "p,ul{margin:12px 18px}.small{color:#5a6b7c;font-size:13px}")
ADVERT_STYLE = ("body{margin:0;font:14px/1.3 'Segoe UI',Tahoma,sans-serif;background:#24507a;color:#fff}"
                "table{width:100%;height:66px}td{padding:4px 14px}b{font-size:17px;color:#ffd97a}")


def document(title, body, style=STYLE):
    return (f'<!DOCTYPE html>\n<html lang="cs"><head><meta charset="utf-8"><title>{html.escape(title)}</title>'
            f"<style>{style}</style></head>\n<body>{body}</body></html>\n")


def plain(title, *paragraphs):
    text = "".join(f"<p>{paragraph}</p>" for paragraph in paragraphs)
    return document(title, f"<h1>{html.escape(title)}</h1>{text}"
                           '<p class="small">Ukázková stránka; všechno na ní je vymyšlené.</p>')


def advert():
    return document("Reklama", "<table><tr><td><b>Čajovna U Dvou kanálů</b><br>"
                               "Sypaný čaj, teplý přijímač. Otevřeno, dokud hraje.</td></tr></table>", ADVERT_STYLE)


def decoded(segment):
    """The page that a login address names as one segment."""
    for code, sign in (("*o*", "?"), ("*k*", "#"), ("*a*", "&"), ("*l*", "/"), ("*r*", "=")):
        segment = segment.replace(code, sign)
    return segment


def login(path):
    parts = path.split("/")
    target = html.escape(decoded(parts[4])) if len(parts) > 4 and parts[4] else "úvodní stránka"
    return plain("Orb – přihlášení", f"Jste přihlášeni. Pokračujete na: <b>{target}</b>")


def find(identifier, stations, version):
    wanted = identifier.lower()
    return next((entry for entry in directory_data.entries(stations, version) if entry.identifier.lower() == wanted), None)


def station(identifier, stations, version):
    entry = find(identifier, stations, version)
    if entry is None:
        return None
    rates = ", ".join(rate + " kbps" for rate in entry.rates if rate) or "právě žádné"
    return plain(entry.name, html.escape(entry.about or "Rádio, které si jen hraje."),
                 f"Země: {html.escape(entry.country)}<br>Kvality: {rates}")


def discussion(values, stations, version):
    entry = find(values.get("tid", ""), stations, version)
    return plain("Diskuze k rádiové stanici", f"Rádio: <b>{html.escape(entry.name) if entry else 'neznámé'}</b>",
                 "Zatím tu nikdo nic nenapsal. Buďte první!")


def page(path, values, stations, version):
    """The page of that path, or None when there is none."""
    if path in ("/", "/index.html"):
        return plain("Orb", "Ukázkový server komunity.")
    if path == "/faq":
        return plain("Nápověda k Lumotune", "Klikněte na „Naladit“, vyberte rádio a dvakrát na ně klikněte.",
                     "Oblíbená rádia se ukážou v hlavním okně, když nic nehraje.")
    if path == directory_data.ADVERT_PATH:
        return advert()
    if path.startswith("/login/"):
        return login(path)
    if path.startswith("/radio/"):
        return station(path[len("/radio/"):], stations, version)
    if path == "/orb/diskuze.php":
        return discussion(values, stations, version)
    if path == "/orb/melodeon.php":
        return plain("Orb Melodeon", "Volná hudba ke stažení. Zatím ukázka bez hudby.")
    if path == "/lumotune.brelt/user_lt_add.php":
        return plain("Přidat nové rádio", "Napište nám jméno a adresu rádia, které v seznamu chybí.")
    if path in ("/lumotune.brelt/novinky.php", "/novinky.php"):
        names = "".join(f"<li>{html.escape(entry.name)}</li>" for entry in directory_data.entries(stations, version)[-5:])
        return plain("Novinky v adresáři", f"Naposledy přibyla:<ul>{names}</ul>")
    return None
