# SPDX-License-Identifier: LGPL-2.1-or-later
"""The station directory of the real program, over a server that does as it is told."""
from directory_server_control import DirectoryServer
from program import Program

DONE = "Hotovo, připraven..."
REFUSED = "Aktualizaci nyní nelze provést, zkuste to prosím později."
OFF = "13=#013:LTautoStart:0"


class Directory(Program):
    def open(self, *options, **settings):
        """The program with its directory open; the server is set first."""
        desk = self.begin(*(options or (OFF,)))
        self.server = DirectoryServer(self.radio.port)
        self.server.reset()
        self.server.set(**{"seconds": "0.5", "probe_seconds": "0", **settings})
        desk.click("Control_Sat")
        self.until(lambda: (form := self.control("Form")) and form.visible, text="the directory opens")
        self.until(self.status, text="it is loaded, and its update has begun")
        return desk

    def control(self, name):
        return self.desk.controls("ListRadios").get(name)

    def status(self):
        label = self.control("Label1")
        return label.text if label else None

    def updated(self, seconds=25):
        self.until(lambda: self.status() == DONE, seconds, self.status())

    def node(self, text):
        return next(node for node in self.desk.nodes() if node.text == text)

    def row(self, part):
        return next(row for row in self.desk.rows() if part in row.text)

    def click(self, name, button=1):
        self.desk.click(name, button, window="ListRadios")
