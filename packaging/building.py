# SPDX-License-Identifier: LGPL-2.1-or-later
"""Builds what is packed: of a commit, in a folder of its own, with the symbols apart."""
import os
import re
import shutil
import subprocess
import sys

import archives

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
STRIP, OBJCOPY = "x86_64-w64-mingw32-strip", "x86_64-w64-mingw32-objcopy"
MADE = ("build/package/", "build/package-data/")  # made here and by demo/make_package_data, not by the compiler
SYMBOLS_OF = "app/lumotune.exe"


class Failed(Exception):
    """What was tried did not work; the text is for the person at the keyboard."""


def say(text):
    print(f"package: {text}", flush=True)


def answer(*words, cwd=TOP):
    done = subprocess.run(words, cwd=cwd, capture_output=True, check=False)
    if done.returncode != 0:
        raise Failed(f"{words[0]} {words[1]}: {done.stderr.decode('utf-8', 'replace').strip()[-1000:]}")
    return done.stdout


def run_logged(log, words, **more):
    with open(log, "ab") as out:
        if subprocess.run(words, stdout=out, stderr=subprocess.STDOUT, check=False, stdin=subprocess.DEVNULL, **more).returncode != 0:
            with open(log, encoding="utf-8", errors="replace") as told:
                sys.stderr.write("".join(told.readlines()[-30:]))
            raise Failed(f"{' '.join(words[:3])} ... (all of it is in {log})")


def version_in(top):
    with open(os.path.join(top, "CMakeLists.txt"), encoding="utf-8") as source:
        return re.search(r"project\(lumotune VERSION ([\d.]+)", source.read())[1]


def export(commit, folder):
    """The files of the commit and nothing else."""
    os.makedirs(folder)
    tree = answer("git", "archive", "--format=tar", commit)
    subprocess.run(["tar", "-x", "-C", folder], input=tree, check=True)


def targets(rows, known):
    """What the compiler has to make of the sources in lists: a file, or all that is made in a folder."""
    wanted = set()
    for row in rows:
        if row.startswith("build/") and not row.startswith(MADE):
            path = row[len("build/"):].rstrip("/")
            found = {name for name in known if name == path or name.startswith(path + "/")}
            if not found:
                raise Failed(f"nothing in the build makes {row}")
            wanted |= found
    return sorted(wanted)


def sources_named(list_path):
    """The right side of each line. listing.read() looks whether they may be there; before the build they are not."""
    with open(list_path, encoding="utf-8") as source:
        return [line.rstrip("\n").split("\t", 1)[1] for line in source if "\t" in line and not line.startswith("#")]


def compile_all(source, build, lists, deps, environment):
    """Builds what the lists name."""
    os.makedirs(build)
    log = os.path.join(build, "package.log")
    run_logged(log, ["cmake", "-S", source, "-B", build, "-G", "Ninja", f"-DCMAKE_TOOLCHAIN_FILE={source}/cmake/toolchain-mingw64.cmake",
                     "-DCMAKE_BUILD_TYPE=Release", "-DLUMOTUNE_PACKAGE=ON", f"-DLUMOTUNE_DEPS_PREFIX={deps}"], env=environment)
    known = [line.rpartition(": ")[0] for line in answer("ninja", "-C", build, "-t", "targets", "all").decode().splitlines()]
    wanted = targets([row for path in lists for row in sources_named(path)], known)
    run_logged(log, ["ninja", "-C", build, *wanted], env=environment)


def strip_all(build, rows, symbols):
    """Takes the symbols out of the programs, and keeps those of the player. -p keeps the time in the header, which is none."""
    os.makedirs(symbols, exist_ok=True)
    answer(OBJCOPY, "-p", "--only-keep-debug", os.path.join(build, SYMBOLS_OF), os.path.join(symbols, "lumotune.debug"))
    for path in sorted({source for _, source in rows if source.startswith(build) and source.endswith((".exe", ".dll"))}):
        answer(STRIP, "-p", path)


def check_paths(build, rows, private):
    """No program may tell where it was built."""
    for path in sorted({source for _, source in rows if source.startswith(build + os.sep)}):
        content = archives.read(path)
        for place in private:
            for text in (place.encode(), place.encode("utf-16-le")):
                if text in content:
                    raise Failed(f"{os.path.relpath(path, build)} contains the path {place}")


def make_manual(source, build):
    folder = os.path.join(build, "package")
    os.makedirs(folder, exist_ok=True)
    answer(os.path.join(source, "tools", "make-manual"), os.path.join(folder, "prirucka.html"))


def make_demo_data(source, build):
    """What the demonstration and the self-test have besides programs."""
    maker = os.path.join(source, "demo", "make_package_data")
    if os.path.exists(maker):
        run_logged(os.path.join(build, "package.log"), [maker, os.path.join(build, "package-data")])


def source_archives(out, name, commit, deps, when):
    """Ours as git has it, and those of the libraries as Debian has them, with our patches and options."""
    tree = answer("git", "archive", "--format=tar", f"--prefix={name}/", commit)
    archives.make_gzip(os.path.join(out, f"{name}-src.tar.gz"), tree)
    folder = os.path.join(deps, "sources")
    rows = [(f"{name}-libraries/{each}", os.path.join(folder, each)) for each in os.listdir(folder)]
    archives.make_tar(os.path.join(out, f"{name}-libraries-src.tar"), rows, when)


def fresh(folder):
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    return folder
