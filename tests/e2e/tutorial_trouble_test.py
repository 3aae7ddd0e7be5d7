"""Takes steps of the tutorial that cannot work: no folder for the samples, a full disk, a closed window.

The program must still work after each of these.
"""

import resource

from desk import Desk, Program, check, run, wait_until
from wizard import FIRST_STEP, STEP_HEIGHT, Wizard

RED, WHITE = (255, 0, 0), (255, 255, 255)
SELECTING = (67, 98)  # in the Editing Toolbar: white beside the number in select mode
TICK = (8 + 1 + 8 + 12 + 376, 34 + 28 + 8 + 50 + 4)  # in the wizard: the upper left of the first step's tick


class ProgramOnSmallDisk(Program):
    """A program whose files can be kept from growing, as on a full disk."""

    PREFIX = ("env", "--ignore-signal=XFSZ")

    def fill_disk(self, full):
        most = resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE)[1]
        resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE, (0 if full else most, most))


def launch(desk):
    program = ProgramOnSmallDisk(desk)
    desk.programs.append(program)
    program.main_window()
    return program


def has_note(desk, program, column, line):
    place = program.cell(column, line)
    return lambda: desk.screen.pixel(*place) == RED


def try_without_folder(build):
    """A file of the user has the name of the folder."""
    with Desk(build) as desk:
        media = desk.program_folder / "media"
        media.write_text("mine")
        program = launch(desk)
        wizard = Wizard(desk, program)
        wizard.choose("Composition")
        for index in (1, 3, 5):
            wizard.step(index)
        wizard.choose("Editing")
        wizard.step(0, has_note(desk, program, 9, 13))
        program.end()
        check(media.read_text() == "mine", "the file of the user has changed")


def try_full_disk(build):
    """The samples cannot be written. Later there is room, and the same step loads one."""
    with Desk(build) as desk:
        program = launch(desk)
        program.fill_disk(True)
        wizard = Wizard(desk, program)
        media = desk.program_folder / "media"
        check(all(file.stat().st_size == 0 for file in media.iterdir()), "the disk was not full")
        wizard.choose("Composition")
        wizard.step(1, lambda: not (media / "101.sng").exists())
        check(not has_note(desk, program, 0, 5)(), "a sample was loaded from a full disk")
        program.fill_disk(False)
        wizard.step(1, has_note(desk, program, 0, 5))
        program.end()


def try_breaking_off(build):
    """The wizard is closed during a step and opened again. A window that a step uses is closed during the step."""
    with Desk(build) as desk:
        program = launch(desk)
        wizard = Wizard(desk, program)
        wizard.choose("Editing")
        wizard.step(0, has_note(desk, program, 0, 7))
        wizard.close()
        wait_until(has_note(desk, program, 9, 13), "the step goes on to its end")

        wizard = Wizard(desk, program, moved=True)
        wizard.choose("Editing")
        wizard.step(5, lambda: desk.windows("Editing Toolbar"))
        wizard.step(7)
        x, y, width, _ = desk.settled(desk.window("Editing Toolbar"))
        desk.click(x + width - 21, y + 14)
        desk.no_window("Editing Toolbar")
        wizard.step(10)

        # A step is clicked while another one runs. It clears the score, and then the first one continues.
        wizard.step(0, has_note(desk, program, 0, 7))
        wizard.choose("Composition")
        wizard.step(0)
        wait_until(has_note(desk, program, 9, 13), "the step goes on to its end")

        # The program ends in the middle of a step.
        wizard.choose("Editing")
        wizard.step(0, has_note(desk, program, 0, 7))
        program.end()


def begin_in_select_mode(build):
    """The lesson presses the mode button before it draws, and again where it wants to select."""
    with Desk(build) as desk:
        program = launch(desk)
        desk.key("F2")
        wizard = Wizard(desk, program)
        wizard.choose("Editing")
        check(not has_tick(desk, wizard, 0)(), "a step is ticked before it is done")
        wizard.step(0, has_note(desk, program, 9, 13))
        wait_until(has_tick(desk, wizard, 0), "the tick of the step")
        wizard.step(5, lambda: desk.windows("Editing Toolbar"))
        selecting = program.place_in("Editing Toolbar", SELECTING)
        is_selecting = lambda: desk.screen.pixel(*selecting) == WHITE
        check(not is_selecting(), "the lesson is still in select mode")
        wizard.step(6, is_selecting)
        wizard.step(2, lambda: not has_note(desk, program, 9, 13)())
        check(not is_selecting(), "notes were deleted in select mode")
        dims_and_moves(desk, program, wizard)
        program.end()


def has_tick(desk, wizard, step):
    """A condition: the disc of the tick, which is at the right end of the step."""
    place = wizard.left + TICK[0], wizard.top + TICK[1] + STEP_HEIGHT * step
    def is_seen():
        return desk.screen.part(*place, 16, 16) != desk.screen.part(place[0] - 40, place[1], 16, 16)
    return is_seen


def dims_and_moves(desk, program, wizard):
    """While a hint is open, the windows behind it are darker. Its title band moves it."""
    place = program.cell(40, 40)
    bright = sum(desk.screen.pixel(*place))
    wizard.click_on(wizard.top + FIRST_STEP[1] + STEP_HEIGHT)
    hint = desk.window("Velorin Wizard")
    x, y, *_ = desk.settled(hint)
    wait_until(lambda: sum(desk.screen.pixel(*place)) < 0.8 * bright, "the dimmed tableau")
    desk.drag([(x + 200, y + 12), (x + 180, y + 30), (x + 150, y + 60)])
    wait_until(lambda: desk.place_of(hint)[:2] == (x - 50, y + 48), "the hint to move")
    desk.key("Escape")
    desk.no_window("Velorin Wizard")
    wait_until(lambda: sum(desk.screen.pixel(*place)) == bright, "the tableau as it was")


def test(build):
    begin_in_select_mode(build)
    try_without_folder(build)
    try_full_disk(build)
    try_breaking_off(build)


run(test)
