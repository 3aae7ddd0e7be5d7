"""Records while an external MIDI port plays: the port gets the notes, and the WAV has the input of the sound card. When
the card goes away, the recording continues with silence at the right rate."""

import array
import math
import pathlib
import time
import wave

import listen
from desk import PATIENCE_S, Desk, Failure, check, run, wait_until
from files import size_of
from midi_server import share_no_memory, start_midi_server, wait_for_port
from recorded import AUTO_ENCODE, START, from_first_sound, left_of, one_new, open_score, open_toolbar
from score_text import Score

TEMPO = 120
COLUMN_S = 12 / TEMPO
MELODY = [60, 65, 67, 58, 63]  # pitch indices; the key is 127 minus the index
NOTE_COLUMNS = 16
OCARINA = 79
HEARD_KEY = 57  # the input of the sound card, which is not a note of the melody
LEVEL = 8000
PIECE = 4096  # frames
PAUSE = 64  # frames, less than a period of the tone


class DeskWithPort(Desk):
    """A MIDI port that writes down its messages, and a microphone with one tone."""

    def open_sound(self):
        super().open_sound()
        start_midi_server(self)
        self.notes = self.folder / "notes.txt"
        self.start(["stdbuf", "-oL", "jack_midi_dump"], stdout=open(self.notes, "wb"))
        wait_for_port(self, "midi-monitor:input", "the MIDI port")
        self.told(["pactl", "load-module", "module-null-sink", "sink_name=mic", "rate=44100", "channels=2",
                   "format=s16le", "sink_properties=device.description=MicSink"])
        self.told(["pactl", "set-default-sink", "out"])
        self.told(["pactl", "set-default-source", "mic.monitor"])
        tone = self.folder / "tone.wav"
        with wave.open(str(tone), "wb") as file:
            file.setparams((1, 2, listen.RATE, 0, "NONE", ""))
            step = 2 * math.pi * listen.key_to_hz(HEARD_KEY) / listen.RATE
            file.writeframes(array.array("h", (int(LEVEL * math.sin(step * i))
                                               for i in range(120 * listen.RATE))).tobytes())
        self.start(["paplay", "-d", "mic", str(tone)])


def tune():
    score = Score(TEMPO)
    for i, pitch in enumerate(MELODY):
        score.note(0, NOTE_COLUMNS * i, pitch, NOTE_COLUMNS, OCARINA)
    score.row_instruments[0] = OCARINA
    return score


def processor_seconds(pid):
    tasks = pathlib.Path(f"/proc/{pid}/task").iterdir()
    return sum(int((task / "schedstat").read_text().split()[0]) for task in tasks) / 1e9


def keys_played(desk):
    """The keys of all notes that the port got."""
    words = (line.split() for line in desk.notes.read_text("utf-8", "replace").splitlines())
    return [int(line[2], 16) for line in words if len(line) > 3 and line[1] == "90" and line[3] != "00"]


def whole_piece(note):
    """A piece from the middle of a note on. A sound server that gets no processor leaves silence in what it hears, up to
    0.6 s at a load of 20; a piece with such a silence is passed over."""
    for start in range(len(note) // 2, len(note) - PIECE, PIECE // 4):
        piece = note[start:start + PIECE]
        if not any(listen.is_quiet(piece[i:i + PAUSE]) for i in range(0, PIECE, PAUSE)):
            return piece
    raise Failure("the recording has no sound in the second half of a note")


def recorded_seconds(desk):
    return sum(size_of(part) for part in desk.songs.glob(".recording-*.part")) / 4 / listen.RATE


def check_without_card(desk, program):
    desk.click(*program.place_in("Recording Toolbar", START))
    wait_until(lambda: recorded_seconds(desk) > 1, "a second of recording")
    desk.lose_sound()
    time.sleep(0.5)
    start, before, used = time.monotonic(), recorded_seconds(desk), processor_seconds(program.process.pid)
    time.sleep(3)
    elapsed = time.monotonic() - start
    rate = (recorded_seconds(desk) - before) / elapsed
    check(0.9 < rate < 1.1, f"without a card the recording has {rate:.3f} of its rate")
    share = (processor_seconds(program.process.pid) - used) / elapsed
    check(share < 0.3, f"without a card the recording takes {100 * share:.0f} % of a core")
    wait_until(lambda: not recorded_seconds(desk), "the end of the recording", 60)


def test(build):
    share_no_memory()
    with DeskWithPort(build) as desk:
        desk.songs.mkdir()
        (desk.songs / "tune.sng").write_bytes(tune().text())
        program = desk.launch()
        program.main_window()
        desk.click(*program.setup("setup"))
        program.choose_instrument("midi-", "Combo2")
        open_score(desk, program, "tune.sng", MELODY[0])
        open_toolbar(desk, program, AUTO_ENCODE)
        before = set(desk.songs.iterdir())
        desk.click(*program.place_in("Recording Toolbar", START))
        length = NOTE_COLUMNS * len(MELODY) * COLUMN_S
        wav = wait_until(lambda: one_new(desk, ".wav", before), "the WAV", length + PATIENCE_S)
        keys = keys_played(desk)
        check(keys == [127 - pitch for pitch in MELODY], f"the port got the keys {keys}")
        sound = from_first_sound(left_of(wav))
        check(len(sound) > 0.8 * length * listen.RATE, f"{len(sound) / listen.RATE:.2f} s were recorded")
        for i in range(len(MELODY)):
            begin, end = (int(note * NOTE_COLUMNS * COLUMN_S * listen.RATE) for note in (i, i + 1))
            piece = whole_piece(sound[begin:end])
            heard = listen.key_of(piece)
            check(heard == HEARD_KEY, f"at note {i} the recording has key {heard}")
            loud = listen.loudness(piece)
            check(0.9 * LEVEL < loud < 1.1 * LEVEL, f"the level of the recording is {loud}")
        check_without_card(desk, program)
        program.press(14)
        check(program.process.wait(PATIENCE_S) == 0, "the program did not end with status 0")


run(test)
