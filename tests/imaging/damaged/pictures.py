"""Sound pictures of every format, and ways to damage them. The same files at every call."""
import io
import random
import struct

from PIL import Image

WIDTH, HEIGHT = 37, 29


def noisy(mode="RGB", width=WIDTH, height=HEIGHT, seed=1):
    """Ramps with some noise, which leaves no codec much to guess."""
    dice = random.Random(seed)
    picture = Image.new("RGBA", (width, height))
    picture.putdata([((x * 6 + dice.randrange(24)) & 255, (y * 8) & 255, (x * y) & 255,
                      255 if (x + y) % 3 else (x * 9) & 255)
                     for y in range(height) for x in range(width)])
    if mode == "RGBA":
        return picture
    opaque = picture.convert("RGB")
    if mode == "P":
        return opaque.quantize(16)
    if mode == "I;16":
        return Image.frombytes("I;16", (width, height),
                               struct.pack(f"<{width * height}H",
                                           *(v * 257 for v in opaque.convert("L").getdata())))
    return opaque.convert(mode)


def saved(picture, kind, **options):
    target = io.BytesIO()
    picture.save(target, kind, **options)
    return target.getvalue()


def bmp(bits, compression, data, width, height, colours=()):
    palette = b"".join(struct.pack("<BBBx", *colour) for colour in colours)
    offset = 54 + len(palette)
    return (b"BM" + struct.pack("<IHHI", offset + len(data), 0, 0, offset)
            + struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, compression, len(data), 2835,
                          2835, len(colours), 0) + palette + data)


COLOURS = [(16 * n, 255 - 16 * n, 40 + 8 * n) for n in range(16)]


def rle8():
    rows = b"".join(bytes([20, y % 16, 3, 7, 0, 5, 1, 2, 3, 4, 5, 0, 9, (y + 3) % 16, 0, 0])
                    for y in range(HEIGHT))
    return bmp(8, 1, rows + b"\0\1", WIDTH, HEIGHT, COLOURS)


def rle4():
    rows = b"".join(bytes([30, (y % 16) * 16 + 5, 0, 4, 0x12, 0x34, 3, 0x66, 0, 0])
                    for y in range(HEIGHT))
    return bmp(4, 2, rows + b"\0\1", WIDTH, HEIGHT, COLOURS)


def tiff(fields, blocks):
    """A little-endian TIFF of the given tags, each (tag, type, values), with its blocks behind."""
    sizes = {3: 2, 4: 4}
    fields = sorted(fields)
    directory = 8 + 2 + 12 * len(fields) + 4
    extra, entries, at = b"", b"", directory
    for tag, kind, values in fields:
        packed = struct.pack(f"<{len(values)}{'H' if kind == 3 else 'I'}", *values)
        if len(packed) > 4:
            entries += struct.pack("<HHII", tag, kind, len(values), at + len(extra))
            extra += packed
        else:
            entries += struct.pack("<HHI", tag, kind, len(values)) + packed.ljust(4, b"\0")
    assert all(kind in sizes for _, kind, _ in fields)
    return (b"II*\0" + struct.pack("<I", 8) + struct.pack("<H", len(fields)) + entries
            + b"\0\0\0\0" + extra + b"".join(blocks))


def tiled_tiff():
    """RGB in tiles of 16 x 16, uncompressed."""
    picture = noisy("RGB")
    tiles = [picture.crop((x, y, x + 16, y + 16)).tobytes()
             for y in range(0, HEIGHT, 16) for x in range(0, WIDTH, 16)]

    def fields(start):
        offsets = [start + 768 * n for n in range(len(tiles))]
        return [(256, 4, [WIDTH]), (257, 4, [HEIGHT]), (258, 3, [8, 8, 8]), (259, 3, [1]),
                (262, 3, [2]), (277, 3, [3]), (284, 3, [1]), (322, 4, [16]), (323, 4, [16]),
                (324, 4, offsets), (325, 4, [768] * len(tiles))]

    return tiff(fields(len(tiff(fields(0), []))), tiles)


def float_tiff():
    data = struct.pack("<16f", *(n / 16 for n in range(16)))
    head = [(256, 4, [4]), (257, 4, [4]), (258, 3, [32]), (259, 3, [1]), (262, 3, [1]),
            (277, 3, [1]), (278, 4, [4]), (279, 4, [64]), (339, 3, [3])]
    start = len(tiff(head + [(273, 4, [0])], []))
    return tiff(head + [(273, 4, [start])], [data])


