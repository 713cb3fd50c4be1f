# SPDX-License-Identifier: LGPL-2.1-or-later
"""Archives whose bytes follow from their files alone: order, times and rights are fixed."""
import gzip
import hashlib
import os
import tarfile
import time
import zipfile

DOS = 0  # the system that a zip says it was made on: its rights are left to whoever unpacks it
ARCHIVE = 0x20  # the one attribute that Windows gives every new file


def write_whole(path, write):
    """Under another name until it is complete."""
    with open(path + ".new", "wb") as out:
        write(out)
    os.replace(path + ".new", path)


def read(path):
    with open(path, "rb") as source:
        return source.read()


def make_zip(path, rows, when):
    """rows: [(path in the zip, file)]; when: seconds since 1970, from 1980 on."""
    date = time.gmtime(max(when, 315532800))[:6]

    def write(out):
        with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as made:
            for target, source in sorted(rows):
                entry = zipfile.ZipInfo(target, date)
                entry.create_system, entry.external_attr, entry.compress_type = DOS, ARCHIVE, zipfile.ZIP_DEFLATED
                made.writestr(entry, read(source))
    write_whole(path, write)


def make_tar(path, rows, when):
    """Not compressed: for files that are."""
    def write(out):
        with tarfile.open(fileobj=out, mode="w", format=tarfile.USTAR_FORMAT) as made:
            for target, source in sorted(rows):
                entry = tarfile.TarInfo(target)
                entry.size, entry.mtime, entry.mode = os.path.getsize(source), when, 0o644
                with open(source, "rb") as content:
                    made.addfile(entry, content)
    write_whole(path, write)


def make_gzip(path, content):
    def write(out):
        with gzip.GzipFile(filename="", mode="wb", fileobj=out, compresslevel=9, mtime=0) as made:
            made.write(content)
    write_whole(path, write)


def sha256(path):
    return hashlib.sha256(read(path)).hexdigest()


def write_sums(folder):
    """SHA256SUMS of everything in the folder, as sha256sum --check reads it."""
    names = sorted(name for name in os.listdir(folder) if name != "SHA256SUMS")
    text = "".join(f"{sha256(os.path.join(folder, name))}  {name}\n" for name in names)
    write_whole(os.path.join(folder, "SHA256SUMS"), lambda out: out.write(text.encode()))
