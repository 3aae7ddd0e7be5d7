"""What the tests of the Recording Toolbar share: its places, and the recordings that it leaves."""

import wave

import listen
from desk import check

# Places in the Recording Toolbar, in its own pixels.
PREFERENCES, RECORD_PLAY = (147, 49), (53, 49)
AUTO_ENCODE, DELETE_WAV, START, ENCODE = (39, 92), (39, 122), (417, 92), (453, 249)
OPEN, PLAY, PAUSE, STOP = (38, 205), (73, 205), (108, 205), (143, 205)


def open_score(desk, program, name, first_pitch):
    program.press(2)
    desk.choose_file("Open Score File", name)
    program.wait_for_colour(program.cell(0, first_pitch - 55), (255, 0, 0), "the first note on the tableau")


def open_toolbar(desk, program, *boxes):
    """Opens it, and clicks boxes of its second tab: the WAV is kept when it has been encoded."""
    program.press(11)
    desk.settled(desk.window("Recording Toolbar"))
    for place in (PREFERENCES, *(boxes or (DELETE_WAV,)), RECORD_PLAY):
        desk.click(*program.place_in("Recording Toolbar", place))


def one_new(desk, ending, before):
    new = set(desk.songs.glob("*tmp" + ending)) - before
    check(len(new) <= 1, f"one recording left {len(new)} files that end in {ending}")
    return new.pop() if new else None


def left_of(path):
    with wave.open(str(path), "rb") as file:
        raw = path.with_suffix(".raw")
        raw.write_bytes(file.readframes(file.getnframes()))
    sound = listen.samples(raw)
    raw.unlink()
    return sound


def from_first_sound(sound):
    first = listen.first_sound(sound)
    check(first is not None, "the recording is silent")
    return sound[max(0, first - 100):]
