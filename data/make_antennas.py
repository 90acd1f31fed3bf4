#!/usr/bin/env python3
"""Makes the antenna patterns that come with the program.

Each file holds 360 numbers, one to a line: the gain in dB relative to the main direction, for
0, 1, ... 359 degrees clockwise from it. Sources of the formulas:

  omni     0 dB all round
  dipole   half-wave dipole lying across the main direction: cos(pi/2 sin t) / cos t
  yagi3    three such dipoles a quarter wave apart, fed as an ordinary end-fire array (phase of the
           travelling wave): sin(N psi/2) / (N sin(psi/2)), psi = k s (cos t - 1)
  yagi9    nine of them 0.3 wave apart under the Hansen-Woodyard condition, psi - pi/N, near which
           long arrays of parasitic elements work
           (arrays: Balanis, Antenna Theory, chapters 4.6, 6.3 and 6.4)
  panel    sector panel of 65 degrees: -min(12 (t/65)^2, 25) dB (3GPP TR 36.814, table A.2.1.1-2)

Real antennas fill their nulls: no value lies below the floor stated here.
"""
import math
import pathlib

FLOOR_DB = -30.0


def dipole(t):
    c = math.cos(t)
    return abs(math.cos(math.pi / 2 * math.sin(t)) / c) if abs(c) > 1e-9 else 0.0


def array(t, elements, spacing, excess):
    def factor(angle):
        psi = 2 * math.pi * spacing * (math.cos(angle) - 1) - excess
        half = math.sin(psi / 2)
        return abs(math.sin(elements * psi / 2) / half) if abs(half) > 1e-12 else elements
    return factor(t) / factor(0)


def decibels(ratio):
    return max(FLOOR_DB, 20 * math.log10(max(ratio, 1e-9)))


def panel(degrees):
    off = min(degrees, 360 - degrees)
    return -min(12 * (off / 65) ** 2, 25)


PATTERNS = {
    "omni": lambda d: 0.0,
    "dipole": lambda d: decibels(dipole(math.radians(d))),
    "yagi3": lambda d: decibels(dipole(math.radians(d)) * array(math.radians(d), 3, 0.25, 0)),
    "yagi9": lambda d: decibels(
        dipole(math.radians(d)) * array(math.radians(d), 9, 0.3, math.pi / 9)),
    "panel": panel,
}

for name, gain in PATTERNS.items():
    values = [gain(d) for d in range(360)]
    text = "".join(f"{value + 0.0:.2f}\n".replace("-0.00", "0.00") for value in values)
    (pathlib.Path(__file__).parent / f"{name}.ant").write_text(text)