def big_tiff():
    entries = [(256, 4, 1, 2), (257, 4, 1, 1), (258, 3, 1, 8), (259, 3, 1, 1), (262, 3, 1, 1),
               (273, 16, 1, 16 + 8 + 20 * 8 + 8), (278, 4, 1, 1), (279, 16, 1, 2)]
    return (b"II+\0" + struct.pack("<HHQ", 8, 0, 16) + struct.pack("<Q", len(entries))
            + b"".join(struct.pack("<HHQQ", *entry) for entry in entries) + struct.pack("<Q", 0)
            + b"\x10\x20")


def ascii_netpbm(magic, picture, most):
    values = [v for pixel in picture.getdata() for v in (pixel if most == 255 and magic == "P3"
                                                         else [pixel])]
    head = f"{magic}\n{picture.width} {picture.height}\n" + (f"{most}\n" if magic != "P1" else "")
    return (head + "\n".join(map(str, values)) + "\n").encode()


def sound_pictures():
    """Name to bytes; the name's ending tells the format."""
    frames = [noisy("P", seed=n) for n in range(3)]
    bits = Image.new("L", (WIDTH, HEIGHT))
    bits.putdata([(x * y) & 1 for y in range(HEIGHT) for x in range(WIDTH)])
    return {
        "rgb.png": saved(noisy("RGB"), "PNG"), "rgba.png": saved(noisy("RGBA"), "PNG"),
        "palette.png": saved(noisy("P"), "PNG"), "grey.png": saved(noisy("L"), "PNG"),
        "deep.png": saved(noisy("I;16"), "PNG"), "bits.png": saved(noisy("1"), "PNG"),
        "rgb.jpg": saved(noisy("RGB"), "JPEG", quality=90),
        "progressive.jpg": saved(noisy("RGB"), "JPEG", progressive=True),
        "grey.jpg": saved(noisy("L"), "JPEG"),
        "lossless.webp": saved(noisy("RGBA"), "WEBP", lossless=True),
        "lossy.webp": saved(noisy("RGB"), "WEBP", quality=80),
        "alpha.webp": saved(noisy("RGBA"), "WEBP", quality=80),
        "moving.webp": saved(frames[0].convert("RGB"), "WEBP", save_all=True,
                             append_images=[f.convert("RGB") for f in frames[1:]]),
        "rgb.bmp": saved(noisy("RGB"), "BMP"), "palette.bmp": saved(noisy("P"), "BMP"),
        "grey.bmp": saved(noisy("L"), "BMP"), "bits.bmp": saved(noisy("1"), "BMP"),
        "rle8.bmp": rle8(), "rle4.bmp": rle4(),
        "still.gif": saved(noisy("P"), "GIF"),
        "interlaced.gif": saved(noisy("P"), "GIF", interlace=1),
        "moving.gif": saved(frames[0], "GIF", save_all=True, append_images=frames[1:]),
        "raw.tiff": saved(noisy("RGB"), "TIFF"),
        "lzw.tiff": saved(noisy("RGB"), "TIFF", compression="tiff_lzw"),
        "deflate.tiff": saved(noisy("RGBA"), "TIFF", compression="tiff_adobe_deflate"),
        "packbits.tiff": saved(noisy("L"), "TIFF", compression="packbits"),
        "jpeg.tiff": saved(noisy("RGB"), "TIFF", compression="jpeg"),
        "palette.tiff": saved(noisy("P"), "TIFF"), "bits.tiff": saved(noisy("1"), "TIFF"),
        "tiled.tiff": tiled_tiff(),
        "six.ppm": saved(noisy("RGB"), "PPM"), "five.ppm": saved(noisy("L"), "PPM"),
        "four.ppm": saved(noisy("1"), "PPM"),
        "three.ppm": ascii_netpbm("P3", noisy("RGB"), 255),
        "two.ppm": ascii_netpbm("P2", noisy("L"), 255), "one.ppm": ascii_netpbm("P1", bits, 1),
        "icon.ico": saved(noisy("RGBA", 32, 32), "ICO", sizes=[(32, 32)], bitmap_format="bmp"),
        "png.ico": saved(noisy("RGBA", 32, 32), "ICO", sizes=[(32, 32)]),
    }


def truncated(name, data):
    """Cuts that lose pixels for certain."""
    for part in (0.3, 0.55, 0.8):
        yield f"cut{int(part * 100)}-{name}", data[:int(len(data) * part)]
    # The last byte of an ASCII file is white space, that of run lengths closes a whole picture, and
    # a TIFF's directory may stand last.
    if not name.endswith((".ppm", ".tiff", "rle8.bmp", "rle4.bmp")):
        yield f"cut1-{name}", data[:-1]


