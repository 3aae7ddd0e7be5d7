"""Goes through the lessons of the tutorial with the mouse. Checks the hint and the effect of each step."""

import itertools
import os
import statistics

import listen
from desk import BEATBOX, LEFT, Desk, check, run, wait_until
from recorded import decoded, frames_of, from_first_sound, mp3_seconds, samples_of
from wizard import SONG_PATIENCE_S, Wizard

RED, BLUE, PURPLE, WHITE, CREAM = (255, 0, 0), (0, 0, 255), (192, 0, 192), (255, 255, 255), (255, 255, 192)
TRACK, FACE, DANGER = (25, 28, 64), (58, 64, 120), (179, 52, 74)

STEPS = 61

RING_LEFT = 16  # from the middle of a row button to the ring of the current row
SELECTING = (67, 98)  # in the Editing Toolbar: white beside the number in select mode
# In the Recording Toolbar: white on each page, an option that is grey during a recording, the start of the bar.
RECORD_PAGE, PREFERENCES_PAGE, SOURCES, PROGRESS = (508, 163), (240, 245), (37, 93), (23, 250)


class Lessons:
    """The program, its wizard, and checks for the effects of steps."""

    def __init__(self, desk, program, wizard):
        self.desk, self.program, self.wizard = desk, program, wizard
        self.media = desk.program_folder / "media"

    def note(self, column, line, colour=RED, shown=True, part=None):
        """A condition for the step's wait: a cell has a note of a colour."""
        place = self.program.cell(column, line, *([part] if part else []))
        return lambda: (self.desk.screen.pixel(*place) == colour) == shown

    def loaded(self, sample):
        """A condition: a sample has been loaded. Its file is removed last."""
        return lambda: not (self.media / sample).exists()

    def has_colour(self, title, inside, colour):
        place = self.program.place_in(title, inside)
        return lambda: self.desk.screen.pixel(*place) == colour

    def row_chosen(self, row):
        return self.beside_control(f"TrackSel({row})", RING_LEFT, CREAM)

    def beside_control(self, control, left, colour):
        """A condition: so many pixels to the left of the middle of a control of the Setup Toolbar is a colour."""
        def is_there():
            x, y = self.program.setup(control)
            return self.desk.screen.pixel(x - left, y) == colour
        return is_there

    def selected(self, column):
        """A condition: a column is selected, which tints it blue."""
        place = self.program.cell(column, 30)

        def tinted():
            red, _, blue = self.desk.screen.pixel(*place)
            return blue > red
        return tinted

    def recordings(self, ending):
        return sorted(self.desk.songs.glob("*tmp" + ending))

    def encoded(self, count):
        """A condition: this many recordings are MP3 files. The WAV is removed last."""
        return lambda: len(self.recordings(".mp3")) == count and not self.recordings(".wav")

    def keep_recording(self, path):
        """Makes a second link to the WAV, which is deleted after encoding."""
        os.link(wait_until(lambda: self.recordings(".wav"), "the recording", SONG_PATIENCE_S)[0], path)

    def close(self, title):
        x, y, width, _ = self.desk.settled(self.desk.window(title))
        places = itertools.cycle((x + width - 21, x + width - 20))

        def is_seen():
            self.desk.point(next(places), y + 14)
            return self.desk.screen.pixel(x + width - 31, y + 14) == DANGER
        wait_until(is_seen, "the close button of a toolbar to notice the mouse")
        self.desk.tool("mousedown", LEFT, "mouseup", LEFT)
        self.desk.no_window(title)

    def heard(self, what, play):
        start = listen.frames_in(self.desk.recording)
        play(lambda: wait_until(lambda: listen.first_sound(listen.samples(self.desk.recording, start)) is not None,
                                f"the sound of {what}"))


def compose(lessons):
    desk, wizard, note = lessons.desk, lessons.wizard, lessons.note
    wizard.choose("Composition")
    wizard.step(0)
    wizard.step(1, lessons.loaded("101.sng"))
    wait_until(note(0, 5), "the melody's first note")
    wizard.step(2, lessons.row_chosen(1))
    wizard.step(3, lessons.loaded("102.sng"))
    wait_until(note(0, 8, BLUE), "the second channel's first note")
    wizard.step(4, lessons.row_chosen(8))
    wizard.step(5, lessons.loaded("104.sng"))
    wait_until(note(0, 0, PURPLE, part=BEATBOX), "the first beat")
    lessons.heard("the composition", lambda sounds: wizard.step(6, meanwhile=sounds))
    wizard.step(7, (desk.songs / "composed.sng").exists,
                lambda: desk.choose_file("Save music file", "composed", save_filter=1))


