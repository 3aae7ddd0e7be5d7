"""Measures one MIDI file: what the import kept by its own account, what is found again, and what others keep."""

import dataclasses
import math
import pathlib
import statistics
import tempfile

import grid
import matching
import midi_file
import rendering
import score_file

FEWEST_NOTES = 16  # a file with fewer is a sound and no piece: it is imported, but has no row in the table
LATE_SECONDS = 10  # an import that takes longer is trouble
NOTHING = math.nan


@dataclasses.dataclass
class Row:
    package: str
    name: str
    notes: int
    fits: bool = False
    why: str = ""                 # the rule's figure that decided
    kept: float = 0.0             # per cent by the import's account, as the next three
    moved: float = NOTHING
    shortened: float = NOTHING
    dropped: float = 100.0
    shift_ms: float = NOTHING     # median distance of matched onsets
    late_ms: float = NOTHING      # 95 % are no farther off
    recall: float = 0.0           # per cent, by matching
    followed: float = 0.0         # per cent, by the looser matching
    precision: float = NOTHING    # per cent, by matching
    tempo: float = NOTHING        # per cent by which the scores are faster than the file
    scores: int = 0
    played: float = NOTHING       # recall of MIDI as played, per cent
    onsets: float = NOTHING
    chroma: float = NOTHING
    floor_found: float = NOTHING   # the same three against the song before
    floor_onsets: float = NOTHING
    floor_chroma: float = NOTHING
    others: dict = dataclasses.field(default_factory=dict)  # program: recall, per cent
    reasons: list = dataclasses.field(default_factory=list)  # why notes were dropped, by the account
    lost: str = ""                # which notes are not found again
    trouble: list = dataclasses.field(default_factory=list)

    @property
    def is_piece(self):
        return self.notes >= FEWEST_NOTES


def lost_notes(song, lost):
    """Which notes are not found again: the channels and drums that lose most."""
    channels, drums = {}, {}
    missing = {(key, round(onset, 4)) for key, onsets in lost.items() for onset in onsets}
    for note in song.notes:
        is_lost = ((note.key, note.is_drum), round(note.onset, 4)) in missing
        counts = drums.setdefault(note.key, [0, 0]) if note.is_drum else channels.setdefault(note.channel + 1, [0, 0])
        counts[0] += is_lost
        counts[1] += 1
    words = []
    for kind, table in (("channel", channels), ("drum", drums)):
        worst = sorted(table.items(), key=lambda item: -item[1][0])[:4]
        words += [f"{kind} {name}: {counts[0]} of {counts[1]}" for name, counts in worst if counts[0] > 0]
    return "; ".join(words)


def check_import(row, imported):
    """Takes the account over; what went wrong is trouble. A file without notes is refused, and rightly."""
    if imported.seconds > LATE_SECONDS:
        row.trouble.append(f"took {imported.seconds:.0f} s")
    if imported.status != 0 and row.notes > 0:
        row.trouble.append(f"status {imported.status}: {imported.words.strip()}")
    row.trouble += [line for line in imported.words.splitlines() if imported.status == 0 and "damaged" in line]
    if imported.scores:
        check_account(row, imported.account)


def check_account(row, account):
    """Takes the account over; what does not add up is trouble."""
    total, kept, dropped = account["notes"], account["kept"], account["dropped"]
    silent = account["left_out"]["silent_notes"]
    reasons = account["dropped_because"]
    if total + silent != row.notes:
        row.trouble.append(f"the account has {total} notes and {silent} silent ones, the file {row.notes}")
    if kept + dropped != total or sum(reasons.values()) != dropped:
        row.trouble.append(f"kept {kept} and dropped {dropped} for {reasons} are not all {total} notes")
    for key in ("notes", "kept", "dropped"):
        if sum(score[key] for score in account["scores"]) != account[key]:
            row.trouble.append(f"the scores' {key} do not add up to those of the file")
    row.kept, row.dropped = 100 * kept / total, 100 * dropped / total
    row.moved, row.shortened = 100 * account["moved"] / total, 100 * account["shortened"] / total
    row.reasons = [f"{count} {reason}" for reason, count in reasons.items() if count]
    row.reasons += [f"{account[key]} {key}" for key in ("merged", "in_chord_marks", "continued") if account[key]]


