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

import caldav

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
    def __init__(self, folder):
        self.port = free_port()
        self.base = "http://127.0.0.1:%d/" % self.port
        users = os.path.join(folder, "users")
        with open(users, "w") as f:
            f.write("%s:%s\n" % (USER, PASSWORD))
        config = os.path.join(folder, "radicale.conf")
        with open(config, "w") as f:
            f.write("[server]\nhosts = 127.0.0.1:%d\n[auth]\ntype = htpasswd\n"
                    "htpasswd_filename = %s\nhtpasswd_encryption = plain\n"
                    "[rights]\ntype = owner_only\n[storage]\nfilesystem_folder = %s\n"
                    "[logging]\nlevel = warning\n" % (self.port, users, os.path.join(folder, "store")))
        self.process = subprocess.Popen([sys.executable, "-m", "radicale", "--config", config],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(self.port)
        self.client = caldav.DAVClient(self.base, username=USER, password=PASSWORD)
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


if __name__ == "__main__":
    server = Radicale(sys.argv[1])
    print(server.make_calendar("work", "Work"), flush=True)
    try:
        server.process.wait()
    except KeyboardInterrupt:
        server.stop()
