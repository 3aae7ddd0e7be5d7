"""Only the user of ./run can use its virtual display: other users of the machine reach neither the display nor VNC."""

import os
import pathlib
import signal
import socket
import subprocess
import sys

from waiting import Failure, check, wait_until

ROOT = pathlib.Path(__file__).resolve().parents[2]
OPEN = 'set -euo pipefail; . scripts/virtual_display.sh; open_virtual_display; ' \
       'echo "$DISPLAY $XAUTHORITY $vnc_port $vnc_password"; cat'  # until the test closes its input
VNC_PASSWORD = 2  # the security type with a password; type 1 has none


def can_look(display, cookie_file):
    environment = {"PATH": os.environ["PATH"], "DISPLAY": display, "XAUTHORITY": str(cookie_file)}
    return subprocess.run(["xdpyinfo"], env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          check=False).returncode == 0


def exactly(connection, count):
    got = b""
    while len(got) < count:
        part = connection.recv(count - len(got))
        check(part, "the VNC server closed the connection")
        got += part
    return got


def kinds_of_security(port):
    """The security types that the VNC server offers; None while there is no server yet."""
    try:
        connection = socket.create_connection(("127.0.0.1", port), timeout=20)
    except ConnectionRefusedError:
        return None
    with connection:
        connection.sendall(exactly(connection, len("RFB 003.008\n")))
        return list(exactly(connection, exactly(connection, 1)[0]))


def check_display(display, cookie_file, port, password):
    check(can_look(display, cookie_file), "the display refuses the cookie of its user")
    check(not can_look(display, "/dev/null"), "the display accepts a client without the cookie")
    folder = pathlib.Path(cookie_file).parent
    check(folder.stat().st_mode & 0o077 == 0, f"other users may read {folder}")
    check(len(password) == 8, f"the password '{password}' does not have the eight characters that VNC uses")
    offered = wait_until(lambda: kinds_of_security(int(port)), "the VNC server")
    check(offered == [VNC_PASSWORD], f"VNC offers the security types {offered} instead of only the password")


def opened():
    shell = subprocess.Popen(["bash", "-c", OPEN], cwd=ROOT, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    told = shell.stdout.readline().decode().split()
    return shell, told


def test():
    shell, told = opened()
    try:
        check(len(told) == 4, f"the display did not open: {told}")
        display, cookie_file, port, password = told
        check_display(display, cookie_file, port, password)
        other, of_other = opened()
        try:
            check(of_other[0] != display and of_other[3] != password, f"a second display: {of_other}")
            check(not can_look(display, of_other[1]), "the second display's cookie opens the first")
        finally:
            other.communicate()
        check(can_look(display, cookie_file), "the end of the second display ended the first")
    finally:
        shell.communicate()
    check(not pathlib.Path(cookie_file).parent.exists(), "the cookie is still there after the end")
    wait_until(lambda: not pathlib.Path(f"/tmp/.X11-unix/X{display[1:]}").exists(), "the end of the display")


signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
try:
    test()
except Failure as failure:
    print(f"virtual_display_test: {failure}")
    sys.exit(1)
