"""A program that starts while the previous one is still closing waits for it and shows no message."""

from desk import Desk, check, run, wait_until

SMALLEST_MAIN_WINDOW = 500  # pixels wide; a message box has the same title and is smaller


def test(build):
    with Desk(build) as desk:
        first = desk.launch()
        first.main_window()
        first.press(12)  # the Tutorial Wizard makes files that take nearly three seconds to remove at the end
        desk.window(" Tutorial Wizard")
        media = desk.program_folder / "media"
        wait_until(lambda: list(media.glob("*")), "the files of the lessons")
        first.press(14)
        desk.no_window("Velorin")
        check(first.process.poll() is None, "the first run ended at once, so the second had nothing to wait for")

        second = desk.launch()
        *_, width, _ = second.main_window()
        check(width > SMALLEST_MAIN_WINDOW, "the second run shows a message box instead of the main window")
        check(first.process.poll() is not None, "the second run did not wait for the first")
        first.ended()
        check(not list(media.glob("*")), "the files of the lessons are still there")
        second.end()


run(test)
