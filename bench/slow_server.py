"""Serves the files below a folder from memory, each answer after a while: slow_server.py FOLDER MILLISECONDS

Prints its port, and ends when its standard input closes.
"""

import asyncio
import sys
from pathlib import Path


class Exchange(asyncio.Protocol):
    """One kept-alive connection."""

    def __init__(self, pages, delay):
        self.pages = pages
        self.delay = delay
        self.received = b""

    def connection_made(self, transport):
        self.transport = transport

    def data_received(self, data):
        self.received += data
        while b"\r\n\r\n" in self.received:
            head, _, self.received = self.received.partition(b"\r\n\r\n")
            asyncio.get_running_loop().call_later(self.delay, self.transport.write, self.answer(head))

    def answer(self, head):
        method, path = head.split(b" ", 2)[:2]
        body = self.pages.get(path.decode("ascii", "replace"))
        status = b"200 OK" if body is not None else b"404 Not Found"
        header = (b"HTTP/1.1 %s\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: %d\r\n"
                  b"Last-Modified: Mon, 06 Jan 2025 10:00:00 GMT\r\n\r\n" % (status, len(body or b"")))
        return header + (body or b"") if method == b"GET" else header


async def serve(folder, delay):
    pages = {"/" + str(file.relative_to(folder)): file.read_bytes() for file in folder.rglob("*.html")}
    loop = asyncio.get_running_loop()
    server = await loop.create_server(lambda: Exchange(pages, delay), "127.0.0.1", 0)
    print(server.sockets[0].getsockname()[1], flush=True)
    await loop.run_in_executor(None, sys.stdin.read)


asyncio.run(serve(Path(sys.argv[1]), float(sys.argv[2]) / 1000))
