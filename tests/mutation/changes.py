"""Finds the small changes that are possible in a source, and writes the source with chosen changes behind a switch.

A change is made in the smallest piece of the source around it that is an expression: what brackets, commas, semicolons,
assignments or the parts of `?:` enclose. That piece becomes `(velorinMutation(17) ? (changed) : (as it is))`.
"""

import bisect
import hashlib
import re

SWITCH = "velorinMutation"
NUMBERS = 1 << 17
OPERATORS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-", "-": "+",
             "*": "+", "/": "*", "%": "/", "+=": "-=", "-=": "+="}
OPERATOR = re.compile(r"(?<=\s)(" + "|".join(map(re.escape, sorted(OPERATORS, key=len, reverse=True))) + r")(?=\s)")
STEP = re.compile(r"\+\+|--")
WORD = re.compile(r"\b(true|false)\b")
NUMBER = re.compile(r"(?<![\w.'])(\d+)(?![\w.'])")
CONDITION = re.compile(r"\b(if|while) \(")
SKIPPED = re.compile(r"\s*(#|assert|static_assert|namespace|using|case .*:$)")
COMMENT_OR_TEXT = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|\d(?:'?[\w.])*|'(?:\\.|[^'\\\n])+'", re.S)
PREPROCESSOR = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.M)
KEYWORDS = re.compile(r"\s*(?:(?:return|throw|else|do|case)\b\s*)*")
CONTROL = re.compile(r"\b(?:if|if constexpr|while|for|switch|catch) ?$")
BLOCK_HEAD = re.compile(r"(?:\)|\b(?:else|do|try|const|noexcept|override))\s*$")
ARRAY = re.compile(r"\b(?:char|int|double|float|bool|std::\w+_t) \w+\[$")  # the compiler would take a size that is no constant
PAIRS = {"(": ")", "[": "]", "{": "}"}


def blanked(text, keep_texts):
    """The text with its comments as blanks; its string literals become blanks of the same length too, unless they are kept."""
    def replace(found):
        piece = found[0]
        if piece.startswith(("//", "/*")):
            return re.sub(r"[^\n]", " ", piece)
        if keep_texts or piece[0] not in "\"'":
            return piece
        return piece[0] + "_" * (len(piece) - 2) + piece[-1]
    return COMMENT_OR_TEXT.sub(replace, text)


class Source:
    """One source: its text, and what surrounds a place in it."""

    def __init__(self, path, text):
        self.path, self.text = path, text
        self.uncommented = blanked(text, keep_texts=True)
        self.code = PREPROCESSOR.sub(lambda found: re.sub(r"[^\n]", " ", found[0]), blanked(text, keep_texts=False))
        self.lines = text.split("\n")
        self.line_starts = [0]
        for line in self.lines:
            self.line_starts.append(self.line_starts[-1] + len(line) + 1)
        self.partner, self.opener_of = self._pairs()

    def _pairs(self):
        partner, around, stack = {}, {}, []
        for at, sign in enumerate(self.code):
            if sign in PAIRS:
                around[at] = stack[-1] if stack else None
                stack.append(at)
            elif sign in PAIRS.values() and stack:
                opener = stack.pop()
                partner[opener], partner[at] = at, opener
        return partner, around

    def line_of(self, at):
        return bisect.bisect_right(self.line_starts, at)

    def _is_assignment(self, at):
        """True for the `=` of an assignment, compound or not; a comparison is none."""
        code = self.code
        if code[at] != "=" or code[at + 1] == "=" or code[at - 1] in "=!":
            return False
        return not (code[at - 1] in "<>" and code[at - 2] != code[at - 1])

    def _ends(self, at, compound):
        """True if the sign at this place separates expressions."""
        sign = self.code[at]
        if sign in ";,?":
            return True
        if sign == ":":
            return ":" not in (self.code[at - 1], self.code[at + 1])
        return not compound and self._is_assignment(at)

    def _is_block(self, opener):
        """True if these braces hold statements, not the values of an initialisation."""
        return bool(BLOCK_HEAD.search(self.code[max(0, opener - 60):opener])) or ";" in self.code[opener:self.partner.get(opener, opener)]

    def region(self, start, end, compound):
        """The expression around [start, end), as a half-open range."""
        left = start
        while left > 0:
            sign = self.code[left - 1]
            if sign in PAIRS or self._ends(left - 1, compound):
                break
            if sign in ")]}":
                opener = self.partner.get(left - 1)
                if opener is None or (sign == "}" and self._is_block(opener)):
                    break
                if sign == ")" and CONTROL.search(self.code[max(0, opener - 14):opener]):
                    break
                left = opener
            else:
                left -= 1
        right = end
        while right < len(self.code):
            sign = self.code[right]
            if sign in ")]}" or self._ends(right, compound):
                break
            right = self.partner.get(right, right) + 1 if sign in PAIRS else right + 1
        if not compound and right < len(self.code) and self._is_assignment(right):
            right -= self.code[right - 1] in "+-*/%&|^"
        left = KEYWORDS.match(self.code, left, right).end()
        while right > left and self.code[right - 1].isspace():
            right -= 1
        return (left, right) if left <= start and end <= right else None

    def constant(self, at):
        """The place of the word `constexpr` if this place is in the value of such a variable, else None."""
        while at is not None and at > 0:
            start, opener = at, None
            while start > 0:
                sign = self.code[start - 1]
                if sign in ";" or sign in PAIRS:
                    opener = start - 1 if sign in PAIRS else None
                    break
                if sign in ")]}":
                    inner = self.partner.get(start - 1)
                    if inner is None or (sign == "}" and self._is_block(inner)):
                        break
                    start = inner
                else:
                    start -= 1
            found = re.search(r"\bconstexpr\b", self.code[start:at])
            if found:
                return start + found.start()
            if opener is None or (self.code[opener] == "{" and self._is_block(opener)):
                return None
            at = opener
        return None


class Change:
    """One change: the range [start, end) of the source becomes `new`."""

    def __init__(self, source, span, new, region, *, negates=False):
        self.path, self.start, self.end, self.new, self.region, self.negates = source.path, *span, new, region, negates
        self.lines = range(source.line_of(region[0]), source.line_of(region[1]) + 1)
        line = source.line_of(self.start)
        begin = source.line_starts[line - 1]
        stop = min(self.end, source.line_starts[line] - 1)
        old = source.lines[line - 1]
        self.line = line
        changed = old[:self.start - begin] + new + old[stop - begin:]
        self.shown = " -> ".join(re.sub(r"\s*\n\s*", " ", text.strip()) for text in (old, changed))
        self.constant = source.constant(self.start)
        self.name = f"{self.path}: {self.shown}"

    @property
    def number(self):
        """What chooses this change at run time. It depends on nothing else, so other changes need no new compilation."""
        return 1 + int(hashlib.sha256(self.name.encode()).hexdigest(), 16) % NUMBERS

    def rank(self, seed):
        return hashlib.sha256(f"{seed} {self.name}".encode()).hexdigest()


def operator_changes(source):
    for pattern, new_of in ((OPERATOR, OPERATORS.get), (STEP, {"++": "--", "--": "++"}.get),
                            (WORD, {"true": "false", "false": "true"}.get), (NUMBER, lambda old: str(int(old) + 1))):
        for found in pattern.finditer(source.code):
            region = source.region(*found.span(), compound=found[0] in ("+=", "-="))
            if region and not ARRAY.search(source.code[max(0, region[0] - 80):region[0]]):
                yield Change(source, found.span(), new_of(found[0]), region)


def negated_conditions(source):
    for found in CONDITION.finditer(source.code):
        start, end = found.end(), source.partner.get(found.end() - 1)
        inside = source.code[start:end] if end else ";"
        if ";" not in inside and "{" not in inside and not any(source._is_assignment(at) for at in range(start, end)):
            yield Change(source, (start, end), f"!({source.uncommented[start:end]})", (start, end), negates=True)


def changes_of(source):
    """All changes of a source, in its order. Equal changes of equal lines are numbered."""
    found = [change for change in [*operator_changes(source), *negated_conditions(source)]
             if not SKIPPED.match(source.lines[change.line - 1])]
    found.sort(key=lambda change: (change.start, change.end, change.new))
    seen = {}
    for change in found:
        seen[change.name] = count = seen.get(change.name, 0) + 1
        if count > 1:
            change.name += f" ({count})"
    return found


def switched(source, chosen):
    """The text of the source with these changes behind switches. Lines stay where they are."""
    groups = {}
    for change in chosen:
        groups.setdefault(change.region, []).append(change)
    text = source.text
    for change in chosen:
        if change.constant is not None:
            text = text[:change.constant] + "const    " + text[change.constant + len("constexpr"):]
    order = sorted(groups, key=lambda region: (region[0], -region[1]))

    def piece(start, end, inside):
        parts, at = [], start
        while inside:
            region, inside = inside[0], inside[1:]
            nested = [other for other in inside if other[1] <= region[1]]
            inside = inside[len(nested):]
            parts += [text[at:region[0]], one(region, nested)]
            at = region[1]
        return "".join([*parts, text[at:end]])

    def one(region, nested):
        result = f"({piece(*region, nested)}\n)" if "//" in text[region[0]:region[1]].rsplit("\n", 1)[-1] else f"({piece(*region, nested)})"
        if any(change.negates for change in groups[region]):
            result = f"static_cast<bool>{result}"
        for change in groups[region]:
            changed = source.uncommented[region[0]:change.start] + change.new + source.uncommented[change.end:region[1]]
            result = f"({SWITCH}({change.number}) ? ({' '.join(changed.split(chr(10)))}) : {result})"
        return result

    return f"bool {SWITCH}(int); " + piece(0, len(text), order)
