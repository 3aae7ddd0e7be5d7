"""Plays the program from a MIDI keyboard: none there, switched on, unplugged, back, in the next run, and off."""

import listen
from desk import PATIENCE_S, check, run, wait_until
from midi_server import PORT, DeskWithMidi, Keyboard, share_no_memory

HINT = "Velorin Hint"


class HeardKeyboard(Keyboard):
    def play(self, key):
        """Presses a key until it is heard."""
        start = listen.frames_in(self.desk.recording)
        self.send(f"90 {key:02X} 7F")

        def heard():
            sound = listen.samples(self.desk.recording, start)
            first = listen.first_sound(sound)
            if first is None or len(sound) < first + 8192:
                return None
            return listen.key_of(sound[first + 2048:first + 6144])

        found = wait_until(heard, "the sound of the key")
        check(found == key, f"key {key} sounds as {found}")
        self.send(f"80 {key:02X} 00")
        self.wait_for_silence()

    def wait_for_silence(self):
        def silent():
            frames = listen.frames_in(self.desk.recording)
            return listen.is_quiet(listen.samples(self.desk.recording, max(frames - 4410, 0)))
        wait_until(silent, "the end of the note", 30)


def launch(desk):
    program = desk.launch()
    program.main_window()
    program.take_keyboard()
    return program


def is_connected(desk):
    return "Velorin:in" in desk.told(["jack_lsp", "-c", PORT])


def hint_comes_and_goes(desk):
    desk.window(HINT)
    desk.no_window(HINT)


def switch_on(desk):
    desk.key("ctrl+k")
    hint_comes_and_goes(desk)
    keyboard = HeardKeyboard(desk)
    desk.key("ctrl+k")
    wait_until(lambda: is_connected(desk), "the connection to the keyboard")
    hint_comes_and_goes(desk)
    for key in (60, 64, 55):
        keyboard.play(key)
    return keyboard


def unplug_and_plug_in(desk, keyboard):
    keyboard.unplug()
    desk.window(HINT)
    keyboard = HeardKeyboard(desk)
    wait_until(lambda: is_connected(desk), "the keyboard that is back")
    keyboard.play(65)
    return keyboard


def go_on_in_the_next_run(desk, program, keyboard):
    program.press(14)
    check(program.process.wait(PATIENCE_S) == 0, "the program did not end with status 0")
    program = launch(desk)
    wait_until(lambda: is_connected(desk), "the keyboard in the next run")
    keyboard.play(62)
    desk.key("ctrl+k")
    wait_until(lambda: not is_connected(desk), "the end of the connection")
    program.press(14)
    check(program.process.wait(PATIENCE_S) == 0, "the second run did not end with status 0")


def test(build):
    share_no_memory()
    with DeskWithMidi(build) as desk:
        program = launch(desk)
        keyboard = switch_on(desk)
        keyboard = unplug_and_plug_in(desk, keyboard)
        go_on_in_the_next_run(desk, program, keyboard)


run(test)
