"""The maker's web server, over TLS, with an authority of its own."""

import hashlib
import http.server
import json
import os
import ssl
import subprocess
import tempfile
import threading

FOLDER = "/assets/7306/firmware/"


def openssl(*words):
    subprocess.run(["openssl", *words], check=True, capture_output=True)


def certificates():
    """A folder with authority.pem, server.pem and server.key."""
    folder = tempfile.mkdtemp(prefix="tls")
    at = lambda name: os.path.join(folder, name)  # noqa: E731
    curve = ["-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes"]
    openssl("req", "-x509", *curve, "-keyout", at("authority.key"), "-out", at("authority.pem"), "-days", "2",
            "-subj", "/CN=Authority of a test")
    openssl("req", *curve, "-keyout", at("server.key"), "-out", at("server.csr"), "-subj", "/CN=localhost")
    with open(at("names"), "w") as file:
        file.write("subjectAltName=DNS:localhost\n")
    openssl("x509", "-req", "-in", at("server.csr"), "-CA", at("authority.pem"), "-CAkey", at("authority.key"),
            "-CAcreateserial", "-days", "2", "-extfile", at("names"), "-out", at("server.pem"))
    return folder


def image(version):
    """One that the simulated pedal takes as its firmware of that version."""
    return b"7306 firmware " + version.encode() + bytes(range(256)) * 400


class Maker:
    def __init__(self, version, changes):
        body = image(version)
        entry = {"name": "pedal.bin", "hash": hashlib.md5(body).hexdigest(), "size": len(body),
                 "version": version, "changes": changes}
        self.bodies = {FOLDER + "_.json": json.dumps([entry]).encode(), FOLDER + "pedal.bin": body}
        self.folder = certificates()
        self.authority = os.path.join(self.folder, "authority.pem")
        bodies = self.bodies

        class Answer(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                body = bodies.get(self.path)
                self.send_response(404 if body is None else 200)
                self.send_header("Content-Length", str(len(body or b"")))
                self.end_headers()
                self.wfile.write(body or b"")

            def log_message(self, *words):
                pass

        self.server = http.server.ThreadingHTTPServer(("localhost", 0), Answer)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(os.path.join(self.folder, "server.pem"), os.path.join(self.folder, "server.key"))
        self.server.socket = context.wrap_socket(self.server.socket, server_side=True)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.host = f"localhost:{self.server.server_port}"

    def close(self):
        self.server.shutdown()
        self.server.server_close()
