# SPDX-License-Identifier: LGPL-2.1-or-later
"""Mutants of a C++ source, all compiled into one program that is told by its environment which of them to be.

`mutate` rewrites an expression `a < b` as `(mutants::on(7) ? (a <= b) : (a < b))`, so a source is compiled once for all of
its mutants and the lines keep their numbers. Mutated are comparisons, logical and arithmetic operators, negations,
increments, integer, character and truth literals, conditions that are a call or a name, and statements (left out).
Not mutated: texts, types, template arguments, case labels, bounds of arrays, macros and what the compiler must know as a constant.
"""
import dataclasses

try:
    import clang.cindex
except ImportError as error:
    raise SystemExit("this needs Debian's package python3-clang-14 and /usr/bin/python3") from error
from clang.cindex import CursorKind, TypeKind

RUNTIME = r"""// Which mutant the program is, from LUMOTUNE_MUTANT; those it reached are written to LUMOTUNE_MUTANTS_REACHED at its end.
#pragma once
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <type_traits>
namespace mutants {
constexpr int most = 100000; // numbers of mutants
struct State {
  int chosen = std::getenv("LUMOTUNE_MUTANT") ? std::atoi(std::getenv("LUMOTUNE_MUTANT")) : -1;
  std::atomic<bool> reached[most]{};
  ~State() {
    const char* path = std::getenv("LUMOTUNE_MUTANTS_REACHED");
    std::FILE* out = path ? std::fopen(path, "w") : nullptr;
    for (int i = 0; out && i < most; ++i)
      if (reached[i])
        std::fprintf(out, "%d\n", i);
    if (out)
      std::fclose(out);
  }
};
inline State& state() {
  static State all;
  return all;
}
inline bool reach(int number) {
  state().reached[number].store(true, std::memory_order_relaxed);
  return state().chosen == number;
}
constexpr bool on(int number) { return !std::is_constant_evaluated() && reach(number); }
}
"""

SWAPS = {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
         "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"], "&": ["|"], "|": ["&"],
         "<<": [">>"], ">>": ["<<"], "+=": ["-="], "-=": ["+="], "|=": ["&="], "&=": ["|="]}
ARITHMETIC = {"+", "-", "*", "/", "%", "&", "|", "<<", ">>", "+=", "-=", "|=", "&="}
NUMBERS = {TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG, TypeKind.SHORT,
           TypeKind.USHORT, TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.UCHAR, TypeKind.WCHAR, TypeKind.FLOAT, TypeKind.DOUBLE}
BODY = {CursorKind.COMPOUND_STMT, CursorKind.IF_STMT, CursorKind.FOR_STMT, CursorKind.WHILE_STMT, CursorKind.DO_STMT,
        CursorKind.CXX_FOR_RANGE_STMT, CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT}


@dataclasses.dataclass
class Mutant:
    number: int
    line: int
    before: str
    after: str


