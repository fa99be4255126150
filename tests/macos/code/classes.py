#!/usr/bin/env python3
"""Looks for what no compiler tells of the macOS desktop's classes: a method that nobody can call, because its name is
that of no method the system knows (a delegate's methods are optional, so a misspelled one is just another method); and
what is begun or owned and never ended.

  classes.py <folder of the macOS desktop>"""

import pathlib
import re
import sys

folder = pathlib.Path(sys.argv[1])
comment = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
opened = re.compile(r"@(interface|protocol|implementation) (\w+)(?: *\(\w*\))?([^\n{]*(?:\n {4}:[^\n]*)?)(.*?)@end",
                    re.DOTALL)

# The second one by a table's row, for each of its cells that has it; the last one by whoever makes another window.
called_from_outside = {"dealloc", "setBackgroundStyle:", "titleOfAppWithBundleIdentifier:"}

# What is begun with the one must be ended with the other, in the same file or one that it uses.
pairs = [(r"addObserver(?:ForName)?:", "removeObserver:"), (r"add(?:Global|Local)MonitorFor", "removeMonitor:"),
         ("lockFocus", "unlockFocus"), ("statusItemWithLength:", "removeStatusItem"), ("beginActivity", "endActivity"),
         ("saveGraphicsState", "restoreGraphicsState")]

# Who owns what functions of Core Foundation return is in their names, and CFRef.h alone counts. What is called weak
# must be.
owned_wrongly = re.compile(r"::retain\(\s*\w*(?:Create|Copy)\w*\(|::adopt\(\s*\w*Get(?!TypeID)\w*\(|"
                           r"\bCF(?:Retain|Release|Autorelease)\(|(?<!__weak )\b\w+\* weak[A-Z]\w*")


def text_of(file):
    return comment.sub("", file.read_text()) if file.exists() else ""


def imported(code):
    return {folder.parent.parent / name for name in re.findall(r'#i\w+ "(platform/macos/[^"]*)"', code)}


def selector(declaration):
    """Of "- (BOOL)control:(NSControl*)control textShouldEndEditing:(NSText*)text"."""
    plain = re.sub(r"\([^()]*(?:\([^()]*(?:\([^()]*\)[^()]*)*\)[^()]*)*\)", " ", declaration)
    parts = re.findall(r"(\w+)\s*:", plain)
    return "".join(part + ":" for part in parts) or re.search(r"\w+", plain).group()


def methods(body):
    found = re.findall(r"^[-+]\s*(\([^;{]*?)(?=\s*[;{]|\s+API_|\s+__attr)", body, re.MULTILINE)
    declared = {selector(each) for each in found}
    for attributes, rest in re.findall(r"^@property(\([^)]*\))?([^;]*);", body, re.MULTILINE):
        name = re.search(r"(\w+)(?:\s+(?:API_\w+|__attribute__)\(.*)?\s*$", rest, re.DOTALL).group(1)
        getter = re.search(r"getter=(\w+)", attributes)
        declared |= {getter.group(1) if getter else name, f"set{name[0].upper()}{name[1:]}:"}
    return declared


class Declarations:
    """Of classes and protocols by name: their methods, and the names of what these are inherited from."""

    def __init__(self, files):
        self.methods, self.parents = {}, {}
        for file in files:
            for kind, name, heading, body in opened.findall(text_of(file)):
                if kind == "implementation":
                    continue
                self.methods.setdefault(name, set()).update(methods(body))
                self.parents.setdefault(name, []).extend(re.findall(r"\w+", re.sub(r"<__covariant.*?>", "", heading)))

    def inherited_by(self, name):
        others = {parent for parent in self.parents.get(name, ()) if parent != name}  # NSObject is also a protocol
        return set().union(*(self.methods.get(other, set()) | self.inherited_by(other) for other in others))


def faults(file, declarations, everything):
    code = text_of(file)
    for kind, name, _, body in opened.findall(code):
        if kind != "implementation":
            continue
        for each in methods(body) - declarations.inherited_by(name) - called_from_outside:
            message = each.replace(":", r"\b:[^;{}]*?\b").removesuffix(r"[^;{}]*?\b")
            attribute = each.removeprefix("set").strip(":")
            if not re.search(rf"(?<!\))\b{message}|\.{attribute[:1].lower()}{attribute[1:]}\b", everything):
                yield f"{file}: nobody calls {each} of {name}: neither its superclasses nor its protocols declare it"
    used = imported(code)
    used |= {header for each in used for header in imported(text_of(each))}
    around = code + "".join(text_of(header.with_suffix(".mm")) for header in used)
    for begin, end in pairs:
        if re.search(begin, code) and not re.search(end, around):
            yield f"{file}: {begin} without {end}"
    for wrong in owned_wrongly.findall(code if file.name != "CFRef.h" else ""):
        yield f"{file}: {wrong} owns what is not its own, or the other way round"


declarations = Declarations([*folder.rglob("*.h"), *folder.rglob("*.mm")])
sources = [file for suffix in ("h", "mm", "cpp") for file in folder.rglob(f"*.{suffix}")
           if folder / "declarations" not in file.parents]
everything = "".join(map(text_of, sources))
found = [fault for file in sorted(sources) for fault in faults(file, declarations, everything)]
sys.exit("\n".join(found) or 0)
