#!/usr/bin/env python3
"""Compares the keys in the sources with each translation. Usage: translations_test.py ROOT"""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
sources = [p.read_text() for p in (root / "src").rglob("*") if p.suffix in {".h", ".cpp", ".mm"}]
keys = {key for text in sources for key in re.findall(r'"([A-Z]\w*\.k[A-Z]\w*)"', text)}
faults = [] if len(keys) > 40 else [f"only {len(keys)} keys in the sources: the search is broken"]
for name, key in re.findall(r'LocalizedText (\w+)\{\s*"\w+\.(\w+)"', "".join(sources)):
    faults += [] if name == key else [f"{name} has the key of {key}"]
for table in (root / "resources").glob("*.lproj/Localizable.strings"):
    rows = re.findall(r'^"([^"]+)" = "(.*)";$', table.read_text(), re.MULTILINE)
    names = [key for key, _ in rows]
    faults += [f"{table}: {key} is missing" for key in sorted(keys - set(names))]
    faults += [f"{table}: {key} isn't used" for key in sorted(set(names) - keys)]
    faults += [f"{table}: {key} is there twice" for key in set(names) if names.count(key) > 1]
    faults += [f"{table}: {key} is not translated" for key, text in rows
               if text.isascii() and text != table.parent.stem]
print("\n".join(faults))
sys.exit(bool(faults))
