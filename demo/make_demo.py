#!/usr/bin/env python3
"""Makes the demo: a real piece of the Cumberland mountains and a radio plan over it.

    apt-get install python3-numpy python-matplotlib-data
    demo/make_demo.py

Terrain: jacksboro_fault_dem.npz of Debian's python-matplotlib-data, a public-domain elevation grid of
344 x 403 samples, 3 arc seconds apart, north row first. It is resampled by cubic convolution (Keys,
1981) to cells that are square on the ground, in the frame that a map's centre and size give.

The plan (stations, systems, nets) is invented: a civil protection exercise in a mountain valley.
"""

import math
import struct
import sys
from pathlib import Path

import numpy as np

SOURCE = Path("/usr/share/matplotlib/mpl-data/sample_data/jacksboro_fault_dem.npz")
HERE = Path(__file__).resolve().parent
ROWS = 700
SPACING = 3 / 3600
NORTH, WEST = 36.73291667, -84.41375
EARTH_RADIUS_KM = 6367
DEGREE = 0.017453292519943278

# How the map is drawn when it is opened: mode, contrast, brightness, azimuth of the light.
MAP_MODE, MAP_CONTRAST, MAP_BRIGHTNESS, MAP_LIGHT = 2, 30, 70, 335

WHITE, BLACK, YELLOW, NAVY, RED, GREEN = 0xFFFFFF, 0, 0x00FFFF, 0x602000, 0x2020A0, 0x205020

# name, longitude, latitude, label colour, background
STATIONS = [
    ("PC opérationnel", -84.2180, 36.6080, WHITE, RED),
    ("Relais Grande Crête", -84.2554, 36.5238, BLACK, YELLOW),
    ("Hôpital du Lac", -84.1571, 36.5096, WHITE, NAVY),
    ("Caserne Sud", -84.1246, 36.4929, WHITE, RED),
    ("Caserne Nord", -84.1246, 36.6329, WHITE, RED),
    ("Mairie de la Combe", -84.3671, 36.5746, WHITE, NAVY),
    ("Mine du Fond", -84.3438, 36.4688, WHITE, BLACK),
    ("Hélistation Plateau", -84.2029, 36.6813, WHITE, NAVY),
    ("Vigie Est", -84.1763, 36.6971, WHITE, GREEN),
    ("Vigie Ouest", -84.4079, 36.5929, WHITE, GREEN),
    ("Vigie du Sommet", -84.2313, 36.4854, WHITE, GREEN),
    ("Refuge du Col", -84.2729, 36.6263, WHITE, GREEN),
    ("Équipe Rivière", -84.3088, 36.7279, WHITE, BLACK),
    ("Équipe Barrage", -84.1380, 36.5571, WHITE, BLACK),
    ("Poste Vallée Ouest", -84.3913, 36.6838, WHITE, BLACK),
]

# name, power W, threshold dBm, line loss dB, gain dBi, height m
SYSTEMS = [
    ("VHF base 25 W", 25, -113, 1.5, 5, 15),
    ("VHF relais 50 W", 50, -113, 2, 6, 25),
    ("VHF mobile 25 W", 25, -110, 1, 2, 2),
    ("VHF portatif 2 W", 2, -107, 0, -3, 1.5),
    ("UHF données 10 W", 10, -100, 2, 9, 12),
    ("UHF données mât", 10, -100, 2, 12, 25),
    ("Noeud maillé 50 mW", 0.05, -92, 0.5, 3, 6),
]

VOICE, STAR, SWARM = 0, 1, 2
VISIBLE = 256

# Members: station name -> (role, system name)
NETS = [
    dict(
        name="VHF Commandement", kind=VOICE, band=(155.0, 156.0), retransmissions=0,
        members={
            "PC opérationnel": (0, "VHF base 25 W"),
            "Relais Grande Crête": (2, "VHF relais 50 W"),
            "Hôpital du Lac": (1, "VHF base 25 W"),
            "Caserne Sud": (1, "VHF base 25 W"),
            "Caserne Nord": (1, "VHF base 25 W"),
            "Mairie de la Combe": (1, "VHF mobile 25 W"),
            "Mine du Fond": (1, "VHF portatif 2 W"),
            "Équipe Barrage": (1, "VHF portatif 2 W"),
        },
    ),
    dict(
        name="UHF Données", kind=STAR, band=(446.0, 448.0), retransmissions=0,
        members={
            "Hélistation Plateau": (0, "UHF données mât"),
            "Vigie Est": (1, "UHF données 10 W"),
            "Caserne Nord": (1, "UHF données 10 W"),
            "PC opérationnel": (1, "UHF données 10 W"),
            "Équipe Rivière": (1, "UHF données 10 W"),
            "Poste Vallée Ouest": (1, "UHF données 10 W"),
        },
    ),
    dict(
        name="Capteurs maillés", kind=SWARM, band=(869.4, 869.65), retransmissions=4,
        members={
            "Vigie du Sommet": (0, "Noeud maillé 50 mW"),
            "Relais Grande Crête": (0, "Noeud maillé 50 mW"),
            "Refuge du Col": (0, "Noeud maillé 50 mW"),
            "Vigie Ouest": (0, "Noeud maillé 50 mW"),
            "Vigie Est": (0, "Noeud maillé 50 mW"),
        },
    ),
]


def frame(rows, south, north, west, east):
    """Centre, size in km and number of columns of the largest map inside the source."""
    lat = (south + north) / 2
    cell = (north - south) / (rows - 1)
    columns = int((east - west) / (cell / math.cos(lat * DEGREE))) + 1
    return (west + east) / 2, lat, (north - south) * DEGREE * EARTH_RADIUS_KM, columns


