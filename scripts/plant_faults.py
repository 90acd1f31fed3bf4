#!/usr/bin/env python3
"""Plants the faults of scripts/faults.txt one at a time and tells which tests catch each.

  scripts/plant_faults.sh [WORD...]     only the faults whose name or file contains one of the words
  scripts/plant_faults.sh --check      only see that every fault still fits its file

Works on a copy of the last commit under build/faults, so that the tree is never touched. Ends with
1 when a fault is missed, no longer fits its file, or does not build.
"""
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build/faults/tree"
BUILD = ROOT / "build/faults/build"
KEYS = ("fault", "file", "tests", "old", "new")


def readfaults():
    faults = []
    for number, line in enumerate((ROOT / "scripts/faults.txt").read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        key, _, value = line.partition(": ")
        if key not in KEYS:
            sys.exit(f"faults.txt:{number}: no such key: {key}")
        if key == "fault":
            faults.append({})
        faults[-1][key] = value
    for fault in faults:
        fault.setdefault("new", "")
        missing = [key for key in KEYS if key not in fault]
        if missing:
            sys.exit(f"{fault['fault']}: lacks {', '.join(missing)}")
    return faults


def fits(fault, folder):
    path = folder / fault["file"]
    return path.is_file() and path.read_text().count(fault["old"]) == 1


def run(command, **kwargs):
    return subprocess.run(command, capture_output=True, text=True, check=False, **kwargs)


def prepare():
    COPY.mkdir(parents=True, exist_ok=True)
    archive = subprocess.run(["git", "-C", ROOT, "archive", "HEAD"], capture_output=True, check=True)
    subprocess.run(["tar", "-x", "-C", COPY], input=archive.stdout, check=True)
    if not (BUILD / "build.ninja").exists():
        command = ["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                   "-DCMAKE_CXX_FLAGS=-O1", "-DVELMORA_BENCHMARKS=OFF", *os.environ.get(
                       "VELMORA_FAULTS_CMAKE", "").split()]
        if run(command).returncode != 0:
            sys.exit("the copy does not configure")


def build(targets):
    return run(["cmake", "--build", BUILD, "--parallel", str(os.cpu_count()), "--target", *targets])


def catches(test):
    """Names of the test cases that fail; the program's own end when it dies or hangs."""
    environment = dict(os.environ, VELMORA_SOURCE_DIR=str(COPY), QT_QPA_PLATFORM="offscreen")
    try:
        result = run([BUILD / "bin" / test, "--gtest_brief=1"], env=environment, timeout=300)
    except subprocess.TimeoutExpired:
        return ["hangs"]
    failed = re.findall(r"^\[  FAILED  \] (\S+?)(?:,.*)? \(", result.stdout, re.M)
    if not failed and result.returncode != 0:
        failed = [f"ends with {result.returncode}"]
    return failed


def plant(fault):
    path = COPY / fault["file"]
    whole = path.read_text()
    path.write_text(whole.replace(fault["old"], fault["new"]))
    tests = fault["tests"].split()
    try:
        built = build(tests)
        if built.returncode != 0:
            return None, built.stdout[-2000:]
        return [f"{test}: {name}" for test in tests for name in catches(test)], ""
    finally:
        path.write_text(whole)


def main():
    words = [word for word in sys.argv[1:] if word != "--check"]
    faults = [f for f in readfaults()
              if not words or any(w in f["fault"] or w in f["file"] for w in words)]
    unfit = [fault for fault in faults if not fits(fault, ROOT)]
    for fault in unfit:
        print(f"NO LONGER FITS  {fault['fault']}  ({fault['file']})")
    if "--check" in sys.argv[1:] or unfit:
        print(f"{len(faults)} faults, {len(unfit)} no longer fit")
        return 1 if unfit else 0
    prepare()
    missed = 0
    for number, fault in enumerate(faults, 1):
        caught, why = plant(fault)
        if caught:
            print(f"{number:3}/{len(faults)} caught  {fault['fault']}: {caught[0]}"
                  + (f" and {len(caught) - 1} more" if len(caught) > 1 else ""), flush=True)
        else:
            missed += 1
            print(f"{number:3}/{len(faults)} " + ("MISSED" if caught is not None else "DOES NOT BUILD")
                  + f"  {fault['fault']}  ({fault['file']})\n{why}", flush=True)
    print(f"{len(faults)} faults, {missed} missed")
    return 1 if missed else 0


sys.exit(main())
