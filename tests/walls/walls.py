#!/usr/bin/env python3
"""Tries includes that a floor may not see, and one that it may, with the compiler's real command line.

Usage: walls.py COMPILE_COMMANDS SOURCES

For each floor the command of one of its sources is taken from the build's list, and run on a text of one
include instead, for its syntax only. A forbidden include must fail as a file that is not there, an
allowed one must compile: so a command that is broken in itself does not pass.
"""
import json
import os
import shlex
import subprocess
import sys
import tempfile

# source of the floor: (allowed include, forbidden includes)
FLOORS = {
    "src/engine/draw/fastdraw.cpp": ('"engine/draw/fastdraw.h"', ['"base/numbers.h"', '"terrain/mapgrid.h"']),
    "src/base/numbers.cpp": ('"base/numbers.h"', ['"coordinates/mgrs.h"', '"base/paint/colour.h"',
                                                  "<QString>"]),
    "src/coordinates/mgrs.cpp": ('"base/numbers.h"', ['"engine/itm/lr.h"', '"terrain/mapgrid.h"',
                                                      '"coordinates/windows/frmDMS.h"']),
    "src/terrain/mapgrid.cpp": ('"coordinates/mgrs.h"', ['"network/tables.h"', "<QString>"]),
    "src/network/netfile.cpp": ('"terrain/mapgrid.h"', ['"engine/itm/lr.h"', '"radio/evaluate.h"',
                                                        '"network/windows/lists.h"']),
    "src/radio/link.cpp": ('"engine/itm/lr.h"', ['"coordinates/mgrs.h"', '"radio/paint/profilescale.h"',
                                                 '"pictures/picture.h"']),
    "src/pictures/sidecar.cpp": ('"terrain/mapgrid.h"', ['"pictures/paint/surface.h"', '"radio/link.h"',
                                                         "<QImage>"]),
    "src/coverage/radiosweep.cpp": ('"radio/evaluate.h"', ['"pictures/picture.h"',
                                                           '"coverage/paint/coveragepicture.h"']),
    "src/pictures/paint/surface.cpp": ('"pictures/picture.h"', ['"netoverlay/paint/overlay.h"',
                                                                '"relief/paint/drawmap.h"', "<QWidget>"]),
    "src/relief/paint/drawmap.cpp": ('"pictures/paint/openpictures.h"', ['"netoverlay/paint/overlay.h"',
                                                                         '"relief/windows/frmColors.h"']),
    "src/pictures/windows/frmPic.cpp": ('"pictures/paint/surface.h"', ['"netoverlay/paint/overlay.h"',
                                                                       '"radio/windows/frmLink.h"']),
    "src/radio/windows/frmLink.cpp": ('"radio/paint/profilescale.h"', ['"pictures/paint/openpictures.h"',
                                                                       '"coverage/windows/frmVisual.h"',
                                                                       '"app/windows/frmMain.h"']),
}


def command(entry, file):
    """The command of an entry of the list, on another file and for its syntax only."""
    words = shlex.split(entry["command"])
    if os.path.basename(words[0]) == "ccache":
        del words[0]
    at = words.index("-o")
    del words[at:at + 2]
    return [file if word == entry["file"] else word for word in words if word != "-c"] + ["-fsyntax-only"]


def compiles(entry, include, folder):
    file = os.path.join(folder, "one.cpp")
    with open(file, "w", encoding="ascii") as out:
        out.write(f"#include {include}\n")
    run = subprocess.run(command(entry, file), cwd=entry["directory"], capture_output=True, text=True,
                         env={**os.environ, "LC_ALL": "C"})
    return run.returncode == 0, run.stderr


def exists(include, sources):
    """Whether one of our own headers is there at all: a forbidden one must be."""
    return include.startswith("<") or os.path.exists(os.path.join(sources, "src", include.strip('"')))


def check(entry, allowed, forbidden, sources, folder):
    """What is wrong with a floor, a line each."""
    wrong = [f"{include} is no header" for include in [allowed, *forbidden] if not exists(include, sources)]
    good, said = compiles(entry, allowed, folder)
    if not good:
        wrong.append(f"{allowed} should compile:\n{said}")
    for include in forbidden:
        good, said = compiles(entry, include, folder)
        if good:
            wrong.append(f"{include} compiles")
        elif "No such file" not in said and "file not found" not in said:
            wrong.append(f"{include} fails for another reason:\n{said}")
    return wrong


def main():
    database, sources = sys.argv[1:]
    with open(database, encoding="utf-8") as file:
        entries = {os.path.relpath(entry["file"], sources): entry for entry in json.load(file)}
    failed, tried = False, 0
    with tempfile.TemporaryDirectory() as folder:
        for source, (allowed, forbidden) in FLOORS.items():
            if source not in entries and ("/paint/" in source or "/windows/" in source):
                continue  # built without windows
            tried += len(forbidden)
            for wrong in check(entries[source], allowed, forbidden, sources, folder):
                failed = True
                print(f"{source}: {wrong}")
    print(f"{tried} forbidden includes tried")
    return failed or tried < 8


if __name__ == "__main__":
    sys.exit(main())