def check_speed(row, account, places):
    """Compares the speed that the account gives each score with where its notes are."""
    for i, (score, (ratio, _)) in enumerate(zip(account["scores"], places)):
        if row.fits and score["kept"] >= 50 and abs(score["speed"] - ratio) > 0.002:
            row.trouble.append(f"score {i + 1} plays at {ratio:.3f} of the speed, not at {score['speed']}")


class Measuring:
    def __init__(self, converter, other_programs):
        self.converter = converter
        self.other_programs = other_programs  # nothing: leave them out
        self.song_before = None
        self.sound_before = None

    def measure(self, file, renders):
        """The row of a file. A file that is not imported keeps nothing."""
        song = midi_file.read(file.path)
        row = Row(file.package, file.name, len(song.notes))
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            imported = self.converter.import_file(file.path, folder)
            check_import(row, imported)
            if not row.is_piece:
                return row
            row.fits, row.why = grid.judge(song)
            column = 0.0
            if imported.scores:
                column = self.take_import(row, song, imported, folder, file, renders)
        self.take_others(row, song, file, column)
        return row

    def take_import(self, row, song, imported, folder, file, renders):
        """Fills the row from an import; returns the seconds of a column."""
        scores = [score_file.read(path) for path in imported.scores]
        matched, places = matching.match_scores(song.notes, scores)
        row.scores, row.tempo = len(scores), 100 * (matched.ratio - 1)
        check_speed(row, imported.account, places)
        row.recall, row.followed, row.precision = 100 * matched.recall, 100 * matched.followed, 100 * matched.precision
        if len(matched.distances):
            row.shift_ms = 1000 * statistics.median(matched.distances)
            row.late_ms = 1000 * sorted(matched.distances)[int(0.95 * (len(matched.distances) - 1))]
        row.lost = lost_notes(song, matched.lost)
        self.take_played(row, song, folder, imported.scores, scores, places)
        if renders:
            if self.song_before is not None:
                row.floor_found = 100 * matching.match_scores(self.song_before.notes, scores)[0].recall
            self.song_before = song
            self.take_renderings(row, file, folder, imported.scores, places)
        return max(score.column for score in scores)

    def take_played(self, row, song, folder, paths, scores, places):
        """Matches the MIDI files that the scores become. They begin with the silent column of a played score."""
        played, later = [], []
        for path, score, (ratio, offset) in zip(paths, scores, places):
            target = folder / "played.mid"
            status, words, _ = self.converter.run(path, "-o", target)
            if status != 0:
                row.trouble.append(f"no MIDI file of a score: {words.strip()}")
                return
            played.append(dataclasses.replace(score, notes=midi_file.read(target).notes))
            later.append((ratio, offset - ratio * score.column))
        row.played = 100 * matching.match_at(song.notes, played, later)

    def take_renderings(self, row, file, folder, scores, places):
        if not self.converter.render(file.path, folder / "file.wav", rendering.RATE):
            row.trouble.append("the file does not render")
            return
        parts = []
        for score, (ratio, offset) in zip(scores, places):
            if offset > rendering.SECONDS:
                break
            if not self.converter.render(score, folder / "score.wav", rendering.RATE):
                row.trouble.append("the score does not render")
                return
            parts.append((rendering.features_of(folder / "score.wav"), ratio, offset))
        heard = rendering.features_of(folder / "file.wav")
        row.onsets, row.chroma = rendering.similarity(heard, parts)
        if self.sound_before is not None:
            row.floor_onsets, row.floor_chroma = rendering.similarity(self.sound_before, parts)
        self.sound_before = heard

    def take_others(self, row, song, file, column):
        if self.other_programs is None:
            return
        for program in ("abcmidi", "musescore3"):
            written = self.other_programs.written_back(program, file.path)
            row.others[program] = 0.0
            if written is not None:
                back = midi_file.read(written)
                row.others[program] = 100 * matching.match_midi(song.notes, back.notes, column).recall
