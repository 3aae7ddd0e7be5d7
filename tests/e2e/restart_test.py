"""Started again while it is still ending, the program waits for its own end and says nothing."""

from desk import Desk, check, run, wait_until

SMALLEST_MAIN_WINDOW = 500  # pixels wide; a message box is smaller, and has the same title


def test(build):
    with Desk(build) as desk:
        first = desk.launch()
        first.main_window()
        first.press(12)  # the Tutorial Wizard makes files that the end takes nearly three seconds to remove
        desk.window(" Tutorial Wizard")
        media = desk.program_folder / "media"
        wait_until(lambda: list(media.glob("*")), "the lessons' files")
        first.press(14)
        desk.no_window("Velorin")
        check(first.process.poll() is None, "the first run has ended at once, so there is nothing to wait for")

        second = desk.launch()
        *_, width, _ = second.main_window()
        check(width > SMALLEST_MAIN_WINDOW, "the second run shows a message box and no main window")
        check(first.process.poll() is not None, "the second run did not wait for the first")
        first.ended()
        check(not list(media.glob("*")), "the lessons' files stay")
        second.end()


run(test)
