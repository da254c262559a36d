#!/usr/bin/python3
"""Runs a command while servers on the loopback answer it: with_servers.py COMMAND [ARGUMENT]...

The environment tells the command where they are:
TAGRIX_FTP_PORT      an FTP server. A file whose name begins with "short" or "stalled" is announced twice as long as it
                     is; at the end of the latter the server falls silent. One that begins with "long" is announced
                     half as long.
TAGRIX_FTP_FOLDER    the folder that it serves.
TAGRIX_FOLDER        an empty folder, whose content goes when the command ends.
TAGRIX_ECHO_PORT     a TCP server that gives back each request (up to an empty line). It closes the connection after one
                     that begins with "close", reads on half a second late when one begins with "late", and one that
                     begins with "reset" it cuts off without an answer.
TAGRIX_REFUSED_PORT  a port on which nothing listens.
Web servers: see tls_server.py.
"""
import logging
import os
import select
import socket
import socketserver
import struct
import subprocess
import sys
import tempfile
import threading
import time

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.filesystems import AbstractedFS
from pyftpdlib.handlers import DTPHandler, FTPHandler
from pyftpdlib.servers import ThreadedFTPServer

import tls_server

PATIENCE = 60  # seconds, for whatever a server waits


class Folder(AbstractedFS):
    def getsize(self, path):
        name, size = os.path.basename(path), super().getsize(path)
        if name.startswith("long"):
            return size // 2
        return 2 * size if name.startswith(("short", "stalled")) else size


class Data(DTPHandler):
    timeout = PATIENCE

    def handle_close(self):  # the file has ended, too
        if os.path.basename(getattr(self.file_obj, "name", "")).startswith("stalled"):
            select.select([self.socket], [], [], PATIENCE)  # until the client has gone
        super().handle_close()


class Ftp(FTPHandler):
    abstracted_fs = Folder
    authorizer = DummyAuthorizer()
    auth_failed_timeout = 0
    dtp_handler = Data
    timeout = PATIENCE

    def respond(self, resp, **options):
        """Wine takes an answer byte by byte, which is slow on a busy machine: leaves out what is for people."""
        super().respond(resp if resp.startswith(("213", "227")) else resp[:4], **options)


class Echo(socketserver.BaseRequestHandler):
    def handle(self):
        self.request.settimeout(PATIENCE)
        try:
            while request := self.read():
                if request.startswith(b"reset"):
                    self.request.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
                    return self.request.close()
                self.request.sendall(request)
                if request.startswith(b"close"):
                    return
        except OSError:
            pass  # the client has gone, or waits

    def read(self):
        """A request; nothing when the client has closed."""
        piece = self.request.recv(1 << 20)
        request = bytearray(piece)
        if request.startswith(b"late"):
            time.sleep(0.5)
        while piece and not request.endswith(b"\r\n\r\n"):
            piece = self.request.recv(1 << 20)
            request += piece
        return piece and request


logging.disable(logging.CRITICAL)
socketserver.ThreadingTCPServer.daemon_threads = True
with (tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as certificates,
      tempfile.TemporaryDirectory() as files, socket.socket() as silent):
    os.makedirs(os.path.join(folder, "ostrelco", "files"))
    Ftp.authorizer.add_user("someone", "secret", folder)
    ftp = ThreadedFTPServer(("127.0.0.1", 0), Ftp)
    echo = socketserver.ThreadingTCPServer(("127.0.0.1", 0), Echo)
    silent.bind(("127.0.0.1", 0))
    threading.Thread(target=ftp.serve_forever, kwargs={"handle_exit": False}, daemon=True).start()
    threading.Thread(target=echo.serve_forever, daemon=True).start()
    places = tls_server.start(certificates) | {"TAGRIX_FTP_FOLDER": folder, "TAGRIX_FOLDER": files}
    for name, listener in ("FTP", ftp.socket), ("ECHO", echo.socket), ("REFUSED", silent):
        places[f"TAGRIX_{name}_PORT"] = str(listener.getsockname()[1])
    status = subprocess.call(sys.argv[1:], env={**os.environ, **places})
sys.exit(status)
