"""The greeting on the empty sheet: it goes with the first press, a key that edits and a song. Then chord lanes after a paste.

Also looks at what the window shows beside the pictures of the tableaux: the foot below a pale tail and the bar numbers.
"""

from desk import CELL, MUSIC_BOX, DeskWithoutSound, check, run, wait_until
import score_text

RED, PINK, FOOT, WHITE = (255, 0, 0), (255, 192, 255), (128, 96, 128), (255, 255, 255)
PEN = (44, 49, 106)  # the body of the pen, which nothing else on the sheet has
RULER, NUMBER = (30, 34, 98), (192, 255, 255)
LANES_ABOVE = 51 + 46 + 100  # the height of the window less that of the music tableau


def music_size(program):
    """The width and the height of the music tableau."""
    _, _, width, height = program.place
    columns = (width - 70) // CELL - 1
    return (columns + 1) * CELL + 1 - 35, height - LANES_ABOVE


def ghost_note(program):
    """(column, line) of the note that the greeting draws."""
    width, height = music_size(program)
    return round((width // 2 - 172) / CELL), height // CELL // 2


def pen(program):
    """A place inside the pen: its picture is 32 by 32, and its tip (3, 28) is at (6, 5) of the note's cell."""
    column, line = ghost_note(program)
    return program.at(MUSIC_BOX, column * CELL + 6 - 3 + 16, line * CELL + 5 - 28 + 15)


def greeted(desk, program):
    wait_until(lambda: desk.screen.pixel(*pen(program)) == PEN, "the greeting")


def not_greeted(desk, program, when):
    wait_until(lambda: desk.screen.pixel(*pen(program)) != PEN, f"the end of the greeting {when}")


def start(desk):
    program = desk.launch()
    program.main_window()
    greeted(desk, program)
    return program


def end(desk, program):
    """There is no sound card here, which is reported."""
    program.KNOWN_LINES = (*program.KNOWN_LINES, "velorin: There is no sound card")
    program.end()


def press_on_the_words(desk):
    """The press draws a note below the words, as if they were not there."""
    program = start(desk)
    column, line = ghost_note(program)
    place = program.cell(column + 8, line)
    desk.click(*place)
    not_greeted(desk, program, "with the first press")
    program.wait_for_colour(program.cell(column + 8, line), RED, "the note below the words")
    desk.key("ctrl+z")
    program.wait_for_colour(program.cell(column + 8, line), RED, "the note taken back", shown=False)
    check(desk.screen.pixel(*pen(program)) != PEN, "the greeting came back")
    end(desk, program)


def key_that_edits(desk):
    program = start(desk)
    desk.key("F6")
    desk.key("shift+F6")
    check(desk.screen.pixel(*pen(program)) == PEN, "a key that edits nothing ended the greeting")
    desk.key("ctrl+v")
    not_greeted(desk, program, "with a key that edits")
    end(desk, program)


def song(desk):
    score = score_text.Score(tempo=100)
    score.note(0, 0, 60, 2, 0)
    score.note(1, 4, 62, 3, 0)  # pale
    desk.songs.mkdir(exist_ok=True)
    (desk.songs / "song.sng").write_bytes(score.text())


def open_a_song(desk):
    song(desk)
    program = start(desk)
    column, line = ghost_note(program)
    desk.click(*program.at(MUSIC_BOX, column * CELL + 66 + 60, line * CELL + 56 + 15))
    desk.choose_file("Open Score File", "song.sng")
    program.wait_for_colour(program.cell(0, 60 - 55), RED, "the first note of the song")
    not_greeted(desk, program, "with a song")
    return program


def beside_the_pictures(desk, program):
    left, top = program.at(MUSIC_BOX, 6 * CELL + 2, (62 - 55) * CELL)
    looked = [desk.screen.pixel(left, top + y) for y in (7, 8, 9)]
    check(looked == [PINK, FOOT, WHITE], f"the tail, its foot and the sheet below it are {looked}")
    # The number of column 57 has no label; the ruler paints it.
    x, y = program.at((26, 71), 56 * CELL + 32, 2)
    strip = desk.screen.part(x, y, 14, 18)
    colours = {(strip[i + 2], strip[i + 1], strip[i]) for i in range(0, len(strip), 4)}
    check(RULER in colours and NUMBER in colours, "the ruler has no number at column 57")


def lanes_after_a_paste(desk, program):
    def lane(column):
        return program.at((MUSIC_BOX[0], MUSIC_BOX[1] + music_size(program)[1] + 1), column * CELL + 5, 3)
    desk.click(*lane(0))
    program.wait_for_colour(lane(0), RED, "the chord mark")
    desk.key("F2")
    desk.window("Editing Toolbar")
    desk.drag([program.cell(column, 25) for column in (0, 1, 2)])
    desk.key("ctrl+c")
    desk.click(*program.cell(10, 25))
    desk.key("ctrl+v")
    program.wait_for_colour(program.cell(11, 60 - 55), RED, "the pasted note")
    program.wait_for_colour(lane(10), RED, "the mark of the pasted note in its lane")


def test(build):
    with DeskWithoutSound(build) as desk:
        press_on_the_words(desk)
        key_that_edits(desk)
        program = open_a_song(desk)
        beside_the_pictures(desk, program)
        lanes_after_a_paste(desk, program)
        end(desk, program)


run(test)
