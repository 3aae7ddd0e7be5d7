"""Reads the notes of a Standard MIDI File, in seconds. It shares nothing with the program's own reader."""

import bisect
import dataclasses
import struct

DRUM_CHANNEL = 9
DEFAULT_TEMPO = 500_000  # microseconds of a quarter note


@dataclasses.dataclass
class Note:
    onset: float  # seconds from the start of the file
    end: float    # seconds
    key: int      # [0, 127]
    channel: int  # [0, 15]
    velocity: int  # [1, 127]

    @property
    def is_drum(self):
        return self.channel == DRUM_CHANNEL


@dataclasses.dataclass
class Song:
    notes: list   # of Note, by onset
    tempos: list  # (seconds, seconds of a quarter note), by time; empty with SMPTE time
    seconds: float  # to the end of the last note


class BadFile(Exception):
    """The file is no MIDI file."""


def songs_in(data):
    """The songs of a file, of which one may follow another: (format, division, bytes of each track).

    A song that is there twice counts once. A chunk that is cut off counts as far as it goes.
    """
    if data[:4] == b"RIFF" and data[8:12] == b"RMID":
        data = data[20:]
    if data[:4] != b"MThd" or len(data) < 14:
        raise BadFile("no header")
    songs, at = [], 0
    while at + 8 <= len(data):
        kind, size = data[at:at + 4], struct.unpack_from(">I", data, at + 4)[0]
        if kind == b"MThd" and at + 14 <= len(data):
            form, _, division = struct.unpack_from(">HHh", data, at + 8)
            songs.append((form, division, []))
        elif kind == b"MTrk":
            songs[-1][2].append(data[at + 8:at + 8 + size])
        at += 8 + size
    return [song for i, song in enumerate(songs) if song not in songs[:i]]


def variable_number(data, at):
    value = 0
    while True:
        byte = data[at]
        at += 1
        value = value << 7 | byte & 127
        if byte < 128:
            return value, at


def events_in(data):
    """(tick, status, first data byte, second or the bytes of a meta event) of one track, up to its end or a fault."""
    at, tick, running = 0, 0, 0
    try:
        while at < len(data):
            step, at = variable_number(data, at)
            tick += step
            status = running
            if data[at] >= 128:
                status, at = data[at], at + 1
            if status == 0xFF:
                kind = data[at]
                size, at = variable_number(data, at + 1)
                yield tick, status, kind, data[at:at + size]
                at += size
                if kind == 0x2F:
                    return
            elif status in (0xF0, 0xF7):
                size, at = variable_number(data, at)
                at += size
            elif status >= 0x80:
                running = status  # it lasts through meta events and exclusive messages, as players do it
                size = 1 if status & 0xE0 == 0xC0 else 2
                yield tick, status, data[at] & 127, data[at + 1] & 127 if size == 2 else 0
                at += size
            else:
                return
    except IndexError:
        return


class Clock:
    """Turns ticks into seconds."""

    def __init__(self, division, tempo_events):
        self.ticks, self.seconds, self.rates = [0], [0.0], []
        if division < 0:
            frames = -(division >> 8)
            self.rates.append(1 / ((30000 / 1001 if frames == 29 else frames) * max(1, division & 255)))
            return
        per_quarter = max(1, division)
        self.rates.append(DEFAULT_TEMPO / 1e6 / per_quarter)
        for tick, tempo in sorted(tempo_events, key=lambda event: event[0]):
            now = self.seconds_at(tick)
            self.ticks.append(tick)
            self.seconds.append(now)
            self.rates.append(tempo / 1e6 / per_quarter)
        self.per_quarter = per_quarter

    def seconds_at(self, tick):
        i = bisect.bisect_right(self.ticks, tick) - 1
        return self.seconds[i] + (tick - self.ticks[i]) * self.rates[i]

    def tempos(self):
        """(seconds, seconds of a quarter note); of several at one time the last."""
        if not hasattr(self, "per_quarter"):
            return []
        found = {second: rate * self.per_quarter for second, rate in zip(self.seconds, self.rates)}
        return sorted(found.items())


def notes_in(tracks, clock, shift=0.0):
    """The notes of tracks that play together. A note off ends the oldest note of its key and channel that sounds."""
    events = [(tick, order, event) for order, track in enumerate(tracks) for tick, *event in track]
    events.sort(key=lambda event: event[:2])
    notes, sounding, last = [], {}, 0
    for tick, _, (status, key, value) in events:
        last = max(last, tick)
        kind, channel = status & 0xF0, status & 15
        if status == 0xFF or kind not in (0x80, 0x90):
            continue
        open_notes = sounding.setdefault((channel, key), [])
        now = clock.seconds_at(tick) + shift
        if kind == 0x90 and value > 0:
            notes.append(Note(now, now, key, channel, value))
            open_notes.append(notes[-1])
        elif open_notes:
            open_notes.pop(0).end = now
    end = clock.seconds_at(last) + shift
    for open_notes in sounding.values():
        for note in open_notes:
            note.end = end
    return notes, end


def read(path):
    """What a file plays. Songs, and the tracks of format 2, play one after another, each with its own tempos."""
    groups = []
    for form, division, chunks in songs_in(path.read_bytes()):
        tracks = [list(events_in(chunk)) for chunk in chunks]
        groups += [(division, [track]) for track in tracks] if form == 2 else [(division, tracks)]
    notes, tempos, end = [], [], 0.0
    for division, group in groups:
        changes = [(tick, int.from_bytes(value, "big")) for track in group for tick, status, kind, value in track
                   if status == 0xFF and kind == 0x51 and len(value) == 3]
        clock = Clock(division, [change for change in changes if change[1] > 0])
        tempos += [(second + end, tempo) for second, tempo in clock.tempos()]
        found, end = notes_in(group, clock, end)
        notes += found
    notes.sort(key=lambda note: note.onset)
    return Song(notes, tempos, max((note.end for note in notes), default=0.0))
