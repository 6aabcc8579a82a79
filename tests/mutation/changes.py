"""The small changes that are tried: one place of one line of the product at a time."""

import re

# Each: what is looked for in a line, and what takes its place.
OPERATORS = [
    (r" == ", " != "), (r" != ", " == "), (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r" && ", " || "), (r" \|\| ", " && "), (r"\(!", "("), (r" \+ 1\b", " + 2"), (r" \+ 1\b", ""), (r" - 1\b", ""),
    (r" \+ ", " - "), (r"\+\+", "--"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"\b0\b", "1"),
    (r"\b([1-9]\d*)\b", lambda m: str(int(m.group(1)) + 1)),
    (r'L"([^"\\]+)"', r'L"\1~"'),
    # Swapped arguments; those of min and max may stand in any order.
    (r"(?<!min)(?<!max)(?<!>)\((\w+), (\w+)\)", r"(\2, \1)"),
    (r"^(\s+)(?!.*\breserve\()[\w.>:-]+\([^;{}]*\);$", r"\1;"),   # dropped call; room can be made later, too
    (r"^(\s+)if \(.*\) (return|continue|break)[^;]*;$", r"\1;"),  # dropped early way out
    (r"\breturn (?!false|nullptr|FALSE|0)(\w+);", r"return {};"),
]
NOT_CODE = re.compile(r"^\s*(//|#|using |namespace |\}|static_assert|template|class |struct |public:|private:|"
                      r"(\{[-0-9A-Fx, ]+\},?\s*)+$)")  # the last: tables of code points


# Lines whose zeros nobody looks at: what fills a buffer before the system writes into it, and the place or size that
# SetWindowPos is told to leave as it is.
LINES_WITH_UNUSED = re.compile(r"std::w?string \w+\(.*, L?'\\0'\)|SetWindowPos\(.* SWP_NO(MOVE|SIZE)\b")
# Calls whose last argument is a zero that the message has no use for.
CALLS_WITH_UNUSED = re.compile(r"\b(WM_(GETFONT|SETREDRAW|SYSCOLORCHANGE)|CB_(ADDSTRING|GETDROPPED\w+)|LB_ADDSTRING|"
                               r"LVM_(SETSELECTIONMARK|SUBITEMHITTEST)|EM_GETSEL|UDM_SETPOS32)[^;]*, 0$")


def is_unused(code, match):
    return match.group() == "0" and (LINES_WITH_UNUSED.search(code) or CALLS_WITH_UNUSED.search(code[: match.end()]))


class Change:
    """One line of a file as it is and as it is to be."""

    def __init__(self, path, number, before, after):
        self.path, self.number, self.before, self.after = path, number, before, after

    def write_into(self, folder):
        """Changes the file in that folder; returns what it was."""
        file = folder / self.path
        original = file.read_text(encoding="utf-8")
        lines = original.splitlines()
        lines[self.number] = self.after
        file.write_text("\n".join(lines) + "\n", encoding="utf-8")
        return original

    def __str__(self):
        return f"{self.path}:{self.number + 1}\n  - {self.before.strip()}\n  + {self.after.strip()}\n"


def changes_of(folder, path):
    """Every change of a file, whose path is relative to that folder."""
    for number, line in enumerate((folder / path).read_text(encoding="utf-8").splitlines()):
        if NOT_CODE.match(line):
            continue
        code = line.split("//")[0].rstrip()
        tried = {code}
        for pattern, replacement in OPERATORS:
            for match in re.finditer(pattern, code):
                new = replacement(match) if callable(replacement) else match.expand(replacement)
                changed = code[: match.start()] + new + code[match.end():]
                if changed not in tried and not is_unused(code, match):
                    tried.add(changed)
                    yield Change(path, number, line, changed)