def play_chords(lessons):
    wizard, note = lessons.wizard, lessons.note
    wizard.choose("Polyphonics")
    wizard.step(0, note(0, 5, shown=False))
    wizard.step(1)
    wizard.step(2, lessons.loaded("101.sng"))
    wait_until(note(0, 5), "the melody's first note")
    wizard.step(3, lessons.beside_control("Ch(0)", 10, RED))
    wizard.step(4)
    wizard.step(5)
    lessons.heard("the chords", lambda sounds: wizard.step(6, meanwhile=sounds))
    lessons.heard("the single notes", lambda sounds: wizard.step(7, meanwhile=sounds))


def make_beat(lessons):
    wizard, note = lessons.wizard, lessons.note
    wizard.choose("Percussion")
    wizard.step(0, lessons.row_chosen(8))
    wizard.step(1)
    wizard.step(2, lessons.loaded("201.sng"))
    wait_until(note(0, 0, PURPLE, part=BEATBOX), "the first beat")
    wizard.step(3, lessons.row_chosen(10))
    wizard.step(4)
    wizard.step(5, lessons.loaded("202.sng"))
    wizard.step(6, lessons.row_chosen(11))
    wizard.step(7)
    wizard.step(8, lessons.loaded("203.sng"))
    wizard.step(9, note(60, 0, PURPLE, part=BEATBOX))
    lessons.heard("the beat", lambda sounds: wizard.step(10, meanwhile=sounds))


def edit(lessons):
    desk, wizard, note = lessons.desk, lessons.wizard, lessons.note
    wizard.choose("Editing")
    wizard.step(0, note(9, 13), pause=1)
    wizard.step(1)
    wizard.step(2, note(9, 13, shown=False), pause=1)
    wizard.step(3, note(9, 9), pause=1)
    # The only effect is the sound of the three clicks, half a second apart.
    lessons.heard("the other instrument", lambda sounds: wizard.step(4, meanwhile=sounds, pause=3))
    wizard.step(5, lambda: desk.windows("Editing Toolbar"))
    wizard.step(6, lessons.has_colour("Editing Toolbar", SELECTING, WHITE))
    wizard.step(7, lessons.selected(7))
    wizard.step(8, note(16, 5), pause=1)
    # The cut moves the first of these notes here, and removes the other one until the paste.
    wizard.step(9, lambda: note(10, 7)() and note(12, 6)())
    wizard.step(10, note(60, 9))
    wizard.step(11, note(15, 6), pause=1)
    lessons.close("Editing Toolbar")


def record(lessons):
    desk, wizard = lessons.desk, lessons.wizard
    wizard.choose("Recording")
    wizard.step(0, lambda: desk.windows("Recording Toolbar"))
    desk.settled(desk.window("Recording Toolbar"))
    wizard.step(1, lessons.has_colour("Recording Toolbar", RECORD_PAGE, WHITE), lambda: wait_until(
        lessons.has_colour("Recording Toolbar", PREFERENCES_PAGE, WHITE), "the preferences"))
    wizard.step(2)
    wizard.step(3, lessons.loaded("104.sng"))
    kept = desk.folder / "kept.wav"
    wizard.step(4, lessons.encoded(1), lambda: lessons.keep_recording(kept))
    check_mp3(kept, lessons.recordings(".mp3")[0], desk.folder)
    wizard.step(5, lessons.encoded(2))
    wizard.step(6)
    wizard.step(7, lessons.note(0, 5, shown=False))
    wizard.step(8, lessons.encoded(3))
    # If no recording runs, the last step starts one; taken again, it stops it.
    wizard.step(9, lessons.has_colour("Recording Toolbar", SOURCES, FACE))
    wizard.step(9, lessons.encoded(4))


