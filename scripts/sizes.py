#!/usr/bin/env python3
"""Prints how long the files and functions under src/ are, and fails above the bars.

A file's lines are all its lines. A function's lines run from its name's line to the line of its closing
brace; functions are the brace blocks that follow a parameter list outside of any other function
(lambdas count as part of the function they stand in), in headers as well.
"""
import re
import sys

from sources import blanked, files, percentile, read

FILE_P90, FILE_MOST, FUNCTION_P90 = 220, 450, 20
HEAD = re.compile(r"\)\s*(?:const|noexcept|override|final|mutable|&|->\s*[\w:<>*&\s,]+|\s)*"
                  r"(?::\s*[^;{}]*(?:\{[^{}]*\}[^;{}]*)*)?$")


def functions(text):
    """(first line, lines) of each function of blanked code."""
    found, stack, start = [], [], 0  # start: where the code before the next brace begins
    for at, c in enumerate(text):
        if c == "{":
            head = text[start:at]
            inside = any(kind == "function" for kind, _ in stack)
            # A constructor's members set in braces stand between its parameters and its body.
            is_function = not inside and bool(HEAD.search(head)) and "=" not in re.sub(
                r"[=!<>]=|operator\s*\S+|\([^()]*(?:\([^()]*\)[^()]*)*\)", "", head)
            first = start + len(head) - len(head.lstrip())
            member = is_function and re.search(r"[,:]\s*\w+\s*$", head) is not None
            stack.append(("member" if member else "function" if is_function else "other", first))
            if not member:
                start = at + 1
        elif c == "}":
            kind, first = stack.pop() if stack else ("other", at)
            if kind == "function":
                found.append((text.count("\n", 0, first) + 1, text.count("\n", first, at) + 1))
            if kind != "member":
                start = at + 1
        elif c == ";":
            start = at + 1
    return found


def main():
    lines, lengths, long_ones = {}, [], []
    for path in files("src/*.cpp", "src/*.h"):
        text = read(path)
        lines[path] = text.count("\n")
        for line, length in functions(blanked(text)):
            lengths.append(length)
            if length > 60:
                long_ones.append(f"{path}:{line} {length} lines")
    file_p90, function_p90 = percentile(lines.values(), 90), percentile(lengths, 90)
    print(f"{len(lines)} files: lines p90 {file_p90} (at most {FILE_P90}), "
          f"longest {max(lines.values())} (at most {FILE_MOST})")
    print(f"{len(lengths)} functions: lines p90 {function_p90} (at most {FUNCTION_P90}), "
          f"longest {max(lengths)}")
    if "-v" in sys.argv:
        print("\n".join(long_ones))
    for path, count in lines.items():
        if count > FILE_MOST:
            print(f"{path}: {count} lines", file=sys.stderr)
    return not (file_p90 <= FILE_P90 and max(lines.values()) <= FILE_MOST and function_p90 <= FUNCTION_P90)


if __name__ == "__main__":
    sys.exit(main())
