"""Reads C++ sources for the scripts that count them. It knows just enough of the language: comments
and texts are blanked, so that braces and names that remain are code."""
import re
import subprocess

TOKENS = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"([^(\s"]*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.S)


def files(*patterns):
    """Files of the tree that match, as git names them, those not yet added included."""
    out = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", *patterns],
                         check=True, capture_output=True, text=True).stdout
    return sorted(set(out.splitlines()))


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def blanked(text):
    """The text with comments, texts and preprocessor lines as blanks; each line keeps its place."""
    def blank(match):
        token = match.group(0)
        # A single quote may part the digits of a number.
        if token[0] == "'" and re.search(r"[0-9A-Fa-f]$", text[:match.start()][-1:]) and len(token) > 4:
            return token
        return re.sub(r"[^\n]", " ", token)
    text = TOKENS.sub(blank, text)
    return re.sub(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", lambda m: re.sub(r"[^\n]", " ", m.group(0)), text,
                  flags=re.M)


def percentile(values, share):
    """The least value that at least this share of the values does not exceed."""
    ordered = sorted(values)
    return ordered[max(0, -(-len(ordered) * share // 100) - 1)] if ordered else 0
