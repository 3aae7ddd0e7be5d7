"""A MIDI server for the tests of MIDI ports."""

import ctypes
import os
import subprocess

from desk import Desk
from waiting import wait_until

NAME = f"velorin-test-{os.getpid()}"  # scripts run at the same time
PORT = "Test keys:keys"
OWN_MOUNTS, PRIVATE_BELOW = 0x20000, 0x44000  # flags of unshare and mount


def share_no_memory():
    """The MIDI server keeps a table of at most eight servers in shared memory, and a killed one stays in it. If it is
    allowed, this test and its programs get a shared memory of their own."""
    library = ctypes.CDLL(None)
    if library.unshare(OWN_MOUNTS) == 0 and library.mount(b"none", b"/", None, PRIVATE_BELOW, None) == 0:
        library.mount(b"tmpfs", b"/dev/shm", b"tmpfs", 0, None)


def start_midi_server(desk):
    desk.environment.update(JACK_NO_AUDIO_RESERVATION="1", JACK_NO_START_SERVER="1", JACK_DEFAULT_SERVER=NAME)
    # It waits for its clients: on a busy machine a late client would lose notes.
    desk.start(["jackd", "-n", NAME, "-r", "-S", "-d", "dummy", "-r", "44100", "-p", "1024"])
    wait_for_port(desk, "playback_1", "the MIDI server")


def wait_for_port(desk, name, what):
    wait_until(lambda: name in desk.told(["jack_lsp"]), what)


class DeskWithMidi(Desk):
    def open_sound(self):
        super().open_sound()
        start_midi_server(self)


class Keyboard:
    """A keyboard that is plugged in."""

    def __init__(self, desk):
        self.desk = desk
        self.process = desk.start([desk.build / "bin" / "velorin-midi-source", "Test keys"], stdin=subprocess.PIPE)
        wait_for_port(desk, PORT, "the keyboard")

    def send(self, *messages):
        """Messages in hexadecimal digits, "90 3C 7F"."""
        self.process.stdin.write("".join(message + "\n" for message in messages).encode())
        self.process.stdin.flush()

    def unplug(self):
        self.process.stdin.close()
        self.process.wait()
