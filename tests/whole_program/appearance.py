"""What the heading and the result look like on every machine at 96 dots per inch."""

from captions import HEADING
from picture import finished_picture, ink_width


class Appearance:
    """Assertions for a test case."""

    def assert_heading_and_result(self, heading_place, result_place, result):
        """Both are centred, bold and of their size, and the result stands in a box."""
        self.assert_centred(finished_picture(heading_place, "The heading"), HEADING, 13.8)
        box = finished_picture(result_place, "The result")
        inside = box.without_edges()
        for colors in box.edges():
            self.assertEqual(len(colors), 1, "The border is broken")
            self.assertNotIn(inside.rows[0][0], colors, "There is no border")
        self.assert_centred(inside, result, 24)

    def assert_centred(self, picture, text, points):
        left, right, end = picture.ink()
        self.assertAlmostEqual(left, end - right, delta=4, msg=text)
        expected = ink_width(text, points)
        self.assertAlmostEqual(right - left, expected, delta=expected * 0.03, msg=text)
