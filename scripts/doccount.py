#!/usr/bin/env python3
"""Prints which share of the public procedures has a header block, and fails below 90 %.

Counted are the free functions and the public methods that the headers under src/ declare or define;
not counted are constructors, destructors, operators, what overrides a documented method, and what a
header keeps to itself (a namespace `detail`). One is documented if a `///` block stands right above it,
a `///<` on its line, or if it stands without a blank line below one that is documented: a group has one
block, and so has a record with the procedure right below it that returns it.
"""
import re
import sys

from sources import blanked, files, read

BAR = 90
SCOPE = re.compile(r"\b(namespace|class|struct|union|enum|extern)\b")
NAME = re.compile(r"([~\w]+)\s*\($")


def plain(statement):
    """A statement without its template brackets' contents and its attributes."""
    statement = re.sub(r"\[\[.*?\]\]", " ", statement, flags=re.S)
    while True:
        shorter = re.sub(r"<[^<>;{}]*>", " ", statement)
        if shorter == statement:
            return " ".join(statement.split())
        statement = shorter


def procedure(statement, scope):
    """The name that a statement declares as a procedure, or None."""
    text = plain(re.sub(r"\b(?:public|private|protected|signals|public slots)\s*:", " ", statement))
    match = re.search(r"([~\w]+)\s*\(", text)
    if not match or re.match(r"(using|typedef|friend|static_assert|Q_\w+|return)\b", text):
        return None
    name, before = match.group(1), text[:match.start()]
    if "=" in before or "operator" in before or name in (scope, "operator", "decltype") or name[0] == "~":
        return None
    if not before.strip() or re.search(r"\boverride\b|=\s*(default|delete)\s*$", text):
        return None
    return name


class Header:
    def __init__(self, path):
        self.path, raw = path, read(path)
        self.lines, self.code = raw.split("\n"), blanked(raw)
        self.found = []  # (line, name, documented)
        self.last = (0, False)  # last line of the declaration before, and whether it is documented
        self.walk()

    def documented(self, first, last):
        above = self.lines[first - 2].strip() if first > 1 else ""
        grouped = self.last[0] == first - 1 and self.last[1]
        return above.startswith("///") or grouped or any(
            "///<" in line for line in self.lines[first - 1:last])

    def take(self, start, end, scope):
        """A statement of a scope that is looked at."""
        text = self.code[start:end]
        text = re.sub(r"^(?:\s|public\s*:|private\s*:|protected\s*:|signals\s*:|public slots\s*:)+", "", text)
        first = self.code.count("\n", 0, end - len(text)) + 1
        last = self.code.count("\n", 0, end) + 1
        documented = self.documented(first, last)
        name = procedure(text, scope)
        if name:
            self.found.append((first, name, documented))
        self.last = (last, documented)

    def walk(self):
        stack, start = [("namespace", "", True)], 0  # kind, name, public
        documented_records = []
        for at, c in enumerate(self.code):
            kind, name, public = stack[-1]
            if c not in "{};":
                if c == ":" and kind in ("class", "struct"):
                    access = re.search(r"\b(public|private|protected|signals)(?: slots)?\s*$",
                                       self.code[start:at])
                    if access:
                        stack[-1] = (kind, name, access.group(1) in ("public", "signals"))
                continue
            head = self.code[start:at]
            looked_at = public and kind != "other"
            if c == "{":
                stack.append(self.scope(head, looked_at))
                if stack[-1][0] == "class":
                    self.take(start, at, name)
                    documented_records.append(self.last[1])
                if stack[-1][0] == "other" and looked_at and procedure(head, name):
                    self.take(start, at, name)
            elif c == "}":
                closed = stack.pop() if len(stack) > 1 else stack[-1]
                if closed[0] == "class" and documented_records:
                    self.last = (self.code.count("\n", 0, at) + 1, documented_records.pop())
                elif closed[0] == "other" and self.last[0]:
                    self.last = (self.code.count("\n", 0, at) + 1, self.last[1])
            elif looked_at and head.strip():
                self.take(start, at, name)
            start = at + 1

    @staticmethod
    def scope(head, looked_at):
        text = plain(head)
        match = re.search(r"\b(namespace|class|struct|union)\b\s*(?:final\s+)?([\w:]*)", text)
        if not looked_at or not match or re.search(r"\w\s*\(", text) or "enum" in text:
            return ("namespace", "", True) if looked_at and text.startswith("extern") else ("other", "", False)
        kind, name = match.groups()
        return ("namespace" if kind == "namespace" else "class", name.split("::")[-1],
                kind != "class" and name != "detail")


def main():
    found = [(path, *one) for path in files("src/*.h") for one in Header(path).found]
    bare = [(path, line, name) for path, line, name, documented in found if not documented]
    share = 100 * (len(found) - len(bare)) / max(1, len(found))
    print(f"{len(found)} public procedures, {share:.1f} % with a header block (at least {BAR} %)")
    if "-v" in sys.argv or share < BAR:
        for path, line, name in bare:
            print(f"  {path}:{line} {name}")
    return share < BAR


if __name__ == "__main__":
    sys.exit(main())
