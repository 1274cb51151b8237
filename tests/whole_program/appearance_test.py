#!/usr/bin/python3
"""How the window looks at every density and in every theme, on the platform that the first argument
names."""

import sys
import unittest

from captions import BUTTON, HEADING, OPTIONS
from layout import HEIGHT, PLACES, WIDTH
from platform_under_test import Pod, this_platform
from picture import Picture, finished_picture
from screen import output_of, wait_for


def ink_width(text, points, density):
    """How wide the bold text is when another program draws it."""
    command = ["convert", "-density", str(density), "-font", "Liberation-Sans-Bold", "-pointsize"]
    command += [str(points), f"label:{text}", "-trim", "-format", "%w", "info:"]
    return int(output_of(*command))


def luminance(color):
    linear = [
        c / 12.92 if c <= 0.03928 else ((c + 0.055) / 1.055) ** 2.4 for c in (v / 255 for v in color)
    ]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    darker, lighter = sorted((luminance(one), luminance(other)))
    return (lighter + 0.05) / (darker + 0.05)


class Appearance(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.platform = this_platform()
        cls.addClassCleanup(cls.platform.close)

    def test_keeps_its_layout_and_every_text_whole_at_every_density_and_font(self):
        for settings in self.platform.densities:
            self.platform.set_up(**settings)
            with self.subTest(**settings), Pod("--serial-number", "16777215") as pod:
                with self.platform.user(pod.device) as user:
                    user.press("space")
                    result = user.wait_for_result()
                    user.wait_until_ready()
                    user.click(OPTIONS[1])  # removes the focus frame from the button
                    user.point_at(user.place(HEADING))  # no tooltip covers the texts
                    density = self.density_for_font(user, **settings)
                    self.assert_layout(user, density)
                    self.assert_texts(user, result, density)

    def density_for_font(self, user, density, font=None):
        """The density at which the window is drawn. With a large font that is the density of a
        denser screen, read off the width of the window."""
        if font is None:
            return density
        left, _, right, _ = user.client_place()
        denser = (right - left) * 1440 / WIDTH
        self.assertGreater(denser, density * 1.2)
        return denser

    def assert_layout(self, user, density):
        def pixels(twips):
            return int(twips * density / 1440 + 0.5)

        def assert_near(seen, expected, what):
            """Exact to the pixel, or within one pixel where the density was read off the width."""
            for one, other in zip(seen, expected, strict=True):
                self.assertAlmostEqual(one, other, delta=0 if density == int(density) else 1, msg=what)

        left, top, right, bottom = user.client_place()
        assert_near((right - left, bottom - top), (pixels(WIDTH), pixels(HEIGHT)), "The client area")
        width, height = map(int, output_of("xdotool", "getdisplaygeometry").split())
        self.assertAlmostEqual(left + right, width, delta=4)
        self.assertAlmostEqual(top + bottom, height, delta=80 * density / 96)  # bars lie above
        for caption, (x, y, w, h) in PLACES.items():
            expected = [left + pixels(x), top + pixels(y), left + pixels(x + w), top + pixels(y + h)]
            seen = list(user.place(caption) if caption else user.result_place())
            if caption in OPTIONS:  # an option is only as wide and as high as it needs
                expected, seen = ([p[0], (p[1] + p[3]) // 2] for p in (expected, seen))
                self.assertAlmostEqual(seen.pop(), expected.pop(), delta=1, msg=caption)
            assert_near(seen, expected, caption)

    def assert_texts(self, user, result, density):
        """Each text is centred, bold, of its size, and not clipped; the result stands in a box."""
        box = finished_picture(user.result_place(), "The result")
        inside = box.without_edges()
        for colors in box.edges():
            self.assertEqual(len(colors), 1, "The border is broken")
            self.assertNotIn(inside.rows[0][0], colors, "There is no border")
        button = finished_picture(user.place(BUTTON), "The button")
        for _ in range(int(density * 6 // 96)):
            button = button.without_edges()
        heading = finished_picture(user.place(HEADING), "The heading")
        texts = [(heading, HEADING, 13.8), (inside, result, 24), (button, BUTTON, 13.8)]
        for picture, text, points in texts:
            _, top, _, bottom = picture.edges()
            left, right, end = picture.ink()
            self.assertTrue(len(top) == len(bottom) == 1 and right < end, f'"{text}" is clipped')
            self.assertAlmostEqual(left, end - right, delta=4 * density / 96, msg=text)
            expected = ink_width(text, points, density)
            self.assertAlmostEqual(right - left, expected, delta=expected * 0.03, msg=text)
        for option in OPTIONS:  # the circle may touch the left edge
            edges = finished_picture(user.place(option), option).without_edges().edges()
            for colors in edges[1:]:
                self.assertEqual(len(colors), 1, f'"{option}" is clipped')

    def test_keeps_the_result_readable_in_every_theme(self):
        for background, text in [
            ((255, 255, 255), (0, 0, 0)), ((0, 0, 0), (0, 0, 0)), ((120, 120, 120), (100, 100, 100)),
            ((255, 255, 255), (130, 130, 130)),  # hardly readable
        ]:
            self.platform.set_up(colors=(background, text))
            with self.subTest(background=background, text=text), Pod() as pod:
                with self.platform.user(pod.device) as user:
                    user.press("space")
                    user.wait_for_result()

                    def best_contrast():
                        inside = Picture(*user.result_place()).without_edges()
                        self.assertEqual(inside.rows[0][0], background)
                        return max(contrast(background, color) for color in inside.colors())

                    wait_for(lambda: best_contrast() >= 4.5 or None, "A readable result")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
