"""The song of the tests, and what its page must show. The times are worked out here, not read from the page."""

from score_text import Score

TITLE = "M\u00f6we <script>alert(1)<script> \"'&"
TEMPO = 100
COLUMN_S = 12 / TEMPO
COLUMN_PX = 12
BAR = 4  # columns
COLUMNS = 100
BARS = 25
FIRST_PITCH = 60

MUSIC_BOX, HARP, SIDE_STICK = 10, 46, 130


def score():
    """A melody of a note in each bar, a second voice from bar 2 on, and beats in the first twelve bars."""
    song = Score(TEMPO)
    for bar in range(BARS):
        song.note(0, bar * BAR, FIRST_PITCH + bar % 5, 3, MUSIC_BOX)
        if bar > 0:
            song.note(1, bar * BAR + 2, 70 + bar % 7, 2, HARP)
        if bar < 12:
            song.note(8, bar * BAR, 57, 1, SIDE_STICK)
    song.marks[1, 4] = 1  # read as that of column 3, which has no note
    return song


def start_of(column):
    """Seconds from the beginning of the sound. The song waits for one column before its first."""
    return (column + 1) * COLUMN_S


# Chords that are strummed hold the song: from these columns on it is later, by so many microseconds.
HOLDS = ((20, 115_000), (60, 230_000))


def start_with_holds(column):
    return start_of(column) + max((us for first, us in HOLDS if column >= first), default=0) / 1e6


def end():
    return start_of(COLUMNS)
