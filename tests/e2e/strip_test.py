"""The free part of the strip: undo by button, tips, the line of state, sentences, the title, and narrow windows."""

from bus import CHECKED, Announcements, nodes, open_bus, program_on
from desk import Desk, check, run, wait_until
from program import TOOLBAR

UNDO, REDO = 600 + 18, 638 + 18  # in the strip
RED = (255, 0, 0)
SKY = (68, 204, 255)
FIRST, SECOND = (2, 20), (2, 24)  # cells below the percussion strip
STRIP_CELL = (20, 0)
PLAY = 6


class Strip:
    """What a screen reader finds of the strip."""

    def __init__(self, desk, program, tree):
        self.desk, self.program, self.tree = desk, program, tree
        self.state = wait_until(lambda: self.node("status bar", ""), "the line of state on the bus")

    def window(self):
        return next(child for child in self.tree.children() if child.role() in ("frame", "window"))

    def node(self, role, begin):
        return next((node for node in nodes(self.window()) if node.role() == role and node.told("Name").startswith(begin)), None)

    def line(self):
        """The words of the line of state."""
        return self.state.told("Name")

    def wait_for_line(self, words):
        wait_until(lambda: words in self.line(), f"'{words}' in the line of state, which says '{self.line()}'")

    def at(self, x):
        return self.program.at(TOOLBAR, x, 5 + 18)

    def press(self, x):
        self.desk.click(*self.at(x))


def resize(desk, program, width):
    desk.tool("windowsize", program.window, width, 560)
    wait_until(lambda: desk.place_of(program.window)[2] == width, f"a window {width} wide")
    program.place = desk.settled(program.window)


def title_says(desk, title):
    wait_until(lambda: desk.windows(title), f"the title '{title}'")


def undo_by_button(desk, program, strip):
    wait_until(lambda: strip.node("push button", "Undo"), "the button Undo")
    check(strip.node("push button", "Undo").told("Name") == "Undo", "there is something to take back on an empty sheet")
    desk.drag([program.cell(*FIRST), program.cell(4, FIRST[1])])
    wait_until(lambda: strip.node("push button", "Undo: note drawn on channel 1"), "the note in the name of Undo")
    title_says(desk, "Untitled • - Velorin")
    strip.press(UNDO)
    program.wait_for_colour(program.cell(*FIRST), RED, "the note taken back by the button", shown=False)
    title_says(desk, "Velorin")
    wait_until(lambda: strip.node("push button", "Redo: note drawn on channel 1"), "the note in the name of Redo")
    strip.press(REDO)
    program.wait_for_colour(program.cell(3, FIRST[1]), RED, "the note made again by the button")


def hint_of(strip, begin):
    """The text of a hint that is shown and begins so. Larger windows are not searched: a hint does not stay for long."""
    for child in strip.tree.children():
        is_hint = child.told("Name") not in ("Setup Toolbar", strip.window().told("Name"))
        for node in nodes(child) if is_hint and child.is_showing() else ():
            if node.role() == "label" and node.told("Name").startswith(begin):
                return node.told("Name")
    return None


def tip_of_undo(desk, strip):
    """The hint of a button shows after a second. It begins with the button's tip."""
    desk.point(*strip.at(UNDO - 1))
    desk.point(*strip.at(UNDO))
    hint = wait_until(lambda: hint_of(strip, "Undo: "), "the hint of Undo")
    check(hint.startswith("Undo: note drawn on channel 1, column 3 (Ctrl+Z)") and "Takes the last change back" in hint,
          f"the hint says '{hint}'")
    desk.point(*strip.program.cell(30, 30))
    wait_until(lambda: hint_of(strip, "Undo: ") is None, "the end of the hint")


def line_of_state(desk, program, strip):
    desk.point(*program.cell(16, 25))
    strip.wait_for_line("Channel 1, Nylon Guitar. Bar 5, column 17. 0:01. Draw.")
    desk.point(*program.at((0, 0), 300, 12))
    strip.wait_for_line("Bar 1, column 1.")


