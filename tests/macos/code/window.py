#!/usr/bin/env python3
"""Compares the preferences window of the macOS desktop, which is made in code, with the other desktop's, which the
tests there use: its columns, options and actions, and that each name is handed on to what has the same name.

  window.py <source folder>"""

import collections
import pathlib
import re
import sys
import xml.etree.ElementTree

root = pathlib.Path(sys.argv[1])
folder = root / "platform/macos/preferences"
source = {file.name: file.read_text() for file in sorted(folder.iterdir())}
localized = r'localized\(\s*@"([^"]*)"\)'


def texts_of(widget, name):
    return [text.text or "" for text in widget.findall(f"property[@name='{name}']//string")]


def text_of(widget, *names):
    return next((text for name in names for text in texts_of(widget, name)), "")


def other_window():
    widgets = [*xml.etree.ElementTree.parse(root / "resources/Preferences.ui").iter("widget")]
    qt = (root / "platform/linux/preferences/QtPreferences.cpp").read_text()
    called = dict(re.findall(r"calls\(form\.(\w+), &PreferencesActions::(\w+)\)", qt))
    tables = {text_of(each, "accessibleName"): [*zip(texts_of(each, "columnIdentifiers"), texts_of(each, "columnTitles"))]
              for each in widgets if each.get("class").endswith("CellTable")}
    options = {each.get("name"): (text_of(each, "text"), text_of(each, "toolTip"))
               for each in widgets if each.get("class") == "QCheckBox"}
    actions = collections.Counter((text_of(each, "toolTip", "text"), text_of(each, "linkAction") or called[each.get("name")])
                                  for each in widgets if text_of(each, "linkAction") or each.get("name") in called)
    return tables, options, actions


def this_window():
    code = "".join(source.values())
    tables = {title: re.findall(rf'\{{@"(\w[^"]*)",\s*(?:@"|localized\(@")([^"]*)"', columns)
              for title, columns in re.findall(rf"makeTable\(\s*{localized},(.*?)\}}\}}\)", code, re.DOTALL)}
    options = {name: found for name, *found in
               re.findall(rf"\.(\w+) =\s*makeCheckBox\({localized}(?:,\s*{localized})?\)", code)}
    made = rf'(?:make(?!Table)\w+|1|buttonWithTitle:)\(?(?:@"\w+", )?{localized}(?:(?!makeD|makeL).)*?@selector\((\w+):\)'
    return tables, {name: tuple(found) for name, found in options.items()}, collections.Counter(
        re.findall(made, code, re.DOTALL))


def same(what, here, there):
    for key in sorted({*here, *there}):
        if here.get(key) != there.get(key):
            yield f"{what} {key}: here {here.get(key)}, on the other desktop {there.get(key)}"


def handed_on():
    """Pairs of names that must be the same."""
    controller = source["AppPrefsWindowController.mm"]
    yield from re.findall(r'- \(void\)(\w+):\(id\)sender \{\s*\[self (?:call:&PreferencesActions::|openLink:")(\w+)', controller)
    preferences = source["MacPreferences.mm"]
    yield from re.findall(r"(\w+)\(contents\.(?:\w+\.)?(\w+)\)", preferences)
    yield from re.findall(r"(?<![\w)])\.(\w+) = (?:widgets_->|contents\.)(?:\w+\.)*(\w+)", preferences)
    yield from re.findall(r"\.(\w+)\.action = @selector\((\w+):\)", source["RulesTab.mm"])


def means_the_same(one, other):
    """Whether each word of the shorter name is in the longer one: "applications", "autoInputByApplicationTableView"."""
    longer, shorter = sorted((one, other), key=len, reverse=True)
    words = re.findall(r"[A-Z]?[a-z]+", shorter)
    return all(word.lower().removesuffix("s") in longer.lower().replace("inpust", "input") for word in words)


here, there, names = this_window(), other_window(), [*handed_on()]
faults = [fault for what, *windows in zip(("table", "option", "action"), here, there) for fault in same(what, *windows)]
faults += [f"{one} is handed on to {other}" for one, other in names if not means_the_same(one, other)]
used = {*re.findall(r"@selector\((\w+):\)", "".join(source.values()))}
faults += [f"nothing in the window is told to {action}:" for action in
           re.findall(r"- \(void\)(\w+):\(nullable id\)sender;", source["AppPrefsWindowController.h"]) if action not in used]
links = {*re.findall(r'(?:Link\{|moreFreeApps = )"(\w+)"', (root / "preferences/PreferencesLinks.cpp").read_text())}
faults += [f"there is no link {link}" for link in re.findall(r'openLink:"(\w+)"', source["AppPrefsWindowController.mm"])
           if link not in links]
if not all((*here, *there, links)) or len(names) < 40:
    faults.append("the sources are written in a way that is not understood here")
sys.exit("\n".join(faults) or 0)
