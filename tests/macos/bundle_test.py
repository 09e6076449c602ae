#!/usr/bin/python3
"""Makes the Mac's application bundle around empty programs and looks at what is in it.

bundle_test.py WORK-FOLDER

CMake makes the bundle as it does on a Mac, from the same module, Info.plist and resources; only
compiling for a Mac and linking are left out.
"""

import pathlib
import plistlib
import shutil
import struct
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
SOURCES = HERE.parent.parent
WORK = pathlib.Path(sys.argv.pop())
CONTENTS = WORK / "bin/Corvane Utility.app/Contents"

# Which size a picture of each kind has, and with how many pixels it is stored.
PNG_PIXELS = {b"ic08": 256, b"ic09": 512, b"ic10": 1024, b"ic11": 32, b"ic12": 64, b"ic13": 256,
              b"ic14": 512}
# Pictures and masks of older forms, which the smallest sizes are still kept in.
PLAIN_KINDS = {b"is32", b"s8mk", b"il32", b"l8mk", b"it32", b"t8mk"}
MASK_BYTES = {b"s8mk": 16 * 16, b"l8mk": 32 * 32, b"t8mk": 128 * 128}


def setUpModule():
    shutil.rmtree(WORK, ignore_errors=True)
    configure = ["cmake", "-S", HERE / "bundle", "-B", WORK, "-G", "Ninja", "-DCMAKE_SYSTEM_NAME=Darwin",
                 "-DCMAKE_OSX_DEPLOYMENT_TARGET=11.0"]
    for command in (configure, ["cmake", "--build", WORK]):
        done = subprocess.run(command, capture_output=True, text=True)
        if done.returncode != 0:
            raise RuntimeError(done.stdout + done.stderr)


def property_list(path):
    with open(path, "rb") as file:
        return plistlib.load(file)


def elements(path):
    """The kinds of an .icns file with the bytes of each."""
    data = path.read_bytes()
    magic, length = struct.unpack(">4sI", data[:8])
    assert magic == b"icns", f"{path.name} does not begin as an .icns file"
    assert length == len(data), f"{path.name} says {length} bytes and has {len(data)}"
    found, offset = {}, 8
    while offset < len(data):
        kind, size = struct.unpack(">4sI", data[offset:offset + 8])
        assert 8 < size <= len(data) - offset, f"{path.name}: {kind} reaches past the end"
        found[kind] = data[offset + 8:offset + size]
        offset += size
    return found


class MinimumTest(unittest.TestCase):
    """packaging/macos/check-minimum, over stand-ins of the tools that read programs."""

    def check(self, *files, minimum="12.0"):
        """What it says of files that are (processors, versions of the oldest system)."""
        folder = WORK / "minimum"
        shutil.rmtree(folder, ignore_errors=True)
        (folder / "files").mkdir(parents=True)
        for number, (processors, versions) in enumerate(files):
            commands = "".join(f"cmd LC_BUILD_VERSION\n minos {version}\n sdk 14.0\n" for version in versions)
            (folder / f"files/{number}").write_text(f"{processors}\n{commands}")
        (folder / "files/text").write_text("\nno program\n")
        tools = {"lipo": '#!/bin/sh\n[ -n "$(sed -n 1p "$2")" ] && sed -n 1p "$2"\n',
                 "otool": '#!/bin/sh\nsed 1d "$2"\n'}
        for name, text in tools.items():
            (folder / name).write_text(text)
            (folder / name).chmod(0o755)
        done = subprocess.run(
            [SOURCES / "packaging/macos/check-minimum", folder / "files", minimum],
            env={"PATH": "/usr/bin:/bin", "OTOOL": str(folder / "otool"), "LIPO": str(folder / "lipo")},
            capture_output=True, text=True)
        return done.returncode, done.stdout

    def test_both_processors_and_an_old_enough_system_pass(self):
        self.assertEqual(self.check(("x86_64 arm64", ["11.0", "12.0"]), ("arm64 x86_64", ["10.15", "11.0"])), (0, ""))

    def test_a_newer_system_is_told(self):
        status, told = self.check(("x86_64 arm64", ["12.0", "12.3"]))
        self.assertEqual(status, 1)
        self.assertIn("needs macOS 12.3, not 12.0", told)

    def test_versions_are_numbers(self):
        self.assertEqual(self.check(("x86_64 arm64", ["9.0", "9.0"]), minimum="10.9")[0], 0)

    def test_one_processor_is_told(self):
        status, told = self.check(("arm64", ["11.0"]))
        self.assertEqual(status, 1)
        self.assertIn("not for x86_64", told)

    def test_a_file_that_names_no_system_is_told(self):
        self.assertIn("names no oldest system", self.check(("x86_64 arm64", []))[1])

    def test_a_folder_without_programs_is_no_application(self):
        self.assertEqual(self.check()[0], 1)


