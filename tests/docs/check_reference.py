#!/usr/bin/env python3
"""Every description in the reference is the comment of the declaration that it stands with.

usage: check_reference.py XML_FOLDER HEADER_FOLDER...

Reads what doxygen has written as XML. A member without a comment has no description, or that of the member it overrides.
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

# Declared outside every class, so that doxygen would show nothing of them by itself.
FREE = {"PointerEvent", "ModifyType", "GetVerisonString"}


def letters(text):
    """What is left of a text when markup, line breaks and punctuation are gone."""
    return re.sub(r"[^a-z0-9]", "", text.lower())


def described(element):
    parts = [element.find("briefdescription"), element.find("detaileddescription")]
    return letters("".join("".join(part.itertext()) for part in parts if part is not None))


def commented(lines, number):
    """The comment above the line with this number, or behind it."""
    above = []
    for line in reversed(lines[: number - 1]):
        if not line.strip().startswith("//"):
            break
        above.insert(0, line.strip()[2:])
    behind = re.search(r"[;,] +// (.*)$", lines[number - 1])
    return letters(" ".join(above) + (behind.group(1) if behind else ""))


class Reference:
    def __init__(self, xml, folders):
        self.headers = {header.name: header for folder in folders for header in folder.glob("*.h")}
        self.lines = {}
        self.members = {}
        for file in sorted(xml.glob("*.xml")):
            for tag in ("compounddef", "memberdef"):
                for element in ElementTree.parse(file).iter(tag):
                    self.members.setdefault(element.get("id"), element)

    def declared(self):
        """Each element with its comment, where it is declared in one of our headers."""
        for element in self.members.values():
            place = element.find("location")
            if place is None or element.get("kind") in ("file", "dir", "page", "friend"):
                continue
            path = self.headers.get(pathlib.Path(place.get("declfile") or place.get("file")).name)
            if path is None:
                continue
            if path not in self.lines:
                self.lines[path] = path.read_text().splitlines()
            number = int(place.get("declline") or place.get("line"))
            yield element, commented(self.lines[path], number), f"{path.name}:{number}"

    def inherited(self, element):
        for base in element.findall("reimplements"):
            origin = self.members.get(base.get("refid"))
            if origin is not None:
                return described(origin) or self.inherited(origin)
        return ""


def main(xml, *folders):
    reference = Reference(pathlib.Path(xml), [pathlib.Path(folder) for folder in folders])
    checked, failed, names = 0, 0, set()
    for element, comment, place in reference.declared():
        name = element.findtext("name") or element.findtext("compoundname")
        if element.get("kind") == "define" and not comment:
            continue  # in one of the branches of an #if
        names.add(name)
        expected = comment or reference.inherited(element)
        checked += 1
        if described(element) != expected:
            failed += 1
            print(f"{place}: {name} is described as\n  {described(element)}\ninstead of\n  {expected}", file=sys.stderr)
    for name in sorted(FREE - names):
        failed += 1
        print(f"{name} has no page", file=sys.stderr)
    print(f"{checked} descriptions compared with their comments, {failed} are not theirs")
    return 1 if failed or checked < 400 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
