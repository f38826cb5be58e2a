"""Finds the ways to break a C++ source one line at a time.

It knows our own style, as clang-format leaves it, and no more of C++ than it needs: comments and texts are
masked, and blanks around an operator tell it from a template or a reference.
"""

import random
import re
from dataclasses import dataclass

RAW_TEXT = r'R"\(.*?\)"'
TEXT = r'"(?:\\.|[^"\\\n])*"'
CHARACTER = r"'(?:\\.|[^'\\\n])'"
COMMENT = r"//[^\n]*|/\*.*?\*/"
LITERALS = re.compile(
    f"(?P<comment>{COMMENT})|(?P<raw>{RAW_TEXT})|(?P<text>{TEXT})|(?P<character>{CHARACTER})", re.DOTALL
)

OPPOSITES = {"==": "!=", "!=": "==", "<": ">=", ">=": "<", ">": "<=", "<=": ">"}
NEIGHBOURS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "%", "%": "/", "+=": "-=", "-=": "+="}
NUMBERS = {'"0"': '"1"', '"1"': '"0"', '"-1"': '"0"'}

# What a statement begins with that is no plain statement: its removal would not compile, or is another kind.
NO_STATEMENT = re.compile(
    r"(const|static|constexpr|using|return|class|inline|Q_\w+)\b|case |default:"
    r"|(?!emit )[\w:]+(<.*>)? [*&]?\w+(;|\(|\{| =)"  # a declaration
    r"|[-+*/%&|<>=?:.,)}\]\x01]"  # the rest of a statement
)


@dataclass(frozen=True)
class Mutant:
    file: str
    number: int  # of the line, from 1
    kind: str
    original: str
    broken: str


def masked(source):
    """The source with blanks for comments and \\x01 for what stands in texts, each character in its place."""

    def blank(match):
        character = " " if match.lastgroup == "comment" else "\x01"
        return re.sub(r"[^\n]", character, match.group())

    return LITERALS.sub(blank, source)


def literals(line, mask):
    """The texts and characters of a line with their positions."""
    for match in LITERALS.finditer(line):
        if match.lastgroup != "comment" and mask[match.start()] == "\x01":
            yield match


def other_text(literal):
    if literal.startswith("R"):
        return 'R"(x' + literal[3:]
    return NUMBERS.get(literal, '"x' + literal[1:])


def closing(mask, opening):
    """Position of the bracket that closes the one at a position; -1 where it is on another line."""
    depth = 0
    for position in range(opening, len(mask)):
        depth += (mask[position] in "([{") - (mask[position] in ")]}")
        if depth == 0:
            return position
    return -1


def beginning_of_condition(mask, question):
    """Where the condition in front of a question mark begins on its line; -1 where it began above."""
    depth = 0
    for position in range(question - 1, -1, -1):
        depth += (mask[position] in ")]}") - (mask[position] in "([{")
        if depth < 0:
            return position + 1
        if depth == 0 and re.search(r"(\breturn|[^=!<>]=|,|;|<<| [:?]) $", mask[: position + 1]):
            return position + 1
    return -1


def replaced(line, start, end, text):
    return line[:start] + text + line[end:]


def operators(line, mask, pattern, table):
    for match in re.finditer(pattern, mask):
        yield replaced(line, match.start(1), match.end(1), table[match.group(1)])


def swapped_comparisons(line, mask):
    yield from operators(line, mask, r" (==|!=|<=?|>=?) ", OPPOSITES)


def moved_boundaries(line, mask):
    yield from operators(line, mask, r" (<=?|>=?) ", NEIGHBOURS)


def swapped_connectives(line, mask):
    yield from operators(line, mask, r"(?<=\s)(&&|\|\|)(?=\s)", {"&&": "||", "||": "&&"})


def swapped_arithmetic(line, mask):
    if "\x01" not in mask:  # with texts a plus joins, and nothing else compiles
        yield from operators(line, mask, r" ([-+*/%]|[-+]=) ", ARITHMETIC)
    yield from operators(line, mask, r"(\+\+|--)", {"++": "--", "--": "++"})


