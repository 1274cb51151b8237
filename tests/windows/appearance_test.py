#!/usr/bin/python3
"""The window of the Windows program at every density, with every font and in every theme.

Usage: appearance_test.py BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import sys
import unittest

from appearance import Appearance
from captions import BUTTON, HEADING, OPTIONS
from layout import PLACES
from on_windows import OnWindows, Pod
from picture import Picture, contrast, finished_picture
from screen import output_of, wait_for
from windows_machine import COLORS, DESKTOP, METRICS


class WindowsAppearance(Appearance, OnWindows):
    def assert_whole_text(self, text, row, inset):
        """There is text, and it keeps off the edges of its control; on the left of an option button
        there is its circle."""
        place = (row.left + inset, row.top + inset, row.right - inset, row.bottom - inset)
        edges = finished_picture(place, f'"{text}"').edges()
        for colors in edges[1:] if text in OPTIONS else edges:
            self.assertEqual(len(colors), 1, f'"{text}" is clipped')

    def test_keeps_its_layout_and_every_caption_whole_at_every_density(self):
        large = "e5ffffff" + "00" * 12 + "90010000" + "00" * 8 + "Tahoma".encode("utf-16-le").hex()
        usual = "f5" + large[2:]
        for density, font in [(96, usual), (120, usual), (144, usual), (192, usual), (96, large)]:
            self.restart(
                (DESKTOP, "LogPixels", "REG_DWORD", str(density)),
                (METRICS, "MessageFont", "REG_BINARY", font.ljust(184, "0")),
            )
            with self.subTest(density=density, font=font[:2]):
                with Pod("--serial-number", "16777215") as pod, self.user(com1=pod.device) as user:
                    self.assert_layout(user, density)
                    user.press("space")
                    text = user.wait_for_result()
                    user.click(OPTIONS[1])  # takes the focus frame off the button
                    for caption in (HEADING, *OPTIONS, BUTTON, text):
                        inset = density * 8 // 96 if caption == BUTTON else 2
                        self.assert_whole_text(caption, user.find(caption), inset)
            self.reader.close()

    def assert_layout(self, user, density):
        def pixels(twips):
            return int(twips * density / 1440 + 0.5)

        window, *controls = user.rows()
        button = next(row for row in controls if row.text == BUTTON)
        left = button.left - pixels(PLACES[BUTTON][0])
        top = button.top - pixels(PLACES[BUTTON][1])
        for row in controls:
            x, y, width, height = PLACES[row.text]
            edges = (x, y, x + width, y + height)
            expected = [a + pixels(b) for a, b in zip((left, top, left, top), edges)]
            self.assertEqual([row.left, row.top, row.right, row.bottom], expected, row.text)
        self.assertEqual(len(controls), len(PLACES))
        self.assertEqual(window.state & {"resizable", "dialog"}, {"dialog"})
        width, height = map(int, output_of("xdotool", "getdisplaygeometry").split())
        self.assertAlmostEqual(window.left + window.right, width, delta=2)
        self.assertAlmostEqual(window.top + window.bottom, height, delta=2)

    def test_shows_heading_and_result_large_and_centred_and_the_result_in_a_box(self):
        self.restart((DESKTOP, "LogPixels", "REG_DWORD", "96"))
        with Pod() as pod, self.user(com1=pod.device) as user:
            user.press("space")
            result = user.wait_for_result()
            self.assert_heading_and_result(user.find(HEADING)[3:7], user.result_row()[3:7], result)
        self.reader.close()

    def test_keeps_the_result_readable_in_every_theme(self):
        for background, text in [
            ((255, 255, 255), (0, 0, 0)), ((0, 0, 0), (0, 0, 0)), ((120, 120, 120), (100, 100, 100)),
        ]:
            self.restart(
                (DESKTOP, "LogPixels", "REG_DWORD", "96"),
                (COLORS, "HilightText", "REG_SZ", " ".join(map(str, background))),
                (COLORS, "WindowText", "REG_SZ", " ".join(map(str, text))),
            )
            with self.subTest(background=background, text=text):
                with Pod() as pod, self.user(com1=pod.device) as user:
                    user.press("space")
                    user.wait_for_result()
                    row = user.result_row()
                    place = (row.left + 2, row.top + 2, row.right - 2, row.bottom - 2)

                    def readable():
                        colors = Picture(*place).colors()
                        best = max(contrast(background, color) for color in colors)
                        return True if background in colors and best >= 4.5 else None

                    wait_for(readable, "A readable result")
            self.reader.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
