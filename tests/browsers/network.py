"""A network that is not there: a proxy that refuses and records every request."""

import contextlib
import socket
import threading


class DeadNetwork:
    """A proxy that refuses everything and records what it was asked for."""

    def __init__(self):
        self.requests = []
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            with connection, contextlib.suppress(OSError):
                connection.settimeout(5)
                self.requests.append(connection.recv(4096).split(b"\r\n")[0].decode("latin-1"))
                connection.sendall(b"HTTP/1.1 502 No network\r\nContent-Length: 0\r\nConnection: close\r\n\r\n")

    def asked_for(self, host):
        return any(host in request for request in self.requests)

    def close(self):
        self.listener.close()
