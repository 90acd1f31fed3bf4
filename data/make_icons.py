#!/usr/bin/python3
"""Renders icon/src/*.svg to icon/*.ico: the drawing in white on a coloured pin with a light rim.

A source is a drawing in a box of 24 x 24; its `color` is the pin's. A station's icon stands with the
middle of its lower edge on the station, so the pin's point marks the place. Needs rsvg-convert and
PIL. Usage: make_icons.py [contact-sheet.png]
"""

import re
import struct
import subprocess
import sys
from io import BytesIO
from pathlib import Path

from PIL import Image, ImageDraw

FOLDER = Path(__file__).parent / "icon"
SIZES = (32, 48, 64)  # the first is the one that readers of a single picture take
PIN = (
    "M6.5 1.25h19a4.25 4.25 0 0 1 4.25 4.25v17a4.25 4.25 0 0 1-4.25 4.25h-5.6"
    "L16 31l-3.9-4.25H6.5a4.25 4.25 0 0 1-4.25-4.25v-17A4.25 4.25 0 0 1 6.5 1.25z"
)
SHEET_GROUNDS = ("#1c2733", "#f3f1ea", "#6f9b58", "#b89b6c", "#86aecb")


def framed(source):
    """The drawing on its pin, as one SVG of 32 x 32."""
    colour = re.search(r'color="(#\w+)"', source)[1]
    body = source[source.index(">") + 1 : source.rindex("</svg>")]
    return f"""<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<path d="{PIN}" fill="none" stroke="#000" stroke-opacity=".35" stroke-width="2.5"/>
<path d="{PIN}" fill="{colour}" stroke="#fff" stroke-width="1.5"/>
<svg x="6.5" y="4.5" width="19" height="19" viewBox="0 0 24 24" color="{colour}" fill="#fff">
{body}</svg></svg>"""


def rendered(svg, size):
    command = ["rsvg-convert", "-w", str(size), "-h", str(size)]
    png = subprocess.run(command, input=svg.encode(), capture_output=True, check=True).stdout
    return Image.open(BytesIO(png)).convert("RGBA")


def bitmap(image):
    """A 32-bit bitmap as icon files hold it: rows from the bottom, then an empty mask."""
    size = image.width
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    rows = image.transpose(Image.FLIP_TOP_BOTTOM).tobytes("raw", "BGRA")
    return header + rows + bytes((size + 31) // 32 * 4 * size)


def portable(image):
    buffer = BytesIO()
    image.save(buffer, "PNG", optimize=True)
    return buffer.getvalue()


def icon(images):
    """The icon file: the first picture as a bitmap, which every reader knows, the others as PNG."""
    blocks = [bitmap(images[0])] + [portable(image) for image in images[1:]]
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for image, block in zip(images, blocks):
        size = image.width
        directory += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(block), offset)
        offset += len(block)
    return directory + b"".join(blocks)


def contactsheet(icons, path):
    columns = 10
    rows = (len(icons) + columns - 1) // columns
    width, height = columns * 76, rows * 76
    sheet = Image.new("RGB", (width, height * len(SHEET_GROUNDS)))
    draw = ImageDraw.Draw(sheet)
    for band, ground in enumerate(SHEET_GROUNDS):
        draw.rectangle((0, band * height, width, (band + 1) * height), fill=ground)
        for number, images in enumerate(icons):
            x, y = number % columns * 76, band * height + number // columns * 76
            sheet.paste(images[0], (x + 2, y + 38), images[0])
            sheet.paste(images[1], (x + 28, y + 6), images[1])
    sheet.save(path)


def main():
    icons = []
    for path in sorted((FOLDER / "src").glob("*.svg")):
        svg = framed(path.read_text())
        images = [rendered(svg, size) for size in SIZES]
        (FOLDER / f"{path.stem}.ico").write_bytes(icon(images))
        icons.append(images)
    if len(sys.argv) > 1:
        contactsheet(icons, sys.argv[1])


if __name__ == "__main__":
    main()
