"""Web servers on the loopback for the contract of the HTTPS client; all give the same answers.

start(FOLDER) keeps certificates there, made by openssl, and returns what tells a test where the servers are:
TAGRIX_HTTPS_PORT      TLS with the certificate in TAGRIX_CERTIFICATE (DER), which the test may trust.
TAGRIX_UNTRUSTED_PORT  TLS with another certificate.
TAGRIX_OLD_TLS_PORT    TLS 1.1 at most, with the first certificate.
TAGRIX_HTTP_PORT       no TLS.
TAGRIX_MUTE_PORT       takes connections and says nothing.
"""
import http.server
import os
import socket
import ssl
import subprocess
import threading

PATIENCE = 60  # seconds, for whatever a server waits


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    timeout = PATIENCE

    def do_GET(self):
        path = self.path.split("?")[0]
        if path == "/missing":
            self.answer(404, b"nothing here")
        elif path == "/busy":
            self.answer(503, b"slow down", ("Retry-After", "3"))
        elif path == "/long":
            self.answer(200, b"x" * 3_000_000)
        elif path == "/moved-to-http":
            self.answer(302, b"", ("Location", f"http://localhost:{self.server.places['TAGRIX_HTTP_PORT']}/good"))
        elif path == "/moved-to-https":
            self.answer(302, b"", ("Location", f"https://localhost:{self.server.places['TAGRIX_HTTPS_PORT']}/good"))
        elif path == "/cut":
            self.answer(200, b"half", ("Content-Length", "8"))
        elif path == "/endless":
            self.answer(200, b"", ("Transfer-Encoding", "chunked"))
            while True:
                self.wfile.write(b"10000\r\n" + b"x" * 0x10000 + b"\r\n")
        elif path == "/stalled":
            self.answer(200, b"half", ("Content-Length", "8"))
            self.wait()
        elif path == "/silent":
            self.wait()
        else:
            self.answer(200, f"{self.path} for {self.headers['User-Agent']}".encode())

    def answer(self, status, body, header=None):
        self.send_response(status)
        self.send_header("Connection", "close")  # or the client may send its next request on it
        if header:
            self.send_header(*header)
        if not header or header[0] in ("Location", "Retry-After"):
            self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)
        self.wfile.flush()

    def wait(self):
        self.connection.recv(1)  # until the client has gone

    def log_message(self, *_):
        pass


class Server(http.server.ThreadingHTTPServer):
    """Each connection's handshake takes place in its own thread."""

    def __init__(self, places, tls=None):
        super().__init__(("127.0.0.1", 0), Handler)
        self.places, self.tls = places, tls

    def process_request_thread(self, request, client_address):
        try:
            if self.tls:
                request.settimeout(PATIENCE)
                request = self.tls.wrap_socket(request, server_side=True)
            super().process_request_thread(request, client_address)
        except OSError:
            request.close()  # the client wants no such TLS, or has gone

    def handle_error(self, request, client_address):
        pass  # the client has gone


def certificate(folder, name):
    key, path = (os.path.join(folder, f"{name}.{end}") for end in ("key", "pem"))
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=localhost",
                    "-addext", "subjectAltName=DNS:localhost", "-keyout", key, "-out", path],
                   check=True, stderr=subprocess.DEVNULL)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(path, key)
    return context, path, key


def start(folder):
    places = {}
    trusted, path, key = certificate(folder, "trusted")
    old = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    old.load_cert_chain(path, key)
    old.set_ciphers("DEFAULT@SECLEVEL=0")
    old.minimum_version, old.maximum_version = ssl.TLSVersion.TLSv1, ssl.TLSVersion.TLSv1_1
    untrusted = certificate(folder, "untrusted")[0]
    for name, tls in ("HTTPS", trusted), ("UNTRUSTED", untrusted), ("OLD_TLS", old), ("HTTP", None):
        server = Server(places, tls)
        places[f"TAGRIX_{name}_PORT"] = str(server.server_address[1])
        threading.Thread(target=server.serve_forever, daemon=True).start()
    mute = socket.create_server(("127.0.0.1", 0))
    start.mute = mute  # stays open
    places["TAGRIX_MUTE_PORT"] = str(mute.getsockname()[1])
    with open(path) as pem, open(os.path.join(folder, "trusted.der"), "wb") as der:
        der.write(ssl.PEM_cert_to_DER_cert(pem.read()))
        places["TAGRIX_CERTIFICATE"] = der.name
    return places
