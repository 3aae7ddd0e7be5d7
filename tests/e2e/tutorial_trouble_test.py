"""Takes steps of the tutorial when something is in the way: no folder for the samples, a full disk, a closed window.

After each of these the program must work on.
"""

import resource

from desk import Desk, Program, check, run, wait_until
from wizard import Wizard

RED = (255, 0, 0)


class ProgramOnSmallDisk(Program):
    """One whose files can be kept from growing, as by a disk that is full."""

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
    """A file of the user's own has the name of the folder."""
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
        check(media.read_text() == "mine", "the user's file has changed")


def try_full_disk(build):
    """The samples cannot be written; later there is room, and the same step loads one."""
    with Desk(build) as desk:
        program = launch(desk)
        program.fill_disk(True)
        wizard = Wizard(desk, program)
        media = desk.program_folder / "media"
        check(all(file.stat().st_size == 0 for file in media.iterdir()), "the disk was not full")
        wizard.choose("Composition")
        wizard.step(1, lambda: not (media / "101.sng").exists())
        check(not has_note(desk, program, 0, 5)(), "there are notes from nowhere")
        program.fill_disk(False)
        wizard.step(1, has_note(desk, program, 0, 5))
        program.end()


def try_breaking_off(build):
    """The wizard is closed while a step clicks, and opened again; a window that a step opened is closed under it."""
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

        # A step is clicked while another one clicks: it clears the score, and the first one goes on.
        wizard.step(0, has_note(desk, program, 0, 7))
        wizard.choose("Composition")
        wizard.step(0)
        wait_until(has_note(desk, program, 9, 13), "the step goes on to its end")

        # The program ends in the middle of a step.
        wizard.choose("Editing")
        wizard.step(0, has_note(desk, program, 0, 7))
        program.end()


def test(build):
    try_without_folder(build)
    try_full_disk(build)
    try_breaking_off(build)


run(test)
