# SPDX-License-Identifier: LGPL-2.1-or-later
"""The installer: makes the list of files that packaging/lumotune.nsi goes through, and compiles it with NSIS."""
import os
import subprocess

from PIL import Image

from archives import write_whole
from listing import Refused

# A listener or the client may have own files there; see packaging/replacing.nsh.
KEPT = "Orb_Data/pictures/"


def quoted(text):
    """As a text of an NSIS script; its variables and quotes have no place in a name of ours."""
    if any(letter in text for letter in '"$`\r\n'):
        raise Refused(f"not a name for the installer: {text!r}")
    return f'"{text}"'


def folders(rows):
    """Every folder of the paths, the outer before the inner."""
    found = {path[:at] for path, _ in rows for at, letter in enumerate(path) if letter == "/"}
    return sorted(found)


def windows(path):
    return quoted(path.replace("/", "\\"))


def file_list(rows):
    """The lines of files.nsh."""
    lines = [f"${{EachFolder}} {windows(folder)}" for folder in folders(rows)]
    for path, source in rows:
        kind = "EachKept" if path.startswith(KEPT) else "EachShipped"
        lines.append(f"${{{kind}}} {windows(path)} {quoted(source)}")
    lines += [f"${{EachFolderBack}} {windows(folder)}" for folder in reversed(folders(rows))]
    return "\n".join(lines) + "\n"


def draw_side(icon, path):
    """The picture at the side of the last page, in the size that NSIS asks for: the program's icon."""
    with Image.open(icon) as source:
        drawn = source.convert("RGBA").resize((96, 96), Image.Resampling.LANCZOS)
    side = Image.new("RGB", (164, 314), (27, 37, 49))
    side.paste(drawn, (34, 60), drawn)
    side.save(path + ".new", "BMP")
    os.replace(path + ".new", path)


def make_setup(out, rows, version, top, work):
    """Compiles the installer of these files into the path `out`, by the scripts of the tree `top`; what NSIS says is raised when
    it fails. Its bytes follow from those of the files: their times are not kept."""
    os.makedirs(work, exist_ok=True)
    scripts = os.path.join(top, "packaging")
    text = file_list(rows)
    write_whole(os.path.join(work, "files.nsh"), lambda file: file.write(b"\xef\xbb\xbf" + text.encode()))
    kilobytes = sum(os.path.getsize(source) for _, source in rows) // 1024 + 1
    numbers = ".".join((version.split(".") + ["0", "0", "0"])[:4])
    icon = os.path.join(top, "assets", "lumotune.ico")
    draw_side(icon, os.path.join(work, "side.bmp"))
    values = {"VERSION": version, "NUMBERS": numbers, "OUT": out, "ICON": icon, "FILES": work, "KILOBYTES": kilobytes}
    words = ["makensis", "-V2", "-WX", "-INPUTCHARSET", "UTF8", "-NOCD", *(f"-D{name}={value}" for name, value in values.items()),
             f'-X!addincludedir "{scripts}"', os.path.join(scripts, "lumotune.nsi")]
    done = subprocess.run(words, capture_output=True, text=True, check=False, env={**os.environ, "LC_ALL": "C.UTF-8"})
    if done.returncode != 0:
        raise RuntimeError("makensis: " + (done.stdout + done.stderr)[-2000:])
