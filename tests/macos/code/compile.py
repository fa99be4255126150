#!/usr/bin/env python3
"""Compiles the program for both processors of a Mac where there is none, looks for faults in the macOS desktop's
sources, and resolves their symbols: with declarations of our own for Apple's interfaces, this system's C library, and
a compiler and a standard library for each processor.

  compile.py <source folder> <folder of generated headers> <folder for what is made>

Ninja does the work, so that only what has changed is done again."""

import os
import pathlib
import shutil
import subprocess
import sys

root, generated, made = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
macos = root / "platform/macos"
declarations = macos / "declarations"
here = pathlib.Path(__file__).parent
oldest_system = "11.0"
features = "platform settings input indicator switching shortcuts preferences control app".split()

# The newest compiler with the library that Apple's is made of, and the oldest with the one of this system.
compilers = {"arm64": ("clang++-19", "libc++"), "x86_64": ("clang++-14", "libstdc++")}

warnings = """-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
-Wunguarded-availability -Wnullable-to-nonnull-conversion -Wnullability-completeness -Wundeclared-selector
-Wstrict-selector-match -Wobjc-interface-ivars -Wobjc-missing-super-calls -Wimplicit-retain-self
-Warc-repeated-use-of-weak -Wdeprecated-declarations -Woverriding-method-mismatch -Wno-missing-field-initializers
-Wno-unknown-warning-option -Wno-missing-designated-field-initializers -Werror"""

# What most sources read. Only one processor has it: on the other each source has to include for itself what it uses.
prefixes = {"c++": "algorithm functional map memory optional string utility variant vector".split()}
prefixes["objective-c++"] = ["Cocoa/Cocoa.h", *prefixes["c++"]]

rules = """
rule compile
  command = $cache $compiler @$processor.flags $options -MD -MF $out.d -c $in -o $out
  depfile = $out.d
  deps = gcc
rule read
  command = $compiler @$processor.flags $options -MD -MF $out.d -MT $out $in && touch $out
  depfile = $out.d
  deps = gcc
rule resolve
  command = $resolve $processor $out $out.objects
  rspfile = $out.objects
  rspfile_content = $in
"""


def write(path, text):
    """Leaves a file alone that is so already: what depends on it is still good."""
    if not path.exists() or path.read_text() != text:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)


def flags(processor):
    compiler, library = compilers[processor]
    # Where the compiler looks for the standard library, in that order.
    told = subprocess.run([compiler, f"-stdlib={library}", "-E", "-v", "-x", "c++", os.devnull],
                          capture_output=True, text=True, check=True).stderr.splitlines()
    system = [line.strip() for line in told if line.startswith(" /")]
    # -U: the C library has a macro of the name that the compiler gives to a word of its own. __NO_CTYPE: macros that
    # take its own locales.
    return "\n".join([f"-target {processor}-apple-macosx{oldest_system} -std=c++20 -U__nonnull -D__NO_CTYPE -D_GNU_SOURCE",
                      "-nostdinc++ -nostdlibinc", f"-I{declarations} -I{root} -I{root / 'tests'} -I{generated}",
                      *(f"-isystem {folder}" for folder in [declarations / "libc", *system]), warnings, ""])


def units_of_program():
    """One for all sources of a folder."""
    for feature in features:
        unit = made / "units" / f"{feature}.cpp"
        write(unit, "".join(f'#include "{source.relative_to(root)}"\n' for source in sorted((root / feature).glob("*.cpp"))))
        yield unit


def is_alone(header):
    """Others are checked with the source of their name."""
    sources = [header.with_suffix(suffix) for suffix in (".mm", ".cpp")]
    return declarations not in header.parents and not any(source.exists() for source in sources)


def edges(processor):
    compiler, _ = compilers[processor]
    common = f"  processor = {processor}\n  compiler = {compiler}\n"
    needs = f"| {processor}.flags"
    languages = {"c++": "-x c++", "objective-c++": "-fobjc-arc -fblocks -x objective-c++"}
    if processor == "arm64":
        for language, options in languages.items():
            # It names its header with its whole path, so that no other folder's may come out of the cache.
            yield (f"build {language}.pch: compile {language}.h {needs}\n{common}"
                   f"  options = {options}-header -Xclang -fno-pch-timestamp\n  cache =\n")
    sources = sorted([*macos.rglob("*.mm"), *macos.rglob("*.cpp")])
    native = sorted((root / "tests/macos/native").glob("*.mm")) if processor == "arm64" else []
    headers = [header for header in sorted(macos.rglob("*.h")) if is_alone(header)]
    units = [*units_of_program()]
    for source in [*sources, *units, *headers, *native]:
        language = "c++" if source.suffix == ".cpp" else "objective-c++"
        options, prerequisites = languages[language], needs
        if processor == "arm64":
            options, prerequisites = f"{options} -include-pch {language}.pch", f"{needs} {language}.pch"
        base = made if made in source.parents else root
        out = pathlib.Path(processor) / source.relative_to(base)
        details = f"{source} {prerequisites}\n{common}  options = {options} "
        if source in headers:
            yield f"build {out}.read: read {details}-x {language}-header -fsyntax-only\n"
        else:
            yield f"build {out}.o: compile {details}\n"
        if processor == "arm64" and source in sources:
            yield f"build {out}.analyzed: read {details}--analyze --analyzer-output text -Xclang -analyzer-werror\n"
    linked = [f"{processor}/{source.relative_to(root)}.o" for source in sources]
    linked += [f"{processor}/{unit.relative_to(made)}.o" for unit in units]
    inputs = [here / "resolve.py", declarations / "symbols.txt", macos / "CMakeLists.txt", macos / "bundle/Bundle.cmake"]
    yield f"build {processor}.resolved: resolve {' '.join(linked)} | {' '.join(map(str, inputs))}\n{common}"


for processor in compilers:
    write(made / f"{processor}.flags", flags(processor))
for language, headers in prefixes.items():
    write(made / f"{language}.h", "".join(f"#include <{name}>\n" for name in headers))
write(made / "build.ninja", f"cache = {shutil.which('ccache') or ''}\nresolve = {here / 'resolve.py'} {macos}\n{rules}" +
      "".join(edge for processor in compilers for edge in edges(processor)))
environment = {**os.environ, "CCACHE_BASEDIR": str(root), "CCACHE_NOHASHDIR": "1",
               "CCACHE_SLOPPINESS": "pch_defines,time_macros"}
sys.exit(subprocess.run(["ninja", "--quiet", "-C", made, "-k", "0", "-j", str(os.cpu_count())], env=environment).returncode)