def garbled(name, data, count=6):
    """Wrong bytes anywhere, and a hole of zeros."""
    dice = random.Random(name)
    for number in range(count):
        changed = bytearray(data)
        for _ in range(1 + number % 3):
            changed[dice.randrange(4, len(data))] ^= 1 << dice.randrange(8)
        yield f"bits{number}-{name}", bytes(changed)
    hole = dice.randrange(len(data) // 3, len(data) // 2)
    changed = bytearray(data)
    changed[hole:hole + 24] = bytes(24)
    yield f"hole-{name}", bytes(changed)


def hostile_bitmaps():
    """BMPs whose headers and run lengths promise what does not come."""
    whole = saved(noisy("RGB"), "BMP")
    yield "offset-end.bmp", whole[:10] + struct.pack("<I", len(whole) - 40) + whole[14:]
    yield "offset-past.bmp", whole[:10] + struct.pack("<I", len(whole) + 999) + whole[14:]
    yield "offset-header.bmp", whole[:10] + struct.pack("<I", 20) + whole[14:]
    yield "rows.bmp", whole[:22] + struct.pack("<i", 900) + whole[26:]
    yield "rle8-stops.bmp", bmp(8, 1, b"\x20\x01\0\0\0\1", WIDTH, HEIGHT, COLOURS)
    yield "rle8-empty.bmp", bmp(8, 1, b"\0\1", WIDTH, HEIGHT, COLOURS)
    yield "rle4-stops.bmp", bmp(4, 2, b"\x20\x11\0\0", WIDTH, HEIGHT, COLOURS)
    yield "rle8-literal.bmp", bmp(8, 1, b"\0\xf0\1\2\3", WIDTH, HEIGHT, COLOURS)


def gif(codes, width=2, height=2, tail=b"\0\x3b", root=2):
    return (b"GIF89a" + struct.pack("<HHBBB", width, height, 0x81, 0, 0) + bytes(range(12))
            + b"\x2c" + struct.pack("<HHHHB", 0, 0, width, height, 0) + bytes([root, len(codes)])
            + codes + tail)


def hostile_gifs():
    """GIFs whose codes or blocks are broken."""
    yield "few-codes.gif", gif(b"\x2c")             # clear, then an end after one pixel
    yield "unknown-code.gif", gif(b"\x7c\x00\x00")  # a code that no string has
    yield "no-trailer.gif", gif(b"\x84\x51", tail=b"\0")
    yield "no-frame.gif", b"GIF89a" + struct.pack("<HHBBB", 2, 2, 0x81, 0, 0) + bytes(12) + b"\x3b"
    yield "no-codes.gif", gif(b"")
    yield "root.gif", gif(b"\x84\x51", root=13)


def webp_canvas():
    """A frame of 61 x 47 on the largest canvas."""
    def size(number):
        return struct.pack("<I", number)[:3]

    frame = saved(noisy("RGB", 61, 47), "WEBP", lossless=True)[12:]
    chunk = size(0) * 2 + size(60) + size(46) + size(0) + b"\0" + frame
    body = (b"VP8X" + struct.pack("<I", 10) + b"\x02\0\0\0" + size(16382) * 2
            + b"ANIM" + struct.pack("<IIH", 6, 0, 0) + b"ANMF" + struct.pack("<I", len(chunk)) + chunk)
    return b"RIFF" + struct.pack("<I", len(body) + 4) + b"WEBP" + body


def giants():
    """Small files that claim more pixels than can be held."""
    rows = b"\0\2\0\xff" * 64
    yield "canvas.webp", webp_canvas()
    yield "runs.bmp", bmp(8, 1, rows + b"\0\1", 16000, 16000, COLOURS)
    yield "screen.gif", gif(b"\x84\x51", 65000, 65000)
    yield "long.ppm", b"P6 30000 30000 255\n"
    yield "tall.tiff", tiff([(256, 4, [20000]), (257, 4, [60000]), (258, 3, [8]), (259, 3, [1]),
                             (262, 3, [1]), (273, 4, [8]), (277, 3, [1]), (278, 4, [60000]),
                             (279, 4, [64])], [])
    jpeg = bytearray(saved(noisy("RGB"), "JPEG"))
    place = jpeg.index(b"\xff\xc0") + 5
    jpeg[place:place + 4] = struct.pack(">HH", 65000, 65000)
    yield "wide.jpg", bytes(jpeg)
