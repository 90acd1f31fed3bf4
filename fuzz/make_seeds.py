#!/usr/bin/env python3
"""Writes the seeds of the readers of networks, their recovery copies, maps and geodetic systems:
fuzz/seeds/."""

import pathlib
import struct

SEEDS = pathlib.Path(__file__).parent / "seeds"


def write(entry, name, content):
    folder = SEEDS / entry
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(content)


def text(value):
    encoded = value.encode("cp1252")
    return struct.pack("<h", len(encoded)) + encoded


def records():
    """Fifty stations, 25 systems and 25 nets, as both formats of networks hold them."""
    units = b"".join(
        struct.pack("<3f2h2i", -84 + i / 50, 36 + i / 70, 300, -1, 0, 0xFFFFFF, 0)
        + f"Station {i:02}".encode().ljust(20)
        for i in range(1, 51))
    systems = b"".join(
        struct.pack("<5f", 10, -107, 0.5, 2, 2) + f"Système {i:02}".encode("cp1252").ljust(30)
        for i in range(1, 26))
    nets = b"".join(
        bytes([128] * 5 + [0] * 45) + bytes([1] * 50)
        + struct.pack("<2fh3f2h3f2h", 144, 148, 1, 15, 0.005, 301, 5, 3, 50, 50, 50, 0, 256)
        + f"Réseau {i:02}".encode("cp1252").ljust(30)
        for i in range(1, 26))
    return units + systems + nets


def nets():
    coverage = (struct.pack("<5f", 100, 0, 360, 1, 0) + b" " * 20
                + struct.pack("<hfhihi3fi", 0, -107, -1, 0xFFFF, 0, 0, 2, 2, 0, 0))
    heights = struct.pack("<1250f", *[0.0] * 1250) + bytes(50)
    current = struct.pack("<f", 2000) + records() + coverage
    write("net", "pictures.net",
          current + text("c:\\été.map") + text("a.bmp") + text("b.bmp") + text("") + heights)
    plain = current + text("a.map") + text("") + heights
    write("net", "plain.net", plain)
    path = "/où/ça.net".encode()
    write("recovery", "whole.net", plain + path + struct.pack("<I", len(path)) + b"VELMREC1")
    write("recovery", "claims.net", plain + path + struct.pack("<I", 0x7FFFFFFF) + b"VELMREC1")
    write("net", "older.net", text("vieux.map") + records())
    write("net", "map.net", struct.pack("<f", 5000) + bytes(100))


def maps():
    record = struct.pack("<3fh5f2B3fBc", -84, 36, 30, 5, 30, 70, 0, 0, 335, 0, 0, 1, 6, 3, 1, b" ")
    frame = struct.pack("<8fh", -85, -83, -83, -85, 37, 37, 36, 36, 0)
    write("map", "tiny.map",
          struct.pack("<f2i", 5000, 3, 2) + record + frame + struct.pack("<6h", *range(1, 7)))
    write("map", "claims.map", struct.pack("<f2i", 5000, 0x7FFFFFFF, 2) + record + frame)
    write("map", "older.map",
          record + struct.pack("<5f", 1, 2, 3, 4, 5) + text("a") + text("") + text("DTED")
          + struct.pack("<4f", 1.5, -2.5, 1e30, float("nan")))


def positions():
    write("geosys", "line.dat", b'"WGS 1984",6378137,6356752.314,10\r\n')
    write("geosys", "lines.dat", b"Clarke\n6378206.4\n6356583.8\n0\n")
    write("geosys", "flat.dat", b'"",0,0,-32768')
    for name, reference in [("full", "18T XF 17190 39590"), ("short", "18TXF13"),
                            ("odd", "56h lt 3 3 5 7 0 4 7"), ("locator", "JN18DU")]:
        write("mgrs", name, reference.encode())
    write("mgrs", "numbers", struct.pack("<2d", -73.5, 45.5))
    write("mgrs", "singles", struct.pack("<2f", 1e30, -89.5))


nets()
maps()
positions()
