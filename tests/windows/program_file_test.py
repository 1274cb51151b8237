#!/usr/bin/python3
"""The file of the Windows program, and the archive that holds it.

Usage: program_file_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import pathlib
import re
import subprocess
import sys
import unittest
import zipfile

from platform_under_test import SOURCES, VERSION
from screen import output_of

BUILD = pathlib.Path(sys.argv[2])
PROGRAM = BUILD / "program/windows/ZendorSerialExtractor.exe"
COMMAND = BUILD / "program/console/ZendorSerialNumber.exe"

# Files that every Windows 10 has.
SYSTEM_LIBRARIES = {
    "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "user32.dll", "advapi32.dll",
    "shell32.dll", "ole32.dll", "setupapi.dll",
}


class ProgramFile(unittest.TestCase):
    def test_needs_nothing_but_windows(self):
        for program, library in (PROGRAM, "user32.dll"), (COMMAND, "kernel32.dll"):
            headers = output_of("x86_64-w64-mingw32-objdump", "-p", str(program))
            imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", headers)}
            self.assertEqual(imported - SYSTEM_LIBRARIES, set())
            self.assertIn(library, imported)

    def test_is_small_stripped_and_hardened(self):
        rows = [(PROGRAM, 1_500_000, "(Windows GUI)"), (COMMAND, 2_000_000, "(Windows CUI)")]
        for program, size, subsystem in rows:
            self.assertLess(program.stat().st_size, size)
            headers = output_of("x86_64-w64-mingw32-objdump", "-p", str(program))
            for flag in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT", "TERMINAL_SERVICE_AWARE",
                         subsystem):
                self.assertIn(flag, headers)
            self.assertTrue(b"stack smashing detected" in program.read_bytes(), program.name)
            self.assertNotIn(".debug", output_of("x86_64-w64-mingw32-objdump", "-h", str(program)))

    def test_carries_the_icon_of_every_platform_in_16_colours(self):
        icon = SOURCES / "platform/shared/icon/zendor_serial_extractor.ico"
        drawn = SOURCES / "platform/shared/icon/zendor_serial_extractor.xpm"
        data = icon.read_bytes()
        for program in PROGRAM, COMMAND:
            self.assertTrue(data[22:] in program.read_bytes(), program.name)
        self.assertEqual((data[6], data[7], data[36]), (32, 32, 4))
        command = ["compare", "-metric", "AE", str(drawn), str(icon), "null:"]
        self.assertEqual(subprocess.run(command, capture_output=True).returncode, 0)

    def test_tells_windows_its_version_and_what_it_was_made_for(self):
        manifest = (SOURCES / "program/windows/manifest.xml").read_bytes()
        for program in PROGRAM, COMMAND:
            data = program.read_bytes()  # too long for a message of assertIn
            self.assertTrue(manifest in data, program.name)
            for text in f"FileVersion\0\0{VERSION}\0", f"OriginalFilename\0{program.name}\0":
                self.assertTrue(text.encode("utf-16-le") in data, text)

    def test_comes_in_an_archive_with_two_documents(self):
        with zipfile.ZipFile(next(BUILD.glob("*.zip"))) as archive:
            names = {pathlib.PurePath(name).name for name in archive.namelist()}
        self.assertEqual(names, {PROGRAM.name, COMMAND.name, "README.txt", "COPYRIGHT.txt"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
