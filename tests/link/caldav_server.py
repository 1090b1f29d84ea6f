"""A Radicale calendar server on a free port of 127.0.0.1, with its storage and an htpasswd
file in a temporary folder, for the data link's tests and benchmark; and a proxy in front of a
server that answers late.

usage as a program: caldav_server.py FOLDER   (prints the calendar's URL, serves until killed)"""

import os
import socket
import subprocess
import sys
import threading
import time

import http.server

import caldav
import urllib3

USER = "alice"
PASSWORD = "s3cret pass"


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def wait_for(port, seconds=20):
    deadline = time.time() + seconds
    while time.time() < deadline:
        try:
            socket.create_connection(("127.0.0.1", port), timeout=0.5).close()
            return
        except OSError:
            time.sleep(0.1)
    raise RuntimeError("the server did not start")


class Radicale:
    def __init__(self, folder, tls=False):
        """With `tls`, over HTTPS with a certificate of its own that nobody trusts."""
        self.port = free_port()
        self.base = "%s://127.0.0.1:%d/" % ("https" if tls else "http", self.port)
        server_tls = ""
        if tls:
            # The test's own client reads past the certificate it made itself.
            urllib3.disable_warnings(urllib3.exceptions.InsecureRequestWarning)
            key, cert = os.path.join(folder, "key.pem"), os.path.join(folder, "cert.pem")
            subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days",
                            "2", "-subj", "/CN=127.0.0.1", "-keyout", key, "-out", cert],
                           check=True, capture_output=True)
            server_tls = "ssl = True\ncertificate = %s\nkey = %s\n" % (cert, key)
            self.fingerprint = subprocess.run(
                ["openssl", "x509", "-noout", "-fingerprint", "-sha256", "-in", cert],
                check=True, capture_output=True, text=True).stdout.strip().split("=")[1]
        users = os.path.join(folder, "users")
        with open(users, "w") as f:
            f.write("%s:%s\n" % (USER, PASSWORD))
        config = os.path.join(folder, "radicale.conf")
        with open(config, "w") as f:
            f.write("[server]\nhosts = 127.0.0.1:%d\n%s[auth]\ntype = htpasswd\n"
                    "htpasswd_filename = %s\nhtpasswd_encryption = plain\n"
                    "[rights]\ntype = owner_only\n[storage]\nfilesystem_folder = %s\n"
                    "[logging]\nlevel = warning\n" % (self.port, server_tls, users,
                                                      os.path.join(folder, "store")))
        self.process = subprocess.Popen([sys.executable, "-m", "radicale", "--config", config],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(self.port)
        self.client = caldav.DAVClient(self.base, username=USER, password=PASSWORD,
                                       ssl_verify_cert=not tls)
        self.principal_url = self.base + USER + "/"

    def make_calendar(self, cal_id, name):
        """A calendar collection made with MKCALENDAR; its URL."""
        calendar = self.client.principal().make_calendar(name=name, cal_id=cal_id)
        return str(calendar.url)

    def calendar(self, url):
        return caldav.Calendar(client=self.client, url=url)

    def stop(self):
        self.process.terminate()
        self.process.wait()


class SlowProxy:
    """Passes connections to the server on `port` after holding each answer `delay` seconds."""

    def __init__(self, port, delay):
        self.listener = socket.socket()
        self.listener.bind(("127.0.0.1", 0))
        self.listener.listen()
        self.port = self.listener.getsockname()[1]
        self.target, self.delay = port, delay
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            client, _ = self.listener.accept()
            threading.Thread(target=self.pass_on, args=(client,), daemon=True).start()

    def pass_on(self, client):
        server = socket.create_connection(("127.0.0.1", self.target))
        threading.Thread(target=self.pipe, args=(client, server, 0), daemon=True).start()
        self.pipe(server, client, self.delay)

    @staticmethod
    def pipe(source, sink, delay):
        try:
            while data := source.recv(65536):
                time.sleep(delay)
                sink.sendall(data)
        except OSError:
            pass
        finally:
            for s in (source, sink):
                try:
                    s.shutdown(socket.SHUT_RDWR)
                except OSError:
                    pass


class Redirector:
    """Sends every request on to the same path at `base` with a permanent redirect."""

    def __init__(self, base):
        class Handler(http.server.BaseHTTPRequestHandler):
            def answer(self):
                self.send_response(308)
                self.send_header("Location", base.rstrip("/") + self.path)
                self.send_header("Content-Length", "0")
                self.end_headers()

            do_PROPFIND = do_REPORT = do_PUT = answer

            def log_message(self, *args):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.port = self.server.server_address[1]
        threading.Thread(target=self.server.serve_forever, daemon=True).start()


if __name__ == "__main__":
    server = Radicale(sys.argv[1])
    print(server.make_calendar("work", "Work"), flush=True)
    try:
        server.process.wait()
    except KeyboardInterrupt:
        server.stop()