def negated_conditions(line, mask):
    for match in re.finditer(r"\b(?:if|while) \(", mask):
        end = closing(mask, match.end() - 1)
        semicolon = mask.rfind("; ", match.end(), end)
        start = match.end() if semicolon < 0 else semicolon + 2
        # where nothing but the sign of a negation would change, the next loop takes it away
        if end > 0 and not re.fullmatch(r"!\S+", mask[start:end]):
            yield replaced(line, start, end, f"!({line[start:end]})")
    for match in re.finditer(r"(?<![\w)\]])!(?=[\w(*])", mask):
        yield replaced(line, match.start(), match.end(), "")
    for match in re.finditer(r" \? ", mask):
        start = beginning_of_condition(mask, match.start())
        if start >= 0:
            yield replaced(line, start, match.start(), f"!({line[start:match.start()]})")


def changed_constants(line, mask):
    for match in re.finditer(r"(?<![\w.])-?\d+(?![\w.])", mask):
        yield replaced(line, match.start(), match.end(), str(int(match.group()) + 1))
    for match in re.finditer(r"\b(true|false)\b", mask):
        yield replaced(line, match.start(), match.end(), "false" if match.group() == "true" else "true")


def changed_texts(line, mask):
    for match in literals(line, mask):
        if match.lastgroup == "character":
            text = "'x'" if match.group() != "'0'" else "'1'"
        else:
            text = other_text(match.group())
        yield replaced(line, match.start(), match.end(), text)


def removed_statements(line, mask):
    code = mask.strip()
    balanced = all(code.count(a) == code.count(b) for a, b in ("()", "[]", "{}"))
    if code.endswith(";") and balanced and len(code) > 1 and not NO_STATEMENT.match(code):
        yield replaced(line, len(line) - len(line.lstrip()), len(mask.rstrip()), ";")
    elif code == "return;":
        yield line.replace("return;", ";")


def changed_returns(line, mask):
    match = re.fullmatch(r"\s*return (.+);\s*", mask)
    if match and match.group(1) not in ("{}", "true", "false"):
        yield replaced(line, match.start(1), match.end(1), "{}")


# The rare ones first: of the kinds that were taken equally often for a file, the first is taken.
KINDS = {
    "boundary moved": moved_boundaries,
    "&& and || swapped": swapped_connectives,
    "arithmetic swapped": swapped_arithmetic,
    "comparison swapped": swapped_comparisons,
    "condition negated": negated_conditions,
    "constant changed": changed_constants,
    "return value changed": changed_returns,
    "text changed": changed_texts,
    "statement removed": removed_statements,
}


def mutants_of(file, source):
    """All mutants of a source, in its order."""
    found = []
    begins = True  # whether a statement can begin on the line
    for number, (line, mask) in enumerate(zip(source.split("\n"), masked(source).split("\n")), 1):
        if not mask.strip() or mask.lstrip().startswith("#"):
            continue
        seen = {line}
        for kind, broken_lines in KINDS.items():
            for broken in broken_lines(line, mask) if begins or kind != "statement removed" else ():
                if broken not in seen:
                    seen.add(broken)
                    found.append(Mutant(file, number, kind, line, broken))
        begins = bool(re.search(r"([;{}):]|\belse)\s*$", mask))
    return found


def chosen_of(mutants, count, chance):
    """At most count mutants of one file: lines before more of the same line, rare kinds before frequent ones."""
    lines = {}
    for mutant in mutants:
        lines.setdefault(mutant.number, []).append(mutant)
    waiting = list(lines.values())
    chance.shuffle(waiting)
    chosen, taken = [], dict.fromkeys(KINDS, 0)
    while waiting and len(chosen) < count:
        for line in waiting[: count - len(chosen)]:
            mutant = min(line, key=lambda each: taken[each.kind])
            line.remove(mutant)
            taken[mutant.kind] += 1
            chosen.append(mutant)
        waiting = [line for line in waiting if line]
    return sorted(chosen, key=lambda mutant: (mutant.number, mutant.broken))


def choose(mutants_by_file, limit, seed):
    """About limit mutants, shared among the files by their number of lines that can be broken."""
    sizes = {file: len({each.number for each in mutants}) for file, mutants in mutants_by_file.items()}
    share = limit / max(sum(sizes.values()), 1)
    chosen = []
    for file, mutants in mutants_by_file.items():
        count = max(3, round(sizes[file] * share))
        chosen += chosen_of(mutants, count, random.Random(f"{seed} {file}"))
    return chosen