class Rewriting:
    def __init__(self, source, begun, wanted):
        self.source = source  # bytes: the compiler counts in them
        self.number = begun
        self.wanted = wanted  # of a number, or a line: may it be a mutant?
        self.mutants = []

    def text(self, begin, end):
        return self.source[begin:end].decode()

    def original(self, cursor):
        return self.text(cursor.extent.start.offset, cursor.extent.end.offset)

    def switch(self, cursor, after, form):
        """A new mutant's condition put around what is there; `form` takes the condition."""
        before = " ".join(self.original(cursor).split())
        if "//" in before or "\n" in before and "#" in before:
            return None
        number, line = self.number, cursor.extent.start.line
        self.number += 1
        if not self.wanted(number, line):
            return None
        self.mutants.append(Mutant(number, line, before, " ".join(after.split())))
        return form(f"mutants::on({number})")

    def choose(self, cursor, inside, after):
        after = " ".join(after.split())
        return self.switch(cursor, after, lambda on: f"({on} ? ({after}) : ({inside}))") or inside

    # What stands between begin and end, with the rewritten children in their places.
    def spliced(self, begin, end, children):
        out, at = [], begin
        for child, text in children:
            start, stop = child.extent.start.offset, child.extent.end.offset
            if start < at or stop > end or stop <= start:
                continue
            out += [self.text(at, start), text]
            at = stop
        return "".join(out) + self.text(at, end)

    def rewrite(self, cursor, parent=None, condition=False):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        if skipped(cursor, parent, self):
            return self.text(begin, end)
        children = [child for child in cursor.get_children()
                    if begin <= child.extent.start.offset and child.extent.end.offset <= end]
        rewritten = []
        for at, child in enumerate(children):
            if cursor.kind == CursorKind.CASE_STMT and at == 0:
                continue
            text = self.rewrite(child, cursor, is_condition(cursor, children, at, self))
            if cursor.kind in BODY and is_statement(cursor, children, at):
                text = self.left_out(child, text)
            rewritten.append((child, text))
        inside = self.spliced(begin, end, sorted(rewritten, key=lambda part: part[0].extent.start.offset))
        return self.mutated(cursor, children, inside, condition)

    def left_out(self, child, text):
        if child.kind in (CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT):
            return self.switch(child, "(left out)", lambda on: f"{{ if (!{on}) {text}; }}") or text
        if child.kind.is_expression():
            return self.switch(child, "(left out)", lambda on: f"({on} ? void() : static_cast<void>({text}))") or text
        return text

    def mutated(self, cursor, children, inside, condition):
        kind, whole = cursor.kind, self.original(cursor)
        operator = operator_between(cursor, children, self)
        if operator:
            left, right, name = operator
            if name in ARITHMETIC and not (number_type(left) and number_type(right)):
                return inside
            for other in SWAPS.get(name, []):
                inside = self.choose(cursor, inside, f"{self.original(left)} {other} {self.original(right)}")
        elif kind == CursorKind.UNARY_OPERATOR and whole.startswith("!"):
            inside = self.choose(cursor, inside, f"static_cast<bool>({whole[1:]})")
        elif kind == CursorKind.UNARY_OPERATOR and whole[:2] in ("++", "--"):
            inside = self.choose(cursor, inside, {"++": "--", "--": "++"}[whole[:2]] + whole[2:])
        elif kind == CursorKind.UNARY_OPERATOR and whole[-2:] in ("++", "--"):
            inside = self.choose(cursor, inside, whole[:-2] + {"++": "--", "--": "++"}[whole[-2:]])
        elif kind in (CursorKind.INTEGER_LITERAL, CursorKind.CHARACTER_LITERAL):
            changed = f"{whole} + 1" if kind == CursorKind.INTEGER_LITERAL else f"decltype({whole})({whole} + 1)"
            inside = self.choose(cursor, inside, changed)
        elif kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            inside = self.choose(cursor, inside, "true" if whole == "false" else "false")
        elif condition and kind.is_expression():
            inside = self.switch(cursor, f"!{whole}", lambda on: f"({on} != static_cast<bool>({inside}))") or inside
        return inside


def skipped(cursor, parent, rewriting):
    kind = cursor.kind
    if kind in (CursorKind.PARM_DECL, CursorKind.STATIC_ASSERT, CursorKind.TEMPLATE_REF, CursorKind.TYPE_REF,
                CursorKind.STRING_LITERAL, CursorKind.UNEXPOSED_ATTR):
        return True
    if kind == CursorKind.VAR_DECL and rewriting.original(cursor).startswith(("constexpr", "static constexpr", "inline constexpr")):
        return True
    begin, end = cursor.extent.start.offset, cursor.extent.end.offset
    if kind == CursorKind.INTEGER_LITERAL and rewriting.source[end:end + 1] == b">" and rewriting.source[:begin].rstrip().endswith(b","):
        return True  # a template's argument
    return (kind == CursorKind.INTEGER_LITERAL and parent is not None and parent.kind in (CursorKind.VAR_DECL, CursorKind.FIELD_DECL)
            and parent.type.kind == TypeKind.CONSTANTARRAY)


def number_type(cursor):
    return cursor.type.get_canonical().kind in NUMBERS