def sentences(desk, program, strip, announcements):
    desk.click(*program.cell(*STRIP_CELL))
    strip.wait_for_line("Percussion Channel 1 is chosen now")
    desk.click(*program.cell(8, 25))
    strip.wait_for_line("Channel 1 is chosen now, with Nylon Guitar. Click again to draw notes.")
    announcements.wait_for("PropertyChange", "accessible-name")
    desk.click(*program.cell(40, 30), 3)
    strip.wait_for_line("Channel 1 has no note to erase in this column.")
    wait_until(lambda: "Draw." in strip.line(), "the end of the sentence")
    setup = next(child for child in strip.tree.children() if child.told("Name") == "Setup Toolbar")
    hide = next(node for node in nodes(setup) if node.told("Name") == "Hide Channel 5")
    hide.object.get_dbus_method("DoAction", "org.a11y.atspi.Action")(0)
    wait_until(lambda: hide.has(CHECKED), "a hidden channel")
    desk.click(*program.setup("close"))
    strip.wait_for_line("The Setup Toolbar is closed")


def locked_while_playing(desk, program, strip):
    desk.drag([program.cell(*SECOND), program.cell(90, SECOND[1])])
    program.wait_for_colour(program.cell(80, SECOND[1]), RED, "a long note")
    program.press(PLAY)
    strip.wait_for_line("Locked while playing. 0:")
    undo = strip.node("push button", "Undo")
    wait_until(lambda: not undo.is_sensitive(), "Undo disabled while the song plays")
    desk.click(*program.cell(30, 30))
    strip.wait_for_line("The tableaux are locked while the song plays.")
    desk.key("space")
    strip.wait_for_line("Draw.")
    wait_until(undo.is_sensitive, "Undo after the song")


def title_of_a_saved_score(desk, program):
    program.press(3)
    desk.choose_file("Save music file", "paper-boat", save_filter=1)
    title_says(desk, "paper-boat - Velorin")
    desk.click(*program.cell(60, 30))
    title_says(desk, "paper-boat • - Velorin")


def choose_in_the_menu(desk, program, arrow, downs, top):
    """Opens the menu of the arrow and chooses an entry by keys. The arrow is drawn pressed meanwhile; `top` is its upper edge."""
    with desk.popup():
        desk.click(*program.at((0, 0), *arrow))
    wait_until(lambda: desk.screen.pixel(*program.at((0, 0), arrow[0], top)) == SKY, "the arrow drawn pressed")
    desk.key(*["Down"] * downs, "Return")
    desk.point(*program.at((0, 0), 20, 300))
    wait_until(lambda: desk.screen.pixel(*program.at((0, 0), arrow[0], top)) != SKY, "the arrow as at rest")


def narrow_windows(desk, program, strip):
    """What the strip has no place for is in the menu of the arrow, after the buttons that the edge of the window cuts."""
    resize(desk, program, 900)
    wait_until(lambda: not strip.state.is_showing(), "the strip without the line of state")
    choose_in_the_menu(desk, program, (26 + 676 + 12, 25 + 23), 1, 30)
    desk.window("History")
    desk.click(*program.place_in("History", (651, 14)))
    desk.no_window("History")
    resize(desk, program, 700)
    choose_in_the_menu(desk, program, (26 + 600 + 12, 25 + 23), 1, 30)
    title_says(desk, "paper-boat - Velorin")
    resize(desk, program, 560)
    with desk.popup():
        desk.click(*program.at((0, 0), 408 + 13, 13))
    desk.key("Down", "Down", "Return")  # Help, then Exit
    program.ended()


def test(build):
    with Desk(build) as desk:
        bus = open_bus(desk)
        announcements = Announcements(desk, bus)
        program = desk.launch()
        program.main_window()
        strip = Strip(desk, program, program_on(bus))
        undo_by_button(desk, program, strip)
        tip_of_undo(desk, strip)
        line_of_state(desk, program, strip)
        sentences(desk, program, strip, announcements)
        locked_while_playing(desk, program, strip)
        title_of_a_saved_score(desk, program)
        narrow_windows(desk, program, strip)


run(test)
