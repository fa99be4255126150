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
opened = re.compile(r"@(interface|protocol|implementation) (\w+)(?: *\((\w*)\))?([^\n{]*(?:\n {4}:[^\n]*)?)(.*?)@end", re.DOTALL)

# What is begun with the one must be ended with the other, in the same file or one that it uses.
pairs = [(r"addObserver(?:ForName)?:", "removeObserver:"), (r"add(?:Global|Local)MonitorFor", "removeMonitor:"), (r"lockFocus", "unlockFocus"),
         (r"statusItemWithLength:", "removeStatusItem"), (r"beginActivity", "endActivity"),
         (r"saveGraphicsState", "restoreGraphicsState"), (r"InstallEventHandler\(", r"RemoveEventHandler\("),
         (r"\bRegisterEventHotKey\(", r"UnregisterEventHotKey\(")]

# By the names of Core Foundation's functions: who owns what they return.
owned_wrongly = re.compile(r"::retain\(\s*\w*(?:Create|Copy)\w*\(|::adopt\(\s*\w*Get(?!TypeID)\w*\(")


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
    declared = {selector(each) for each in re.findall(r"^[-+]\s*(\([^;{]*?)(?=\s*[;{]|\s+API_|\s+__attr)", body, re.MULTILINE)}
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
            for kind, name, _, heading, body in opened.findall(text_of(file)):
                if kind == "implementation":
                    continue
                self.methods.setdefault(name, set()).update(methods(body))
                self.parents.setdefault(name, []).extend(re.findall(r"\w+", re.sub(r"<__covariant.*?>", "", heading)))

    def known_to(self, name):
        known = set(self.methods.get(name, ()))
        for parent in self.parents.get(name, ()):
            if parent != name:  # NSObject is a class and a protocol
                known |= self.known_to(parent)
        return known


def faults(file, declarations):
    code = text_of(file)
    for kind, name, _, _, body in opened.findall(code):
        if kind != "implementation":
            continue
        for each in methods(body) - declarations.known_to(name) - {"dealloc"}:
            first = each.split(":")[0]
            if not re.search(rf"\[(?:self|me\(\)) {first}\b|@selector\({each}\)", code):
                yield f"{file}: nobody calls {each} of {name}: neither it, its superclasses nor its protocols declare it"
    used = imported(code)
    used |= {header for each in used for header in imported(text_of(each))}
    around = code + "".join(text_of(header.with_suffix(".mm")) for header in used)
    for begin, end in pairs:
        if re.search(begin, code) and not re.search(end, around):
            yield f"{file}: {begin} without {end}"
    for wrong in owned_wrongly.findall(code):
        yield f"{file}: {wrong} takes for its own what is not, or the other way round"


declarations = Declarations([*folder.rglob("*.h"), *folder.rglob("*.mm")])
sources = [file for suffix in ("h", "mm", "cpp") for file in folder.rglob(f"*.{suffix}")
           if folder / "declarations" not in file.parents]
found = [fault for file in sorted(sources) for fault in faults(file, declarations)]
sys.exit("\n".join(found) or 0)
