#!/usr/bin/env python3
"""Compares what the packages declare with each other and with the program.

Usage: packaging_test.py SOURCES CONTENTS VERSION BUILD [TEST...], CONTENTS being that of the bundle as built.
"""
import json
import pathlib
import plistlib
import re
import struct
import sys
import unittest
import xml.etree.ElementTree

SOURCES, CONTENTS = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
VERSION, BUILD = sys.argv[3:5]
LINUX = SOURCES / "packaging/linux"
MIME = "{http://www.freedesktop.org/standards/shared-mime-info}"


def handled_extensions():
    """Those that the program takes in."""
    source = (SOURCES / "src/version/file_class.cpp").read_text()
    return set(re.findall(r'"(ind[a-z])"', source))


def desktop_entry():
    lines = (LINUX / "dunvey.desktop").read_text().splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


def mime_types():
    tree = xml.etree.ElementTree.parse(LINUX / "dunvey.xml")
    return {kind.get("type"): kind for kind in tree.iter(MIME + "mime-type")}


def matches(match, data):
    """Whether the bytes fulfil a match of the MIME package and one of those nested in it."""
    value = re.sub(rb"\\x([0-9A-Fa-f]{2})", lambda hexadecimal: bytes.fromhex(hexadecimal[1].decode()),
                   match.get("value").encode())
    begin = int(match.get("offset"))
    nested = match.findall(MIME + "match")
    return data[begin:begin + len(value)] == value and (
        not nested or any(matches(each, data) for each in nested))


def types_by_magic(data):
    return {name for name, kind in mime_types().items()
            if any(matches(match, data) for match in kind.findall(f"{MIME}magic/{MIME}match"))}


def samples():
    """The headers found in the wild: (extension, bytes)."""
    for line in (SOURCES / "tests/inspect/sample_headers.tsv").read_text().splitlines():
        extension, digits = line.split("\t")
        yield extension, bytes.fromhex(digits)


def icns_sizes(path):
    """The sides of the PNG parts of an .icns file, in pixels; fails where lengths don't add up."""
    data = path.read_bytes()
    assert data[:4] == b"icns" and struct.unpack(">I", data[4:8])[0] == len(data), path
    sizes, at = [], 8
    while at < len(data):
        length = struct.unpack(">I", data[at + 4:at + 8])[0]
        part = data[at + 8:at + length]
        assert part.startswith(b"\x89PNG\r\n\x1a\n") and part.endswith(b"IEND\xaeB`\x82"), path
        sizes.append(struct.unpack(">II", part[16:24]))
        at += length
    return sizes


