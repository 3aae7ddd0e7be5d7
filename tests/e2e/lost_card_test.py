"""The sound server dies during a recording and comes back: no beat is missing, and the song is heard again.

A sound server that hangs does not delay the exit.
"""

import signal
import statistics
import time

import listen
from desk import Desk, check, run, wait_until
from files import size_of
from recorded import AUTO_ENCODE, START, from_first_sound, left_of, one_new, open_score, open_toolbar
from score_text import Score

TEMPO = 120
COLUMN_S = 12 / TEMPO
WOOD_BLOCK, PITCH = 169, 60
FIRST_BEAT, BEATS, BEAT_COLUMNS = 10, 100, 2
COLUMNS = FIRST_BEAT + BEAT_COLUMNS * BEATS
BYTES_A_SECOND = 4 * listen.RATE
# When the card goes away or comes back between two beats, the stream jumps by what the card had buffered, up to 0.15 s.
# A busy machine lets the program wait for a processor, at a load of 20 up to 0.2 s.
MOST_OFF_S = 0.35


def beats():
    score = Score(TEMPO)
    score.note(0, 0, PITCH, 2, 115)  # visible on the tableau
    for i in range(BEATS):
        score.note(8, FIRST_BEAT + BEAT_COLUMNS * i, PITCH, 1, WOOD_BLOCK)
    score.row_instruments[8] = WOOD_BLOCK
    return score


def recorded_bytes(desk):
    return sum(size_of(part) for part in desk.songs.glob(".recording-*.part"))


def wait_for_sound(desk, seconds):
    """Waits until this much more has been recorded."""
    enough = recorded_bytes(desk) + seconds * BYTES_A_SECOND
    wait_until(lambda: recorded_bytes(desk) >= enough, f"{seconds} more seconds in the recording", 60)


def streams(desk):
    return desk.told(["pactl", "list", "short", "sink-inputs"]).strip()


def check_pace(desk):
    """Without a card the clock drives the stream."""
    wait_for_sound(desk, 0.2)
    start, before = time.monotonic(), recorded_bytes(desk)
    wait_for_sound(desk, 4)
    rate = (recorded_bytes(desk) - before) / BYTES_A_SECOND / (time.monotonic() - start)
    check(0.93 < rate < 1.07, f"without a card the stream has {rate:.3f} of its rate")


def check_beats(sound):
    frames = listen.onsets(sound[int((FIRST_BEAT - 2) * COLUMN_S * listen.RATE):])
    check(len(frames) == BEATS, f"{len(frames)} beats were recorded instead of {BEATS}")
    late = [(b - a) / listen.RATE - BEAT_COLUMNS * COLUMN_S for a, b in zip(frames, frames[1:])]
    told = "the distances of the beats are off by ms: " + " ".join(f"{1000 * value:.1f}" for value in late)
    check(abs(statistics.median(late)) < 0.005, told)
    check(max(map(abs, late)) < MOST_OFF_S, told)


def check_heard(desk, program):
    """The new server gets the sound."""
    start = listen.frames_in(desk.recording)
    program.press(6)
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, "the song's sound")
    program.press(7)


def test(build):
    Desk.stream_ms = None  # the stream must not jump by more than MOST_OFF_S
    with Desk(build) as desk:
        desk.songs.mkdir()
        (desk.songs / "beats.sng").write_bytes(beats().text())
        program = desk.launch()
        program.main_window()
        open_score(desk, program, "beats.sng", PITCH)
        open_toolbar(desk, program, AUTO_ENCODE)
        before = set(desk.songs.iterdir())
        wait_until(lambda: streams(desk), "the program's stream")
        desk.click(*program.place_in("Recording Toolbar", START))
        wait_until(lambda: recorded_bytes(desk) > 3 * BYTES_A_SECOND, "three seconds of recording")
        desk.lose_sound()
        check_pace(desk)
        desk.open_sound()
        wait_until(lambda: streams(desk), "the program's stream on the new server")
        wav = wait_until(lambda: one_new(desk, ".wav", before), "the WAV", COLUMNS * COLUMN_S + 60)
        wait_until(lambda: not list(desk.songs.glob(".recording-*.part")), "the end of the recording")
        check_beats(from_first_sound(left_of(wav)))
        check_heard(desk, program)
        desk.server.send_signal(signal.SIGSTOP)
        program.press(8)
        program.press(14)
        check(program.process.wait(20) == 0, "the program did not end with status 0")
        desk.server.send_signal(signal.SIGCONT)
        complaints = program.complaints()
        check(complaints.startswith("velorin: The sound card has gone away") and "\n" not in complaints,
              f"on standard error: {complaints}")


run(test)
