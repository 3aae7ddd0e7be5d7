"""Checks how a song page plays and how its marker moves. Each check opens a new page."""

import base64

import song
from visit import AUDIO, FOLLOWS, HALF_A_PIXEL, MARKER_X, close_to, listed
from waiting import check
from webdriver import wait_until


@listed
def plays(visit):
    """plays and pauses by its button, and is heard"""
    browser = visit.open()
    visit.sounds.hears()
    check(visit.label() == "Play", f"the button is called {visit.label()}")
    browser.click("#play")
    browser.wait_for(f"{AUDIO}.currentTime > 1 && !{AUDIO}.paused", "a second of sound")
    check(visit.label() == "Pause", f"the button is called {visit.label()}")
    check(visit.marker_x() > song.COLUMN_PX, "the marker does not follow")
    wait_until(visit.sounds.hears, "sound at the sound server")
    browser.click("#play")
    browser.wait_for(f"{AUDIO}.paused")
    check(visit.label() == "Play", f"the button is called {visit.label()}")


@listed
def ends(visit):
    """plays to its end, stays there, and begins again"""
    browser = visit.open()
    visit.seek(song.end() - 0.5)
    browser.click("#play")
    browser.wait_for(f"{AUDIO}.ended", "the end of the sound")
    close_to(visit.marker_x(), song.COLUMNS * song.COLUMN_PX, HALF_A_PIXEL, "the marker's place")
    check(visit.label() == "Play", f"the button is called {visit.label()}")
    browser.click("#play")
    browser.wait_for(f"!{AUDIO}.paused && {AUDIO}.currentTime > 0.2 && {AUDIO}.currentTime < 5", "the beginning")


@listed
def marker_is_in_place(visit):
    """has its marker at the column that sounds, at five moments"""
    visit.open()
    for column in (0, 3.5, 17.25, 60, 99.5):
        visit.seek(song.start_of(column))
        visit.wait_for_marker(column)
    visit.seek(0)
    visit.wait_for_marker(0)


@listed
def marker_knows_holds(visit):
    """has its marker in place also where strummed chords hold the song"""
    visit.open(visit.files.held_page)
    for column in (19, 20, 21, 59, 60, 99):
        visit.seek(song.start_with_holds(column))
        visit.wait_for_marker(column)
    # The column before the hold is the longer one, so its middle is later.
    visit.seek((song.start_with_holds(19) + song.start_with_holds(20)) / 2)
    visit.wait_for_marker(19.5)


@listed
def marker_follows(visit):
    """moves its marker with the sound and the sheet with the marker"""
    browser = visit.open(width=390, height=800)
    browser.click("#play")
    browser.wait_for("document.getElementById('roll').scrollLeft > 60", "the sheet to move")
    browser.wait_for(FOLLOWS, "the marker a third from the left")
    browser.click("#play")
    browser.wait_for(f"{AUDIO}.paused")
    wait_until(lambda: abs(visit.marker_x() - (visit.time() / song.COLUMN_S - 1) * song.COLUMN_PX) <= HALF_A_PIXEL,
               "the marker at the sound's place")


@listed
def marker_can_be_dragged(visit):
    """moves the sound with the marker"""
    browser = visit.open()
    visit.seek(song.start_of(10))
    x, y = visit.middle_of("#marker")
    browser.drag((x, y), (x + 240, y))
    visit.wait_for_column(30)
    close_to(visit.marker_x(), 30 * song.COLUMN_PX, 1, "the marker's place")


@listed
def slider_moves_the_sound(visit):
    """moves the sound with the slider"""
    browser = visit.open()
    left, top, width, height = browser.run(
        "const b = document.getElementById('place').getBoundingClientRect(); return [b.left, b.top, b.width, b.height]")
    thumb = 20  # its middle moves from half a thumb after the left end to half a thumb before the right end
    at = left + thumb / 2 + (width - thumb) / 2
    browser.drag((left + thumb / 2, top + height / 2), (at, top + height / 2))
    wait_until(lambda: abs(visit.time() - song.start_of(song.COLUMNS / 2)) < song.COLUMN_S,
               f"the middle of the song; the sound is at {visit.time()} s")


@listed
def press_on_the_sheet(visit):
    """moves the marker to the column that is pressed"""
    browser = visit.open()
    left, top = browser.run("const b = document.getElementById('song').getBoundingClientRect(); return [b.left, b.top]")
    place = (left + 50.5 * song.COLUMN_PX, top + 100)
    browser.drag(place, place, steps=1)
    visit.wait_for_column(50)


@listed
def keys_work(visit):
    """plays and pauses by Space, moves by bars, and goes to both ends"""
    browser = visit.open()
    for key, column in (("Right", song.BAR), ("Right", 2 * song.BAR), ("Left", song.BAR), ("End", song.COLUMNS),
                        ("Left", song.COLUMNS - song.BAR), ("Home", None)):
        browser.press(key)
        if column is None:
            wait_until(lambda: visit.time() == 0, "the beginning")
        else:
            visit.wait_for_column(column)
        visit.wait_for_seek()
    browser.press(" ")
    browser.wait_for(f"!{AUDIO}.paused && {AUDIO}.currentTime > 0.1", "playing by Space")
    browser.press(" ")
    browser.wait_for(f"{AUDIO}.paused", "the pause by Space")


@listed
def sound_is_in_time(visit):
    """decodes the sound without the delay of its encoder"""
    browser = visit.open()
    data = base64.b64encode(visit.files.sound.read_bytes()).decode()
    # The first note is in column 0, of a music box, which begins at once.
    onset = browser.wait_for_result("""
        const bytes = Uint8Array.from(atob(arguments[0]), (c) => c.charCodeAt(0));
        const context = new OfflineAudioContext(2, 44100, 44100);
        const sound = await context.decodeAudioData(bytes.buffer);
        const left = sound.getChannelData(0);
        return left.findIndex((value) => Math.abs(value) > 0.01) / sound.sampleRate;""", data)
    check(song.start_of(0) - 0.005 <= onset <= song.start_of(0) + 0.012, f"the first note is heard at {onset} s")


@listed
def moves_less(visit):
    """moves the sheet by pages if the user wants less motion"""
    browser = visit.open(width=390, height=800)
    browser.prefer_less_motion(True)
    browser.wait_for("matchMedia('(prefers-reduced-motion: reduce)').matches", "the wish for less motion")
    browser.run("""
        window.places = new Set();
        document.getElementById('roll').addEventListener('scroll', (event) => window.places.add(event.target.scrollLeft));""")
    browser.click("#play")
    browser.wait_for(f"{MARKER_X} > 640", "the marker on the third page")
    browser.click("#play")
    places = browser.run("return [...window.places]")
    check(1 <= len(places) <= 3, f"the sheet was at {places}")