class InformationTest(unittest.TestCase):
    def setUp(self):
        self.information = property_list(CONTENTS / "Info.plist")

    def test_nothing_is_left_to_fill_in(self):
        self.assertNotIn("${", (CONTENTS / "Info.plist").read_text())

    def test_versions_have_the_four_components_of_the_project(self):
        self.assertEqual(self.information["CFBundleShortVersionString"], "1.2.3.4")
        self.assertEqual(self.information["CFBundleVersion"], "1.2.3.4")

    def test_the_program_it_names_is_there(self):
        self.assertEqual(self.information["CFBundleExecutable"], "Corvane Utility")
        self.assertTrue((CONTENTS / "MacOS/Corvane Utility").is_file())

    def test_the_icon_it_names_is_there(self):
        self.assertTrue((CONTENTS / "Resources" / self.information["CFBundleIconFile"]).is_file())

    def test_the_rest_of_what_the_system_asks_for(self):
        self.assertEqual(self.information["CFBundlePackageType"], "APPL")
        self.assertEqual(self.information["CFBundleIdentifier"], "com.velmar.corvane-utility")
        self.assertEqual(self.information["LSMinimumSystemVersion"], "11.0")
        self.assertIs(self.information["NSHighResolutionCapable"], True)
        self.assertRegex(self.information["NSHumanReadableCopyright"], r"^Copyright © 20\d\d Velmar")
        for reason in ("AppleEvents", "DesktopFolder", "RemovableVolumes", "SystemAdministration"):
            self.assertTrue(self.information[f"NS{reason}UsageDescription"].endswith("."), reason)


class ContentsTest(unittest.TestCase):
    def test_the_update_server_is_named(self):
        engine = property_list(CONTENTS / "Resources/UpdateEngine.plist")
        self.assertRegex(engine["plistURL"], r"^https://[a-z.]+/\S+$")

    def test_the_other_programs_stand_beside_the_window(self):
        for program in ("MacOS/corvane", "MacOS/corvane-bench", "Helpers/bench-tools/bench_tool"):
            self.assertTrue((CONTENTS / program).is_file(), program)

    def test_the_samples_come_without_what_makes_them(self):
        samples = CONTENTS / "Resources/bench"
        for sample in ("demo.json", "schema.json", "transceivers/16g-sw.bin", "update/10.11/CorvaneOnlineInfo.plist"):
            self.assertEqual((samples / sample).read_bytes(), (SOURCES / "bench" / sample).read_bytes())
        self.assertEqual([path.name for path in samples.rglob("make-*")], [])


class IconsTest(unittest.TestCase):
    def test_every_icon_that_the_utility_shows_is_there(self):
        for name in ("corvane", "corvane2_2", "corvane3_2", "corvane_warning"):
            self.assertTrue((CONTENTS / f"Resources/{name}.icns").is_file(), name)

    def test_every_icon_has_every_size(self):
        icons = list((CONTENTS / "Resources").glob("*.icns"))
        self.assertGreaterEqual(len(icons), 4)
        for icon in icons:
            with self.subTest(icon=icon.name):
                found = elements(icon)
                self.assertEqual(set(found), set(PNG_PIXELS) | PLAIN_KINDS)
                for kind, pixels in PNG_PIXELS.items():
                    self.assertEqual(found[kind][:8], b"\x89PNG\r\n\x1a\n", kind)
                    self.assertEqual(struct.unpack(">II", found[kind][16:24]), (pixels, pixels), kind)
                for kind, size in MASK_BYTES.items():
                    self.assertEqual(len(found[kind]), size, kind)


unittest.main(verbosity=1)
