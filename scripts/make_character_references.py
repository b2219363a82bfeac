#!/usr/bin/env python3
"""Writes src/web/character_reference_table.cpp from Python's list of the HTML Standard's named references.

    scripts/make_character_references.py > src/web/character_reference_table.cpp
"""

from html.entities import html5

WIDTH = 110


def literal(text):
    # Octal escapes have three digits at most, so that whatever follows is no part of them.
    return '"' + "".join(chr(b) if 0x20 <= b < 0x7F and b not in b'"\\?' else f"\\{b:03o}" for b in text.encode()) + '"'


def main():
    print("// Made by scripts/make_character_references.py.")
    print('#include "web/character_reference_table.h"\n')
    print("namespace web {\n")
    print("// clang-format off")
    print("const NamedReference kNamedReferences[kNamedReferenceCount] = {")
    line = ""
    for name in sorted(html5, key=str.encode):
        entry = "{" + literal(name) + ", " + literal(html5[name]) + "},"
        if len(line) + len(entry) + 1 > WIDTH:
            print(line)
            line = ""
        line += (" " if line else "  ") + entry
    print(line)
    print("};")
    print("// clang-format on\n")
    print("}  // namespace web")


main()