class Bundle(unittest.TestCase):
    def setUp(self):
        self.list = plistlib.loads((CONTENTS / "Info.plist").read_bytes())

    def test_versions_are_the_builds(self):
        self.assertEqual(self.list["CFBundleShortVersionString"], VERSION)
        self.assertEqual(self.list["CFBundleVersion"], BUILD)
        self.assertTrue((CONTENTS / "MacOS" / self.list["CFBundleExecutable"]).is_file())

    def test_document_types_are_those_that_are_taken_in(self):
        kinds = self.list["CFBundleDocumentTypes"]
        extensions = [each for kind in kinds for each in kind["CFBundleTypeExtensions"]]
        self.assertEqual(sorted(extensions), sorted(handled_extensions()))
        imported = self.list["UTImportedTypeDeclarations"]
        tags = [each["UTTypeTagSpecification"] for each in imported]
        self.assertEqual({tag["public.filename-extension"] for tag in tags}, handled_extensions())
        self.assertEqual({tag["public.mime-type"] for tag in tags}, set(mime_types()))

    def test_macos_gets_what_it_asks_for(self):
        presets = json.loads((SOURCES / "CMakePresets.json").read_text())["configurePresets"]
        mac = next(preset["cacheVariables"] for preset in presets if preset["name"] == "mac")
        self.assertEqual(self.list["LSMinimumSystemVersion"], mac["CMAKE_OSX_DEPLOYMENT_TARGET"])
        # Without it macOS 10.14 denies the quit request without asking the user.
        question = "NSAppleEventsUsageDescription"
        self.assertTrue(self.list[question])
        for language in set(self.list["CFBundleLocalizations"]) - {"en"}:
            texts = (CONTENTS / f"Resources/{language}.lproj/InfoPlist.strings").read_text()
            self.assertRegex(texts, f'"{question}" = ".+";')
        types = {each["UTTypeIdentifier"]: each for each in self.list["UTImportedTypeDeclarations"]}
        self.assertEqual(len(types), len(handled_extensions()))
        for kind in self.list["CFBundleDocumentTypes"]:
            self.assertEqual((kind["CFBundleTypeRole"], kind["LSHandlerRank"]), ("Viewer", "Default"))
            self.assertIn(kind["CFBundleTypeName"], {each["UTTypeDescription"] for each in types.values()})

    def test_icons_are_there_and_whole(self):
        names = {kind["CFBundleTypeIconFile"] for kind in self.list["CFBundleDocumentTypes"]}
        self.assertEqual(names, {"ID_Document_Icon", "ID_Book_Icon"})
        for name in names | {self.list["CFBundleIconFile"]}:
            sizes = icns_sizes(SOURCES / f"resources/{name}.icns")
            self.assertEqual(sorted(set(sizes)), [(s, s) for s in (16, 32, 64, 128, 256, 512)], name)

    def test_languages_are_those_of_the_resources(self):
        folders = {path.stem for path in (CONTENTS / "Resources").glob("*.lproj")}
        self.assertEqual(set(self.list["CFBundleLocalizations"]), folders | {"en"})


class Desktop(unittest.TestCase):
    def test_types_and_names_agree_everywhere(self):
        entry = desktop_entry()
        types = set(mime_types())
        self.assertEqual(set(entry["MimeType"].strip(";").split(";")), types)
        metainfo = (LINUX / "dunvey.metainfo.xml.in").read_text()
        self.assertEqual(set(re.findall("<mediatype>(.*)</mediatype>", metainfo)), types)
        globs = {glob.get("pattern") for kind in mime_types().values() for glob in kind.iter(MIME + "glob")}
        self.assertEqual(globs, {f"*.{extension}" for extension in handled_extensions()})
        self.assertEqual(entry["Exec"], "dunvey %F")  # one start for all documents
        self.assertNotIn("DBusActivatable", entry)  # it would get documents one after the other
        for name in [entry["Icon"]] + [name.replace("/", "-") for name in types]:
            self.assertTrue(list((SOURCES / "packaging/icons/hicolor").glob(f"*/*/{name}.png")), name)

    def test_documents_are_told_by_their_bytes(self):
        found = list(samples())
        self.assertGreater(len(found), 8)
        names = {"indd": "application/x-indesign", "indl": "application/x-indesign-library"}
        for extension, data in found:
            expected = {names[extension]} if data[:2] == b"\x06\x06" else set()
            self.assertEqual(types_by_magic(data), expected)
        mark = found[0][1][:16]
        self.assertEqual(types_by_magic(mark + b"BOOKBOOK"), {"application/x-indesign-book"})
        self.assertEqual(types_by_magic(mark + b"LIBRARY4"), {"application/x-indesign-library"})
        for other in (mark + b"SOMETHIN", mark, b"DOCUMENT", mark[:15] + b"xDOCUMENT", b"\0" + mark + b"DOCUMENT"):
            self.assertEqual(types_by_magic(other), set())


class Package(unittest.TestCase):
    def test_changelog_begins_with_this_build(self):
        first = (LINUX / "changelog").read_text().splitlines()[0]
        self.assertTrue(first.startswith(f"dunvey ({VERSION}-"),
                        f"packaging/linux/changelog lacks an entry for {VERSION}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[5:])
