"""Plays keys through a virtual MIDI port: how constant the time from a key to its sound is, and what step entry writes."""

import random
import re
import subprocess
import time

from desk import check, go_first, wait_until
from midi_server import PORT, Keyboard, share_no_memory, start_midi_server

KEYS = 200
BLOCK_MS = 64 / 44.1


def play(keyboard):
    """One key, since each has an attack of its own. The gaps are no multiple of a buffer of the stream or of the MIDI
    server."""
    gaps = random.Random(1)
    for _ in range(KEYS):
        keyboard.send("90 4C 7F")
        time.sleep(0.03)
        keyboard.send("80 4C 00")
        time.sleep(gaps.uniform(0.12, 0.16))


def measure_keys(desk, build, add):
    share_no_memory()
    start_midi_server(desk)
    keyboard = Keyboard(desk)
    # Without a card the stream keeps the pace of the clock. A card, or a server without one, drifts from it.
    environment = {name: value for name, value in desk.environment.items() if name != "PULSE_SERVER"}
    environment["SDL_AUDIODRIVER"] = "pulseaudio"
    program = subprocess.Popen([build / "bench" / "bench_keys", str(KEYS)], env=environment, stdout=subprocess.PIPE,
                               stderr=subprocess.PIPE, preexec_fn=go_first)
    check(program.stdout.readline() == b"ready\n", "the program did not start")
    wait_until(lambda: "Velorin:in" in desk.told(["jack_lsp", "-c", PORT]), "the connection to the keyboard")
    play(keyboard)
    told, complaints = program.communicate(timeout=200)
    check(program.returncode == 0, complaints.decode())
    values = dict(re.findall(r"^(\w+) (.*)$", told.decode(), re.M))
    middle, low, high = map(float, values["key_to_sound_ms"].split())
    written = int(values["written"])
    add("key of a MIDI keyboard to its sound in the stream", "ms", [low, middle, high], "15", "", middle <= 15)
    add(f"spread of it over {KEYS} keys", "ms", [high - low], "1.45", "a block of the stream", high - low <= BLOCK_MS)
    add("keys that step entry has written", "", [written], str(KEYS), "", written == KEYS, 0)
