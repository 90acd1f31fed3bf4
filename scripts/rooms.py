#!/usr/bin/env python3
"""Prints the groups of rooms that include one another, directly or around a ring, and fails if there
are any.

A room is a folder of src/ with all its floors. An arrow goes from a room to each other room of which one
of its files, on any floor, includes a header. Rooms that can reach one another along arrows are one
group (a strongly connected component).
"""
import re
import sys

from sources import files, read

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.M)


def arrows():
    """room -> room -> (file, included) of the first include found."""
    found = {}
    for path in files("src/*.cpp", "src/*.h"):
        room = path.split("/")[1]
        to = found.setdefault(room, {})
        for included in INCLUDE.findall(read(path)):
            target = included.split("/")[0]
            if target != room:
                to.setdefault(target, (path, included))
    return {room: {to: why for to, why in targets.items() if to in found}
            for room, targets in found.items()}


def reachable(graph, start):
    seen, todo = set(), [start]
    while todo:
        for to in graph[todo.pop()]:
            if to not in seen:
                seen.add(to)
                todo.append(to)
    return seen


def groups(graph):
    """The strongly connected components of more than one room."""
    reach = {room: reachable(graph, room) for room in graph}
    return sorted({tuple(sorted(other for other in reach[room] | {room}
                                if other == room or room in reach[other]))
                   for room in graph if room in reach[room]})


def main():
    graph = arrows()
    rings = groups(graph)
    count = sum(len(targets) for targets in graph.values())
    print(f"{len(graph)} rooms, {count} arrows; rooms that include one another at any depth: "
          f"{sum(map(len, rings))}")
    for ring in rings:
        for room in ring:
            for to, (path, included) in graph[room].items():
                if to in ring:
                    print(f"  {room} -> {to}: {path} includes {included}", file=sys.stderr)
    return bool(rings)


if __name__ == "__main__":
    sys.exit(main())