def operator_between(cursor, children, rewriting):
    """(left, right, "<") of a binary operator, built in or not."""
    if cursor.kind in (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
        left, right = children
        name = rewriting.text(left.extent.end.offset, right.extent.start.offset).strip()
        return (left, right, name) if name in SWAPS else None
    if cursor.kind == CursorKind.CALL_EXPR and cursor.spelling.startswith("operator") and len(children) == 3:
        left, middle, right = sorted(children, key=lambda child: child.extent.start.offset)
        name = rewriting.original(middle)
        return (left, right, name) if cursor.spelling == "operator" + name and name in SWAPS else None
    return None


def is_plain(cursor, rewriting):
    """A condition without an operator of its own, which would be mutated itself."""
    while cursor.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
        inner = list(cursor.get_children())
        if len(inner) != 1:
            return True
        cursor = inner[0]
    children = list(cursor.get_children())
    if cursor.kind == CursorKind.UNARY_OPERATOR and rewriting.original(cursor).startswith("!"):
        return False
    return cursor.kind.is_expression() and not operator_between(cursor, children, rewriting) \
        and cursor.kind not in (CursorKind.CXX_BOOL_LITERAL_EXPR, CursorKind.INTEGER_LITERAL)


def is_condition(cursor, children, at, rewriting):
    child = children[at]
    if not is_plain(child, rewriting):
        return False
    if cursor.kind in (CursorKind.IF_STMT, CursorKind.WHILE_STMT):
        return child.kind.is_expression() and at == 0 and len(children) > 1
    if cursor.kind == CursorKind.CONDITIONAL_OPERATOR:
        return at == 0
    if cursor.kind == CursorKind.RETURN_STMT:
        return child.type.get_canonical().kind == TypeKind.BOOL
    operator = operator_between(cursor, children, rewriting)
    return bool(operator) and operator[2] in ("&&", "||")


def is_statement(cursor, children, at):
    """A child that stands as a statement, not as a condition or a part of a loop's head."""
    if cursor.kind == CursorKind.COMPOUND_STMT:
        return True
    if cursor.kind in (CursorKind.IF_STMT,):
        return at > 0 and not (at == 1 and children[0].kind == CursorKind.DECL_STMT)
    if cursor.kind in (CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT, CursorKind.FOR_STMT, CursorKind.WHILE_STMT,
                       CursorKind.CXX_FOR_RANGE_STMT):
        return at == len(children) - 1
    return False


def functions(cursor, path):
    """Bodies of functions in this file, and initialisers of its variables."""
    for child in cursor.get_children():
        if child.location.file is None or child.location.file.name != path:
            continue
        if child.kind in (CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
                          CursorKind.FUNCTION_TEMPLATE, CursorKind.CONVERSION_FUNCTION):
            yield from (part for part in child.get_children() if part.kind == CursorKind.COMPOUND_STMT)
        else:
            yield from functions(child, path)


def mutate(path, source, arguments, relaxed, begun, wanted):
    """(rewritten source, mutants) of these bytes, which the compiler is to take for the file of this path. `relaxed` lets
    constants of functions be variables, so that they can be mutated."""
    if relaxed:
        # Not even `const`: what initialises a constant is evaluated by the compiler, where no mutant is chosen.
        source = source.replace(b"  constexpr ", b"            ")
    unit = clang.cindex.Index.create().parse(path, args=arguments, unsaved_files=[(path, source.decode())])
    errors = [each for each in unit.diagnostics if each.severity >= clang.cindex.Diagnostic.Error]
    if errors:
        raise ValueError(f"{path}: {errors[0].spelling}")
    rewriting = Rewriting(source, begun, wanted)
    bodies = sorted(functions(unit.cursor, path), key=lambda body: body.extent.start.offset)
    text = rewriting.spliced(0, len(source), [(body, rewriting.rewrite(body)) for body in bodies])
    # Where two nodes overlap, one of them keeps its original text, and the mutants in it are in no program.
    made = [mutant for mutant in rewriting.mutants if f"mutants::on({mutant.number})" in text]
    return '#include "mutants_runtime.h"\n#line 1\n' + text, made, rewriting.number
