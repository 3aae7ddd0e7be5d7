"""Reads the virtual screen."""

import mmap
import pathlib
import struct
import zlib


class Screen:
    """Reads the pixels of the virtual screen from its framebuffer file."""

    def __init__(self, path):
        self.file = open(path, "rb")
        self.map = mmap.mmap(self.file.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(">25I", self.map[:100])
        self.first = header[0] + header[19] * 12
        self.line = header[12]

    def pixel(self, x, y):
        """(red, green, blue) of a place on the screen."""
        at = self.first + y * self.line + 4 * x
        blue, green, red = self.map[at:at + 3]
        return red, green, blue

    def part(self, x, y, width, height):
        """The bytes of a rectangle, to compare with a later look."""
        lines = (self.first + line * self.line + 4 * x for line in range(y, y + height))
        return b"".join(self.map[at:at + 4 * width] for at in lines)

    def write_png(self, path, width, height):
        """Saves a part of the screen as a picture."""
        lines = []
        for y in range(height):
            line = self.part(0, y, width, 1)
            mixed = bytearray(3 * width)
            mixed[0::3], mixed[1::3], mixed[2::3] = line[2::4], line[1::4], line[0::4]
            lines.append(b"\0" + bytes(mixed))

        def chunk(name, data):
            return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
        head = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
        pathlib.Path(path).write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) +
                                       chunk(b"IDAT", zlib.compress(b"".join(lines))) + chunk(b"IEND", b""))