def cubic(source, at):
    """Cubic convolution (a = -1/2) along the first axis, at fractional positions."""
    base = np.clip(np.floor(at).astype(int), 0, len(source) - 2)
    t = (at - base)[:, None]
    weights = (
        ((-0.5 * t + 1) * t - 0.5) * t,
        (1.5 * t - 2.5) * t * t + 1,
        ((-1.5 * t + 2) * t + 0.5) * t,
        (0.5 * t - 0.5) * t * t,
    )
    rows = [np.clip(base + k, 0, len(source) - 1) for k in (-1, 0, 1, 2)]
    return sum(w * source[r] for w, r in zip(weights, rows))


class Map:
    """The elevation map: samples with the south row first, and the frame they lie in."""

    def __init__(self, source):
        rows, columns = source.shape
        south, east = NORTH - (rows - 1) * SPACING, WEST + (columns - 1) * SPACING
        self.lon, self.lat, self.size, self.width = frame(ROWS, south, NORTH, WEST, east)
        self.height = ROWS
        latspan = self.size / EARTH_RADIUS_KM / DEGREE
        lonspan = latspan / (ROWS - 1) * (self.width - 1) / math.cos(self.lat * DEGREE)
        self.west, self.east = self.lon - lonspan / 2, self.lon + lonspan / 2
        self.south, self.north = self.lat - latspan / 2, self.lat + latspan / 2
        lats = np.linspace(self.south, self.north, self.height)
        lons = np.linspace(self.west, self.east, self.width)
        heights = cubic(source, (NORTH - lats) / SPACING)
        heights = cubic(heights.T, (lons - WEST) / SPACING).T
        self.samples = np.rint(heights).astype("<i2")

    def height_at(self, lon, lat):
        x = round((lon - self.west) / (self.east - self.west) * (self.width - 1))
        y = round((lat - self.south) / (self.north - self.south) * (self.height - 1))
        return float(self.samples[y, x])

    def write(self, path):
        low, high, mean = (float(f(self.samples)) for f in (np.min, np.max, np.mean))
        record = struct.pack(
            "<3fh5f2B3fBc",
            self.lon, self.lat, self.size,
            MAP_MODE, MAP_CONTRAST, MAP_BRIGHTNESS, low, high, MAP_LIGHT,
            0, 0, low, high, mean, 0, b" ",
        )
        corners = struct.pack(
            "<8fh",
            self.west, self.east, self.east, self.west,
            self.north, self.north, self.south, self.south,
            0,
        )
        head = struct.pack("<f2i", 5000, self.width, self.height)
        path.write_bytes(head + record + corners + self.samples.tobytes())


def text(value, width):
    return value.encode("cp1252").ljust(width)[:width]


def slot(table, name):
    return [row[0] for row in table].index(name) + 1


def station(number, terrain):
    if number > len(STATIONS):
        name = f"Station {number:02d}"
        return struct.pack("<3f2h2i", 0, 0, 0, -1, 0, WHITE, BLACK) + text(name, 20)
    name, lon, lat, fore, back = STATIONS[number - 1]
    place = struct.pack("<3f2h2i", lon, lat, terrain.height_at(lon, lat), -1, 0, fore, back)
    return place + text(name, 20)


def system(number):
    default = (f"Système {number:02d}", 10, -107, 0.5, 2, 2)
    name, *values = SYSTEMS[number - 1] if number <= len(SYSTEMS) else default
    return struct.pack("<5f", *values) + text(name, 30)


def net(number):
    default = dict(name=f"Réseau {number:02d}", kind=VOICE, band=(144.0, 148.0), retransmissions=0,
                   members={})
    plan = NETS[number - 1] if number <= len(NETS) else default
    members, systems = [0] * 50, [1] * 50
    for name, (role, used) in plan["members"].items():
        index = slot(STATIONS, name) - 1
        members[index] = 128 + role
        systems[index] = slot(SYSTEMS, used)
    values = struct.pack("<2fh3fhh3fhh", *plan["band"], 1, 15, 0.005, 301, 5, 3, 50, 50, 50,
                         plan["retransmissions"], VISIBLE + plan["kind"])
    return bytes(members) + bytes(systems) + values + text(plan["name"], 30)


def coverage():
    """The first coverage that anybody tries is a rainbow of signal levels in dBm; the visual one sees
    from a mast."""
    dbm, rainbow, mast = 1, 0, 10
    sweep = struct.pack("<5f", 100, 0, 360, 1, 0) + text("omni.ant", 20)
    return sweep + struct.pack("<hfhihi3fi", dbm, -107, -1, rainbow, 0, 0, mast, 2, 0, YELLOW)


def write_network(path, map_name, terrain):
    name = map_name.encode("cp1252")
    parts = [struct.pack("<f", 2000)]
    parts += [station(i, terrain) for i in range(1, 51)]
    parts += [system(i) for i in range(1, 26)]
    parts += [net(i) for i in range(1, 26)]
    parts += [coverage(), struct.pack("<h", len(name)), name, struct.pack("<h", 0)]
    parts += [struct.pack("<1250f", *[0] * 1250), bytes([255] * 50)]
    path.write_bytes(b"".join(parts))


def main():
    source = Path(sys.argv[1]) if len(sys.argv) > 1 else SOURCE
    terrain = Map(np.load(source)["elevation"].astype(float))
    terrain.write(HERE / "cumberland.map")
    write_network(HERE / "cumberland.net", "cumberland.map", terrain)
    print(f"{terrain.width} x {terrain.height} cells, {terrain.size:.3f} km, "
          f"{terrain.samples.min()} to {terrain.samples.max()} m")


if __name__ == "__main__":
    main()
