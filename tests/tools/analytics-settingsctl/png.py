"""PNG images with eight bits a colour: reading those of rsvg-convert, writing small ones."""

import struct
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"
CHANNELS = {2: 3, 6: 4}


def chunks(data):
    at = len(SIGNATURE)
    while at < len(data):
        length, = struct.unpack(">I", data[at:at + 4])
        yield data[at + 4:at + 8], data[at + 8:at + 8 + length]
        at += 12 + length


def nearest(left, above, corner):
    """The one of three neighbours that is nearest to left + above - corner."""
    guess = left + above - corner
    return min((left, above, corner), key=lambda value: abs(guess - value))


def unfiltered(kind, row, above, step):
    """Adds to each byte what the row's filter took away."""
    for index, _ in enumerate(row):
        left = row[index - step] if index >= step else 0
        corner = above[index - step] if index >= step else 0
        taken = (0, left, above[index], (left + above[index]) // 2,
                 nearest(left, above[index], corner))[kind]
        row[index] = (row[index] + taken) & 0xFF
    return row


class Image:
    """Only as many rows are worked out as are asked for: large images take their time."""

    def __init__(self, data):
        assert data.startswith(SIGNATURE)
        parts = list(chunks(data))
        self.width, self.height, depth, colours = struct.unpack(">IIBB", parts[0][1][:10])
        assert depth == 8
        self.step = CHANNELS[colours]
        self.raw = zlib.decompress(b"".join(content for name, content in parts if name == b"IDAT"))
        self.rows = []

    def add_row(self):
        length = self.width * self.step
        start = len(self.rows) * (length + 1)
        above = self.rows[-1] if self.rows else bytearray(length)
        row = bytearray(self.raw[start + 1:start + 1 + length])
        self.rows.append(unfiltered(self.raw[start], row, above, self.step))

    def pixel(self, x, y):
        """Red, green and blue."""
        while len(self.rows) <= y:
            self.add_row()
        return tuple(self.rows[y][x * self.step:x * self.step + 3])


def written(width, height, colour):
    """An image of one colour."""
    rows = (b"\0" + bytes(colour) * width) * height
    parts = ((b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)),
             (b"IDAT", zlib.compress(rows)), (b"IEND", b""))
    return SIGNATURE + b"".join(
        struct.pack(">I", len(content)) + name + content +
        struct.pack(">I", zlib.crc32(name + content)) for name, content in parts)
