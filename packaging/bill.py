# SPDX-License-Identifier: LGPL-2.1-or-later
"""The bill of materials of the packages: what is linked into the programs, in which version, under which licence.

As CycloneDX 1.5 (JSON, https://cyclonedx.org/docs/1.5/json/) and as a text to read, with the licences themselves. Versions
are those of Debian's packages: of the sources that tools/build-deps kept, or of the packages installed here.
"""
import glob
import json
import os
import re
import shutil
import subprocess
import tarfile
import time
import typing
import urllib.parse
import uuid

from archives import sha256, write_whole

PROGRAMS = "lumotune.exe"
ALL = "every program"


class Part(typing.NamedTuple):
    name: str
    source: str  # Debian's source package, kept by tools/build-deps; or nothing
    package: str  # else the installed package that brings it
    licence: str  # SPDX expression
    where: str
    text: str  # name of its licence's file


PARTS = (
    Part("FFmpeg (libavformat, libavcodec, libswresample, libavutil)", "ffmpeg", "", "LGPL-2.1-or-later", PROGRAMS, "ffmpeg.txt"),
    Part("cubeb", "cubeb", "", "ISC", PROGRAMS, "cubeb.txt"),
    Part("Speex resampler, in cubeb", "speexdsp", "", "BSD-3-Clause", PROGRAMS, "speexdsp.txt"),
    Part("zlib", "", "libz-mingw-w64-dev", "Zlib", PROGRAMS, "zlib.txt"),
    Part("GCC runtime (libstdc++, libgcc, libssp)", "", "gcc-mingw-w64-x86-64-posix-runtime",
         "GPL-3.0-or-later WITH GCC-exception-3.1", ALL, "gcc.txt"),
    Part("mingw-w64 runtime", "", "mingw-w64-x86-64-dev", "ZPL-2.1 AND LicenseRef-public-domain", ALL, "mingw-w64.txt"),
    Part("winpthreads, of mingw-w64", "", "mingw-w64-x86-64-dev", "MIT AND BSD-3-Clause", ALL, "mingw-w64.txt"),
    Part("NSIS (with the LZMA decoder)", "", "nsis", "Zlib AND CPL-1.0", "the installer and the uninstaller", "nsis.txt"),
    Part("GoogleTest", "", "googletest", "BSD-3-Clause", "the programs of the self-test", "googletest.txt"),
)


class Missing(Exception):
    pass


def installed_version(package):
    done = subprocess.run(["dpkg-query", "-W", "-f=${Version}", package], capture_output=True, text=True, check=False)
    if done.returncode != 0 or not done.stdout:
        raise Missing(f"{package} is not installed: run tools/setup")
    return done.stdout


def description(deps, source):
    """The .dsc of a source package: its path and version."""
    for path in glob.glob(os.path.join(deps, "sources", source + "_*.dsc")):
        with open(path, encoding="utf-8") as lines:
            version = re.search(r"^Version: (\S+)$", lines.read(), re.MULTILINE)
        if version:
            return path, version[1]
    raise Missing(f"no sources of {source} in {deps}: run tools/build-deps")


def version_of(part, deps):
    return description(deps, part.source)[1] if part.source else installed_version(part.package)


def copyright_of_source(deps, source, out):
    """debian/copyright of a kept source package."""
    archives = glob.glob(os.path.join(deps, "sources", source + "_*.debian.tar.*"))
    if len(archives) != 1:
        raise Missing(f"no sources of {source} in {deps}: run tools/build-deps")
    with tarfile.open(archives[0]) as archive:
        content = archive.extractfile("debian/copyright").read()
    write_whole(out, lambda file: file.write(content))


def write_licences(deps, top, folder):
    """Every licence's text, and ours."""
    os.makedirs(folder, exist_ok=True)
    for part in PARTS:
        target = os.path.join(folder, part.text)
        if part.source:
            copyright_of_source(deps, part.source, target)
        else:
            shutil.copyfile(f"/usr/share/doc/{part.package}/copyright", target)
    for name in ("LICENSE", "NOTICE"):
        shutil.copyfile(os.path.join(top, name), os.path.join(folder, name + ".txt"))


def component(part, deps):
    version, name = version_of(part, deps), part.source or part.package
    kind = "?arch=source" if part.source else ""
    row = {"type": "library", "bom-ref": re.sub(r"\W+", "-", part.name.lower()).strip("-"), "name": part.name, "version": version,
           "licenses": [{"expression": part.licence}],
           "purl": f"pkg:deb/debian/{name}@{urllib.parse.quote(version, safe='')}{kind}",
           "properties": [{"name": "lumotune:contained-in", "value": part.where},
                          {"name": "lumotune:licence-text", "value": "lumotune-licence/" + part.text}]}
    if part.source:
        path = description(deps, part.source)[0]
        row["externalReferences"] = [{"type": "source-distribution", "url": os.path.basename(path),
                                      "hashes": [{"alg": "SHA-256", "content": sha256(path)}]}]
    if part.source == "ffmpeg":
        patches = sorted(glob.glob(os.path.join(deps, "sources", "*.patch")))
        row["pedigree"] = {"patches": [{"type": "unofficial", "diff": {"url": "packaging/" + os.path.basename(path)}} for path in patches]}
    return row


def bill(version, commit, when, deps):
    rows = [component(part, deps) for part in PARTS]
    own = {"type": "application", "bom-ref": "lumotune", "name": "Lumotune", "version": version,
           "licenses": [{"expression": "LGPL-2.1-or-later"}], "properties": [{"name": "lumotune:commit", "value": commit}]}
    return {"bomFormat": "CycloneDX", "specVersion": "1.5", "version": 1,
            "serialNumber": uuid.uuid5(uuid.NAMESPACE_URL, f"lumotune:{version}:{commit}").urn,
            "metadata": {"timestamp": time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(when)), "component": own},
            "components": rows,
            "dependencies": [{"ref": "lumotune", "dependsOn": [row["bom-ref"] for row in rows]},
                             *({"ref": row["bom-ref"]} for row in rows)]}


def readable(made):
    own = made["metadata"]["component"]
    lines = [f"Lumotune {own['version']}", f"Licence: {own['licenses'][0]['expression']}", f"Commit: {own['properties'][0]['value']}", "",
             "What the programs of these packages contain, all of it linked statically:", ""]
    for row in made["components"]:
        values = {each["name"].rpartition(":")[2]: each["value"] for each in row["properties"]}
        licence = row["licenses"][0]["expression"]
        lines += [row["name"], f"  version   {row['version']}", f"  licence   {licence} ({values['licence-text']})",
                  f"  in        {values['contained-in']}"]
        for reference in row.get("externalReferences", ()):
            lines.append(f"  sources   {reference['url']} and what it names, in lumotune-{own['version']}-libraries-src.tar")
        for patch in row.get("pedigree", {}).get("patches", ()):
            lines.append(f"  changed   {patch['diff']['url']}")
        lines.append("")
    lines += ["Whoever passes the programs on passes on, or offers, the two source packages as well: the sources of Lumotune with the",
              "scripts that build it and the libraries (tools/build-deps, tools/package), and the sources of the libraries. With them",
              "the program can be built anew with a changed library.", ""]
    return "\n".join(lines)


def write_bill(made, json_path, text_path):
    text = json.dumps(made, indent=1, ensure_ascii=False) + "\n"
    write_whole(json_path, lambda out: out.write(text.encode()))
    write_whole(text_path, lambda out: out.write(readable(made).encode()))