def use_midi(lessons):
    desk, wizard = lessons.desk, lessons.wizard
    wizard.choose("Midi")
    wizard.step(0, lessons.loaded("104.sng"))
    exported = desk.songs / "exported.mid"
    wizard.step(1, exported.exists, lambda: desk.choose_file("Save music file", "exported", save_filter=0))
    lessons.close("Recording Toolbar")
    wizard.step(2, lambda: desk.windows("Recording Toolbar"))
    wizard.step(3, meanwhile=lambda: desk.choose_file("Open File", exported))
    at_rest = lessons.has_colour("Recording Toolbar", PROGRESS, TRACK)

    def plays(sounds):
        sounds()
        wait_until(lambda: not at_rest(), "the bar of the player")
    lessons.heard("the MIDI file", lambda sounds: wizard.step(4, at_rest, lambda: plays(sounds)))
    # The request to record is still set after a stop by hand. The end of this file stops the recording again, and a
# message box shows the result.
    wait_until(lambda: len(desk.windows("Velorin")) == 2, "the message")
    desk.settled(desk.window("Velorin"))
    desk.key("Return")
    wait_until(lambda: len(desk.windows("Velorin")) == 1, "the message to close")
    lessons.close("Recording Toolbar")


def set_up(lessons):
    wizard = lessons.wizard
    wizard.choose("Setup")
    wizard.step(0)
    wizard.step(1)
    wizard.step(2, lessons.row_chosen(1))
    for index in (3, 4):
        wizard.step(index)
    wizard.step(5, lessons.loaded("301.sng"))
    wait_until(lessons.note(4, 0, PURPLE, part=BEATBOX), "the first clap")
    lessons.heard("the finished setup", lambda sounds: wizard.step(6, meanwhile=sounds))


def check_mp3(wav, mp3, folder):
    """Compares the MP3 with the recording. Its sample pairs of two channels were encoded as one channel."""
    both = samples_of(wav)
    check(len(both) == 2 * frames_of(wav.read_bytes()), "the WAV is not stereo")
    check(mp3_seconds(mp3.read_bytes()) >= len(both) / listen.RATE, "the MP3 is too short")
    heard, expected = from_first_sound(decoded(mp3, folder)), from_first_sound(both)
    check(abs(len(heard) - len(expected)) < listen.RATE / 4, "the MP3 is not twice as long as the recording")
    heard, expected = aligned(heard, expected)
    likeness = correlation(profile(heard), profile(expected))
    check(likeness > 0.95, f"the correlation of the MP3 with the recording is only {likeness:.3f}")
    for at in range(0, len(expected) - listen.RATE, listen.RATE):
        likeness = correlation(keys(heard[at:at + 8192]), keys(expected[at:at + 8192]))
        check(likeness > 0.9, f"at {at / listen.RATE:.0f} s the correlation of the tones is only {likeness:.3f}")


def keys(sound):
    """The level of each key."""
    return [listen.strength(sound, listen.key_to_hz(key)) for key in range(36, 76)]


def profile(sound, step=2205):
    """The level of each twentieth of a second."""
    return [statistics.fmean(map(abs, sound[at:at + step])) for at in range(0, len(sound) - step, step)]


def aligned(one, other, most=50, step=221):
    """Aligns both sounds to some milliseconds: a soft onset may be found some hundredths of a second apart in them."""
    levels, others = profile(one, step), profile(other, step)
    by = max(range(-most, most + 1), key=lambda by: correlation(levels[max(by, 0):], others[max(-by, 0):]))
    return one[max(by, 0) * step:], other[max(-by, 0) * step:]


def correlation(one, other):
    size = min(len(one), len(other))
    one, other = one[:size], other[:size]
    a, b = statistics.fmean(one), statistics.fmean(other)
    across = sum((x - a) * (y - b) for x, y in zip(one, other))
    return across / (sum((x - a) ** 2 for x in one) * sum((y - b) ** 2 for y in other)) ** 0.5


def test(build):
    with Desk(build) as desk:
        desk.songs.mkdir()
        program = desk.launch()
        program.main_window()
        lessons = Lessons(desk, program, Wizard(desk, program))
        for lesson in (compose, play_chords, make_beat, edit, record, use_midi, set_up):
            lesson(lessons)
        taken = len(lessons.wizard.steps)
        check(taken == STEPS, f"{taken} steps were taken instead of {STEPS}")
        program.end()
        check(not list(lessons.media.iterdir()), "samples are left at the end")


run(test)
