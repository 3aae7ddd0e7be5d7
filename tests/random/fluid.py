"""FluidSynth as a library, and the times of the program's columns."""

import ctypes
import math
import struct

BLOCK = 64  # frames: a message takes effect at the next block
LIBRARY = "libfluidsynth.so.3"


def single(number):
    """The nearest number of single precision."""
    return struct.unpack("f", struct.pack("f", number))[0]


class Synth:
    """A synthesizer with the usual settings. `loads_all` loads all samples of the font, as `fluidsynth` does. Without it
    each is loaded when it is needed, as the converter does; that changes what follows the end of a sample."""

    def __init__(self, font, rate, loads_all):
        self.calls = calls = ctypes.CDLL(LIBRARY)
        calls.new_fluid_settings.restype = calls.new_fluid_synth.restype = calls.new_fluid_player.restype = ctypes.c_void_p
        for level in range(5):
            calls.fluid_set_log_function(level, None, None)
        self.settings = ctypes.c_void_p(calls.new_fluid_settings())
        calls.fluid_settings_setnum(self.settings, b"synth.sample-rate", ctypes.c_double(rate))
        calls.fluid_settings_setint(self.settings, b"synth.lock-memory", 0)
        calls.fluid_settings_setint(self.settings, b"synth.dynamic-sample-loading", 0 if loads_all else 1)
        self.synth = ctypes.c_void_p(calls.new_fluid_synth(self.settings))
        if calls.fluid_synth_sfload(self.synth, str(font).encode(), 1) < 0:
            raise SystemExit(f"no SoundFont {font}")

    def close(self):
        self.calls.delete_fluid_synth(self.synth)
        self.calls.delete_fluid_settings(self.settings)

    def send(self, message):
        kind, channel = message[0] & 0xF0, message[0] & 0x0F
        if kind == 0x80:
            self.calls.fluid_synth_noteoff(self.synth, channel, message[1])
        elif kind == 0x90:
            self.calls.fluid_synth_noteon(self.synth, channel, message[1], message[2])
        elif kind == 0xB0:
            self.calls.fluid_synth_cc(self.synth, channel, message[1], message[2])
        elif kind == 0xC0:
            self.calls.fluid_synth_program_change(self.synth, channel, message[1])

    def render(self, frames):
        out = ctypes.create_string_buffer(4 * frames)
        self.calls.fluid_synth_write_s16(self.synth, frames, out, 0, 2, out, 1, 2)
        return out.raw


def rendered(font, rate, events, blocks):
    """16 bit stereo of so many blocks. `events` are pairs of block and message, in order."""
    synth = Synth(font, rate, loads_all=False)
    sound = []
    done = 0
    for block, message in events:
        if block >= blocks:
            break
        if block > done:
            sound.append(synth.render(BLOCK * (block - done)))
            done = block
        synth.send(message)
    sound.append(synth.render(BLOCK * (blocks - done)))
    synth.close()
    return b"".join(sound)


def played(font, rate, midi_file, blocks):
    """The sound of a MIDI file with the player of the library, and the blocks in which its note ons are sent, each with
    channel and key. A message that is sent while a block is rendered takes effect with the next."""
    synth = Synth(font, rate, loads_all=True)
    calls = synth.calls
    notes = []
    sound = []

    @ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
    def take(_, event):
        event = ctypes.c_void_p(event)
        if calls.fluid_midi_event_get_type(event) == 0x90 and calls.fluid_midi_event_get_velocity(event) > 0:
            notes.append((len(sound), calls.fluid_midi_event_get_channel(event), calls.fluid_midi_event_get_key(event)))
        return calls.fluid_synth_handle_midi_event(synth.synth, event)

    player = ctypes.c_void_p(calls.new_fluid_player(synth.synth))
    calls.fluid_player_set_playback_callback(player, take, None)
    calls.fluid_player_add_mem(player, midi_file, ctypes.c_size_t(len(midi_file)))
    calls.fluid_player_play(player)
    while len(sound) < blocks:
        sound.append(synth.render(BLOCK))
    calls.delete_fluid_player(player)
    synth.close()
    return b"".join(sound), notes


def column_times(tempo, columns):
    """When the program plays each column, in nanoseconds: its stopwatch computes in single precision."""
    column = single(300.0 / tempo * 0.04)
    times = []
    now = 0
    for _ in range(columns):
        end = single(single(now / 1e9) + column)
        now = max(now + 1, math.floor(end * 1e9 + 0.5))
        if single(now / 1e9) < end:
            now += 1
        times.append(now)
    return times


def block_of_time(time_ns, rate):
    """The block of a message in the program's sound, which renders whole frames up to its time."""
    seconds, rest = divmod(time_ns, 10**9)
    frames = seconds * rate + (rest * rate + 10**9 // 2) // 10**9
    return -(-frames // BLOCK)
