# SPDX-License-Identifier: LGPL-2.1-or-later
"""Steers the demonstration's community server while the program talks to it, and tells what was asked of it.

    server = DirectoryServer(radio.port)           the one inside the demonstration radio
    server.set(probe="huge", list="stall")         the settings are in demo/directory_server.py
    server.lists(), server.requests("/orb/")       what was asked for
    server.reset()                                 back to the beginning, requests forgotten

    with OwnServer(folder, "--set", "seconds=0") as server:    one of its own, without sound
"""
import http.client
import os
import subprocess
import sys
import time
import urllib.parse

TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
sys.path.insert(0, os.path.join(TOP, "demo"))
from directory_server import LIST_PATH, REPORT_PATH  # noqa: E402


class DirectoryServer:
    def __init__(self, port):
        self.port = port
        self.base = f"http://127.0.0.1:{port}"

    def ask(self, path, timeout=30):
        """The answer, its body still unread. The path goes as it is, backslashes and all."""
        line = http.client.HTTPConnection("127.0.0.1", self.port, timeout=timeout)
        line.request("GET", path)
        return line.getresponse()

    def get(self, path, timeout=30):
        """Status and body."""
        with self.ask(path, timeout) as answer:
            return answer.status, answer.read()

    def set(self, **values):
        status, text = self.get("/control/set?" + urllib.parse.urlencode(values))
        if status != 200:
            raise ValueError(text.decode())

    def settings(self):
        return dict(line.partition("=")[::2] for line in self.get("/control/set?")[1].decode("utf-8").splitlines())

    def reset(self):
        self.get("/control/reset")

    def list_bytes(self):
        """What the next full list consists of when nothing goes wrong."""
        return self.get("/control/list")[1]

    def requests(self, part=""):
        """The request lines that hold `part`, oldest first."""
        return [line for line in self.get("/control/requests")[1].decode("utf-8").splitlines() if part in line]

    def probes(self):
        return self.requests(LIST_PATH + "?size=1&")

    def lists(self):
        return self.requests(LIST_PATH + "?idh=")

    def reports(self):
        return self.requests(REPORT_PATH)


class OwnServer(DirectoryServer):
    """Started for one test; a port of 0 takes a free one."""

    def __init__(self, folder, *options):
        self.port_file = os.path.join(folder, "directory-port")
        if os.path.exists(self.port_file):
            os.remove(self.port_file)
        self.process = subprocess.Popen(
            [sys.executable, os.path.join(TOP, "demo", "directory_server.py"), "--port-file", self.port_file, *options],
            stdout=subprocess.DEVNULL)
        end = time.monotonic() + 30
        while not os.path.exists(self.port_file):
            if self.process.poll() is not None or time.monotonic() > end:
                raise RuntimeError("the directory server does not start")
            time.sleep(0.05)
        with open(self.port_file, encoding="ascii") as source:
            super().__init__(int(source.read()))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        """Asks it to end; its exit code."""
        self.process.terminate()
        try:
            return self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            return self.process.wait()
