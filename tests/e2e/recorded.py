"""What the tests of the Recording Toolbar share: its places, and readers for its recordings."""

import array
import struct
import subprocess
import wave

import listen
from desk import check

# Controls of the Recording Toolbar.
PREFERENCES, RECORD_PLAY = "Preferences", "Record/Play"
AUTO_ENCODE, DELETE_WAV = "Auto-Encode to MP3", "Delete WAV file on completion of encoding"
START, ENCODE = "Start Recording", "Encode File"
OPEN, PLAY, PAUSE, STOP = "Open File", "Play", "Pause", "Stop"

# Layer III by version: samples per frame, and the bitrates and sample rates of a header.
LAYERS = {
    0xFFFB: (1152, [32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320], [44100, 48000, 32000]),
    0xFFF3: (576, [8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160], [22050, 24000, 16000]),
}
BITRATE, MONO = 40, 3  # the defaults of the program
SLOWER = 2  # both channels are encoded as one, sample after sample


def open_score(desk, program, name, first_pitch):
    program.press(2)
    desk.choose_file("Open Score File", name)
    program.wait_for_colour(program.cell(0, first_pitch - 55), (255, 0, 0), "the first note on the tableau")


def open_toolbar(desk, program, *boxes):
    """Opens the toolbar and clicks boxes of its second tab. By default the WAV is kept after encoding."""
    program.press(11)
    desk.settled(desk.window("Recording Toolbar"))
    for place in (PREFERENCES, *(boxes or (DELETE_WAV,)), RECORD_PLAY):
        desk.click(*program.place_in("Recording Toolbar", place))


def one_new(desk, ending, before):
    new = set(desk.songs.glob("*tmp" + ending)) - before
    check(len(new) <= 1, f"one recording made {len(new)} files that end in {ending}")
    return new.pop() if new else None


def frames_of(data):
    """Checks the header and returns the number of frames after it."""
    check(len(data) > 44, "the WAV is empty")
    size = len(data) - 44
    head = struct.pack("<4sI8sIHHIIHH4sI", b"RIFF", size + 36, b"WAVEfmt ", 16, 1, 2, listen.RATE, 4 * listen.RATE,
                       4, 16, b"data", size)
    check(data[:44] == head, f"the header of the WAV is {data[:44].hex(' ')}")
    return size // 4


def mp3_seconds(data):
    """The length in seconds of all complete frames of the stream."""
    at = seconds = 0
    while at + 4 <= len(data):
        word = int.from_bytes(data[at:at + 4], "big")
        check(word >> 16 in LAYERS, f"there is no layer III header at byte {at}: {word:08x}")
        samples, bitrates, rates = LAYERS[word >> 16]
        bitrate, rate, padding, mode = word >> 12 & 15, word >> 10 & 3, word >> 9 & 1, word >> 6 & 3
        check(0 < bitrate < 15 and bitrates[bitrate - 1] == BITRATE and rate < 3 and mode == MONO,
              f"the header at byte {at} is wrong: {word:08x}")
        at += samples // 8 * 1000 * BITRATE // rates[rate] + padding
        if at <= len(data):
            seconds += samples / rates[rate]
    return seconds


def samples_of(path):
    """The samples of a WAV in the order of the file, with both channels if it is stereo."""
    with wave.open(str(path), "rb") as file:
        return array.array("h", file.readframes(file.getnframes()))


def left_of(path):
    return samples_of(path)[0::2]


def decoded(mp3, folder):
    """The samples of an MP3 as another program decodes it, mono at 44,100 Hz."""
    wav = folder / "decoded.wav"
    subprocess.run(["mpg123", "-q", "-r", str(listen.RATE), "--mono", "-w", wav, mp3], check=True)
    return samples_of(wav)


def from_first_sound(sound):
    first = listen.first_sound(sound)
    check(first is not None, "the recording is silent")
    return sound[max(0, first - 100):]
