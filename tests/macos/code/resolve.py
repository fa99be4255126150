#!/usr/bin/env python3
"""Resolves the symbols of the object files of Quorvane.app, as a Mac's linker would: each is defined once, or a library
that is linked has it. What only newer systems have must be weak.

  resolve.py <folder of the macOS desktop> <processor> <stamp> <file with the names of the object files>

Which library has what is in declarations/symbols.txt; what is linked, in the files for CMake."""

import pathlib
import re
import subprocess
import sys

standard_libraries = {"arm64": ("libc++.so.1", "libc++abi.so.1"), "x86_64": ("libstdc++.so.6",)}
without_asking = {"libobjc", "libSystem", "compiler", "here"}
inside = {"Cocoa": {"AppKit", "Foundation", "CoreFoundation"}}  # Foundation passes Core Foundation on


def told_by(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def frameworks(file, target):
    """That this target links, by its description for CMake."""
    lines = re.search(rf"target_link_libraries\({target} .*?\)", file.read_text(), re.DOTALL).group()
    linked = set(re.findall(r"-framework (\w+)", lines))
    return linked | without_asking | {part for one in linked for part in inside.get(one, ())}


def system_symbols(file):
    """By their name: the library, and whether older systems than the oldest lack it."""
    library, symbols = None, {}
    for word in re.sub("#.*", "", file.read_text()).split():
        if word.startswith("["):
            library = word.strip("[]")
            continue
        name, _, since = word.partition("=")
        if name.startswith("@"):
            symbols["_OBJC_METACLASS_$_" + name[1:]] = (library, since)
            name = "OBJC_CLASS_$_" + name[1:]
        symbols["_" + name] = (library, since)
    return symbols


def symbols_of_standard_library(processor):
    files = [told_by("clang++", f"-print-file-name={name}").strip() for name in standard_libraries[processor]]
    told = told_by("nm", "-D", "--defined-only", "--without-symbol-versions", "--format=just-symbols", *files)
    return {"_" + name for name in told.split()}


def faults(objects, linked, known, standard, processor):
    wanted, defined = {}, set()
    for object_file in objects:
        for line in told_by("llvm-nm", "-m", object_file).splitlines():
            place, kind, name = re.match(r"[0-9a-f ]+ \((.*?)\) (.*?external) (.+)", line).groups()
            if place == "undefined":
                wanted.setdefault(name, []).append((object_file, "weak" in kind))
            elif kind in ("external", "private external"):
                if name in defined:
                    yield f"{object_file}: {name} is defined elsewhere, too"
                defined.add(name)
            elif kind != "non-external":
                defined.add(name)
    for name, uses in sorted(wanted.items()):
        user, library, since = uses[0][0], *known.get(name, (None, ""))
        if name in defined or name in standard:
            continue
        if library is None:
            yield f"{user}: nobody has {name}"
        elif library not in linked:
            yield f"{user}: {name} is of {library}, which is not linked"
        for user, is_weak in uses:
            if since and not is_weak:
                yield f"{user}: {name} is not in systems before {since}, but is wanted in each"


def main(macos, processor, stamp, objects):
    macos, objects = pathlib.Path(macos), pathlib.Path(objects).read_text().split()
    known = system_symbols(macos / "declarations/symbols.txt")
    standard = symbols_of_standard_library(processor)
    helper = [each for each in objects if "/helper/" in each]
    program = [each for each in objects if each not in helper]
    found = [*faults(program, frameworks(macos / "CMakeLists.txt", "quorvane_macos"), known, standard, processor),
             *faults(helper, frameworks(macos / "bundle/Bundle.cmake", "quorvane_login_item"), known, standard, processor)]
    if found:
        sys.exit("\n".join(found))
    pathlib.Path(stamp).touch()


main(*sys.argv[1:])
