# SPDX-License-Identifier: LGPL-2.1-or-later
"""Replies of known length, as the servers of the demonstration give them."""


def head(handler, length, kind="text/plain", status=200):
    handler.send_response(status)
    handler.send_header("Content-Type", kind)
    handler.send_header("Content-Length", str(length))
    handler.send_header("Cache-Control", "no-store")
    handler.end_headers()


def reply(handler, data, kind="text/plain; charset=utf-8", status=200):
    head(handler, len(data), kind, status)
    if handler.command != "HEAD":
        handler.wfile.write(data)
