"""Score files as text: functions that write and read them for tests."""

ROWS, COLUMNS = 13, 1001


class Score:
    """The grids of a score, empty at first. Cells are keyed by (row, column)."""

    def __init__(self, tempo=100):
        self.notes = [[-1] * COLUMNS for _ in range(ROWS)]
        self.instruments = [[0] * COLUMNS for _ in range(ROWS)]
        self.row_instruments = [0] * ROWS
        self.marks = {}
        self.tempo = tempo

    def note(self, row, column, pitch, length, instrument):
        for step in range(length):
            self.notes[row][column + step] = pitch if step == 0 else 1000 + pitch
            self.instruments[row][column + step] = instrument

    def last(self, row):
        return max((c for c in range(COLUMNS) if self.notes[row][c] != -1), default=0)

    def text(self):
        """The bytes of the file as the program writes them."""
        lines = []
        for row in range(ROWS):
            end = self.last(row) + 1
            lines.append(",".join(map(str, self.notes[row][:end])))
            lines.append(",".join(map(str, self.instruments[row][:end])))
        lines.append(f" {self.tempo} ")
        lines.append(",".join(map(str, self.row_instruments)))
        lines.append("Polyphonics")
        width = max(1, max(map(self.last, range(ROWS))) + 1)
        for lane in range(1, 9):
            lines.append(",".join(str(self.marks.get((lane, column), 0)) for column in range(1, width + 1)))
        return "".join(line + "\r\n" for line in lines).encode()


def runs(data):
    """A score file as {(row, column): (pitch, length, instrument)} and {(lane, column)} of its marks."""
    lines = data.decode().split("\r\n")
    notes = {}
    for row in range(ROWS):
        cells = list(map(int, lines[2 * row].split(",")))
        instruments = list(map(int, lines[2 * row + 1].split(",")))
        column = 0
        while column < len(cells):
            start, pitch = column, cells[column]
            column += 1
            if pitch < 0:
                continue
            while column < len(cells) and cells[column] == 1000 + pitch % 1000:
                column += 1
            notes[row, start] = (pitch, column - start, instruments[start])
    marks = set()
    for lane in range(1, 9):
        if 28 + lane < len(lines):
            fields = lines[28 + lane].split(",")
            marks |= {(lane, i + 1) for i, field in enumerate(fields) if field == "1"}
    return notes, marks
