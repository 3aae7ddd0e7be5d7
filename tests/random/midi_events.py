"""The messages of a MIDI file of the program."""

import struct


def number(data, at):
    value = 0
    while True:
        value = value << 7 | data[at] & 0x7F
        at += 1
        if data[at - 1] < 0x80:
            return value, at


def as_number(value):
    out = [value & 0x7F]
    while value := value >> 7:
        out.insert(0, 0x80 | value & 0x7F)
    return bytes(out)


class MidiEvents:
    """`messages` are (tick, bytes), in the order in which a player sends them; `tempo_us` and `division` of the file."""

    def __init__(self, data):
        kind, tracks, self.division = struct.unpack(">HHH", data[8:14])
        assert data[:4] == b"MThd" and kind == 1
        self.tempo_us, self.end = 500_000, 0
        found = []
        at = 14
        for track in range(tracks):
            length = struct.unpack(">I", data[at + 4:at + 8])[0]
            assert data[at:at + 4] == b"MTrk"
            found += [(tick, track, message) for tick, message in self.track(data[at + 8:at + 8 + length])]
            at += 8 + length
        assert at == len(data)
        self.messages = [(tick, message) for tick, _, message in sorted(found, key=lambda event: event[:2])]

    def file_of(self, messages):
        """A file with these messages in one track."""
        track = b"\x00\xFF\x51\x03" + self.tempo_us.to_bytes(3, "big")
        at = 0
        for tick, message in sorted(messages, key=lambda event: event[0]):
            track += as_number(tick - at) + message
            at = tick
        track += as_number(max(self.end - at, 0)) + b"\xFF\x2F\x00"
        return b"MThd" + struct.pack(">IHHH", 6, 1, 1, self.division) + b"MTrk" + struct.pack(">I", len(track)) + track

    def track(self, data):
        at = tick = 0
        while at < len(data):
            delta, at = number(data, at)
            tick += delta
            status = data[at]
            if status == 0xFF:
                kind = data[at + 1]
                length, at = number(data, at + 2)
                if kind == 0x51:
                    self.tempo_us = int.from_bytes(data[at:at + length], "big")
                at += length
            else:
                size = 2 if status & 0xE0 == 0xC0 else 3
                yield tick, data[at:at + size]
                at += size
        self.end = max(self.end, tick)
