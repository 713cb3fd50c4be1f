# SPDX-License-Identifier: LGPL-2.1-or-later
"""Runs test methods one after the other and writes a JUnit file. A failed one leaves a picture beside it.

A whole desktop on a busy machine stumbles now and then: a test that fails is told so and tried once more, and only the second
failure counts. Names of such tests go to a file beside the results, which the sum tells.
"""
import inspect
import os
import sys
import time
import traceback
import xml.etree.ElementTree as xml

from desk import picture


def attempt(case, name, path):
    """What went wrong; nothing when all went well."""
    thing = case()
    try:
        try:
            getattr(thing, name)()
        finally:
            if sys.exc_info()[0] is not None:
                picture(os.path.join(os.path.dirname(path), f"failed-{name}.png"))
            thing.tear_down()
    except Exception:  # pylint: disable=broad-except
        return traceback.format_exc()
    return None


def run(*cases):
    path, chosen = sys.argv[1], sys.argv[2:]
    suite, failed, twice = xml.Element("testsuite", name=os.path.basename(path)[:-4]), 0, []
    for case in cases:
        for name, _ in inspect.getmembers(case, inspect.isfunction):
            if not name.startswith("test_") or (chosen and name not in chosen):
                continue
            started = time.monotonic()
            row = xml.SubElement(suite, "testcase", classname=case.__name__, name=name)
            wrong = attempt(case, name, path)
            if wrong:
                print(f"stumbled, once more: {name}\n{wrong}", flush=True)
                twice.append(name)
                wrong = attempt(case, name, path)
            if wrong:
                failed += 1
                xml.SubElement(row, "failure", message="failed").text = wrong
                print(f"not ok {name}\n{wrong}", flush=True)
            else:
                print(f"ok {name} ({time.monotonic() - started:.1f} s)", flush=True)
            row.set("time", f"{time.monotonic() - started:.2f}")
    with open(path[:-4] + ".twice", "w", encoding="utf-8") as file:
        file.writelines(f"{name}\n" for name in twice)
    xml.ElementTree(suite).write(path)
    sys.exit(1 if failed else 0)
