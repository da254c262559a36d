#!/usr/bin/python3
"""Runs a command while an FTP server serves a folder on the loopback: with_ftp_server.py COMMAND [ARGUMENT]...

TAGRIX_FTP_PORT and TAGRIX_FTP_FOLDER tell the command where. Without pyftpdlib it runs without them.
"""
import logging
import os
import subprocess
import sys
import tempfile
import threading

try:
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.handlers import FTPHandler
    from pyftpdlib.servers import FTPServer
except ImportError:
    sys.exit(subprocess.call(sys.argv[1:]))

with tempfile.TemporaryDirectory() as folder:
    os.makedirs(os.path.join(folder, "ostrelco", "files"))
    authorizer = DummyAuthorizer()
    authorizer.add_user("someone", "secret", folder)
    FTPHandler.authorizer = authorizer
    server = FTPServer(("127.0.0.1", 0), FTPHandler)
    port = server.socket.getsockname()[1]
    logging.disable(logging.CRITICAL)
    threading.Thread(target=server.serve_forever, kwargs={"handle_exit": False}, daemon=True).start()
    environment = dict(os.environ, TAGRIX_FTP_PORT=str(port), TAGRIX_FTP_FOLDER=folder)
    status = subprocess.call(sys.argv[1:], env=environment)
sys.exit(status)
