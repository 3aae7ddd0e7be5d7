"""Prints the rows of the measurement as text."""

import math
import statistics


def kept_by(row, program):
    return row.others.get(program, math.nan)


COLUMNS = (
    # head, what it is, the value, its format
    ("notes", "notes in the file", lambda row: row.notes, "d"),
    ("fits", "the file fits the grid by the rule in grid.py", lambda row: "yes" if row.fits else "no", "s"),
    ("kept", "% of the notes that are in the scores, by the import's account", lambda row: row.kept, ".1f"),
    ("moved", "% that begin more than 5 ms from their time, by the account", lambda row: row.moved, ".1f"),
    ("short", "% that end early, by the account", lambda row: row.shortened, ".1f"),
    ("drop", "% that are not in the scores, by the account", lambda row: row.dropped, ".1f"),
    ("found", "% of the notes that are found again in the scores", lambda row: row.recall, ".1f"),
    ("there", "% found again if every three seconds may move, and other drums may stand in", lambda row: row.followed,
     ".1f"),
    ("played", "% found again in the MIDI files that the scores become", lambda row: row.played, ".1f"),
    ("right", "% of the scores' notes that are in the file", lambda row: row.precision, ".1f"),
    ("off", "ms that a found note is off, median", lambda row: row.shift_ms, ".1f"),
    ("p95", "ms, 95 % are off by less", lambda row: row.late_ms, ".1f"),
    ("tempo", "% that the scores play faster than the file", lambda row: row.tempo, ".2f"),
    ("parts", "scores made", lambda row: row.scores, "d"),
    ("onset", "similarity of the onsets in sound", lambda row: row.onsets, ".2f"),
    ("chroma", "similarity of the tones in sound", lambda row: row.chroma, ".2f"),
    ("abcmidi", "% found again in what abcmidi writes back", lambda row: kept_by(row, "abcmidi"), ".1f"),
    ("mscore3", "% found again in what musescore3 writes back", lambda row: kept_by(row, "musescore3"), ".1f"),
)
MEDIANS = [column for column in COLUMNS if column[0] not in ("notes", "fits", "parts")]


def shown(value, form):
    if isinstance(value, float) and math.isnan(value):
        return "-"
    return format(value, form)


def median(values):
    known = [value for value in values if not math.isnan(value)]
    return statistics.median(known) if known else math.nan


def print_files(rows):
    names = [f"{row.package} {row.name}" for row in rows]
    width = max(len(name) for name in names)
    print("file".ljust(width), *(head.rjust(7) for head, *_ in COLUMNS))
    for row, name in zip(rows, names):
        print(name.ljust(width), *(shown(value(row), form).rjust(7) for _, _, value, form in COLUMNS))
    print()
    for head, what, *_ in COLUMNS:
        print(f"{head:>8}: {what}")


def summary(rows):
    """Lines with the medians over the files that fit, those that do not, and all."""
    groups = (("files that fit", [row for row in rows if row.fits]),
              ("files that do not", [row for row in rows if not row.fits]), ("all files", rows))
    lines = ["medians".ljust(28) + "".join(head.rjust(8) for head, *_ in MEDIANS)]
    for name, group in groups:
        figures = "".join(shown(median([value(row) for row in group]), form).rjust(8) for _, _, value, form in MEDIANS)
        lines.append(f"{name}: {len(group)}".ljust(28) + figures)
    notes = sum(row.notes for row in rows)
    for head, _, value, _ in MEDIANS:
        if head in ("kept", "found", "there", "played", "abcmidi", "mscore3"):
            known = [row for row in rows if not math.isnan(value(row))]
            if known:
                share = sum(value(row) * row.notes for row in known) / sum(row.notes for row in known)
                lines.append(f"{head}, of all {notes} notes together: {share:.1f} %")
    for head, pick, own in (("found", lambda row: row.floor_found, "100"), ("onset", lambda row: row.floor_onsets, "1"),
                            ("chroma", lambda row: row.floor_chroma, "1")):
        floor = median([pick(row) for row in rows])
        if not math.isnan(floor):
            lines.append(f"{head}, range: {floor:.2f} for a score with another song, {own} for a file with itself")
    return lines


def print_worst(rows, count):
    """The files that lose most, with what they lose: those that fit first."""
    ranked = sorted(rows, key=lambda row: (not row.fits, min(row.kept, row.recall)))
    for title, fits in (("that fit", True), ("that do not fit", False)):
        print(f"\nThe {count} files {title} and lose most\n")
        for row in [row for row in ranked if row.fits == fits][:count]:
            print(f"{row.package} {row.name}: {row.notes} notes, kept {shown(row.kept, '.1f')} %, "
                  f"found {shown(row.recall, '.1f')} %, there {shown(row.followed, '.1f')} %, {row.scores} scores; "
                  f"{row.why}")
            print(f"    account: {'; '.join(row.reasons) or '-'}")
            print(f"    not found: {row.lost or '-'}")


def print_trouble(rows):
    for row in rows:
        for words in row.trouble:
            print(f"{row.package} {row.name}: {words}")
