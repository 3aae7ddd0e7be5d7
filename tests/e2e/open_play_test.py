"""Opens a score with the mouse, plays it, checks the sound, stops it, rewinds it and saves it in both formats."""

import subprocess

import listen
from desk import Desk, check, run, wait_until
from tune import BEAT_COLUMNS, BEATS, COLUMN_S, late_beats, melody_and_beats, play

MELODY = [60, 65, 67, 58, 63, 55, 70]  # pitch indices; the key is 127 minus the index
FIRST_BEAT = 20
PLAYING_S = (FIRST_BEAT + BEAT_COLUMNS * BEATS + 2) * COLUMN_S + 1


def open_by_mouse(desk, program):
    """Presses the button and double-clicks the only file in the dialog."""
    program.press(2)
    dialog = desk.window("Open Score File")
    x, y, *_ = desk.settled(dialog)
    row = (x + 130, y + 62, 60, 16)
    wait_until(lambda: len(set(desk.screen.part(*row))) > 3, "the file in the dialog's list")
    place = (x + 150, y + 70)
    desk.tool("mousemove", *place, "click", 1, "click", 1)
    desk.no_window("Open Score File")
    # The first note's head is drawn in the row's colour, on the line of its pitch.
    line = MELODY[0] - 55
    program.wait_for_colour(program.cell(0, line), (255, 0, 0), "the first note on the tableau")


def check_melody(sound):
    expected = [127 - pitch for pitch in MELODY]
    heard = listen.melody_of(sound[:int((FIRST_BEAT - 1) * COLUMN_S * listen.RATE)], sorted(set(expected)))
    check(heard == expected, f"the melody sounded as the keys {heard} instead of {expected}")
    rest = sound[int(17.5 * COLUMN_S * listen.RATE):int(19 * COLUMN_S * listen.RATE)]
    check(listen.loudness(rest) < 0.1 * listen.loudness(sound), "the melody does not end")


def check_sound(desk, program):
    sound = play(desk, program, PLAYING_S)
    check_melody(sound)
    late_beats(sound, FIRST_BEAT)


def check_stop_and_rewind(desk, program):
    start = listen.frames_in(desk.recording)
    program.press(6)
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, "the start of the song")
    program.press(7)
    stopped = listen.frames_in(desk.recording)
    wait_until(lambda: listen.frames_in(desk.recording) > stopped + 2.5 * listen.RATE, "the sound after the stop")
    after = listen.samples(desk.recording, stopped + 2 * listen.RATE)
    check(listen.is_quiet(after), "it still sounds after the stop")

    # A page to the right, and back to the start with the button.
    line = MELODY[0] - 55
    x, y, width, height = program.place
    desk.click(x + width - 110, y + height - 34)
    program.wait_for_colour(program.cell(0, line), (255, 0, 0), "the next page", shown=False)
    program.press(5)
    program.wait_for_colour(program.cell(0, line), (255, 0, 0), "the first page")


def check_saving(desk, program, score):
    program.press(3)
    desk.choose_file("Save music file", "kept", save_filter=1)
    kept = desk.songs / "kept.sng"
    wait_until(lambda: kept.exists() and kept.stat().st_size == len(score.text()), "the saved score")
    check(kept.read_bytes() == score.text(), "the saved score differs from the opened one")

    program.press(3)
    desk.choose_file("Save music file", "kept", save_filter=0)
    midi = desk.songs / "kept.mid"
    wait_until(midi.exists, "the MIDI file")
    expected = desk.folder / "expected.mid"
    subprocess.run([desk.build / "bin" / "velorin-convert", kept, "--plain", "-o", expected], check=True)
    wait_until(lambda: midi.read_bytes() == expected.read_bytes(), "the right bytes in the MIDI file")
    check_midi(midi.read_bytes())


def check_midi(data):
    head = bytes.fromhex("4D546864 00000006 0001 000E 0030 4D54726B 00000013 00FF5103 07A120")
    check(data.startswith(head), "the header of the MIDI file is not fourteen tracks, 48 ticks, tempo 120")
    starts = bytes([0x90, 127 - MELODY[0], 127])
    check(starts in data, "the first note of the MIDI file is wrong")
    check(data.count(bytes([0x99, 76, 127])) == BEATS, "the beats of the MIDI file are wrong")


def test(build):
    score = melody_and_beats(MELODY, FIRST_BEAT)
    with Desk(build) as desk:
        desk.songs.mkdir()
        (desk.songs / "tune.sng").write_bytes(score.text())
        program = desk.launch()
        program.main_window()
        open_by_mouse(desk, program)
        check_sound(desk, program)
        check_stop_and_rewind(desk, program)
        check_saving(desk, program, score)
        program.end()


run(test)
