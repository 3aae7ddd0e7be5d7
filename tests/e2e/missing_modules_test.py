"""Starts the program without its modules: it says which sound is missing, and everything else works."""

from desk import Desk, check, run, wait_until

SILENT = ("velorin: There is no sound card (velorin-card.so: ",
          "velorin: The built-in synthesizer is silent, because it cannot be loaded: velorin-synth.so: ")


def test(build):
    with Desk(build) as desk:
        for module in desk.program_folder.glob("*.so"):
            module.unlink()
        program = desk.launch()
        program.main_window()
        wait_until(lambda: all(line in program.complaints() for line in SILENT), "what the program says")
        desk.window("Velorin Notice")
        score = desk.songs / "again.sng"
        program.press(3)
        desk.choose_file("Save music file", "again", save_filter=1)
        wait_until(score.exists, "the saved score")
        program.press(14)
        check(program.process.wait(20) == 0, "the program did not end with status 0")


run(test)
