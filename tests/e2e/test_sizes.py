"""The window at other sizes than its own."""

import unittest

from driver import Program, key, wait, xdotool


class Sizes(unittest.TestCase):
    def test_it_scales_by_the_menu_and_by_its_edge(self):
        with Program() as program:
            window = program.ready()
            program.connected()

            def is_wide(width):
                wait(f"it is {width} wide", lambda: window.box().width == width)

            is_wide(768)
            key("alt+v")
            program.get("150 %").press()
            key("Escape")
            is_wide(1152)
            name = program.get("Loop 2 name", "label")
            self.assertEqual((name.box().width, name.box().height), (324, 24))
            name.click()
            program.get("Loop 2 name", "text")
            key("Escape")
            # as a drag of its right edge does
            xdotool("getactivewindow", "windowsize", 960, 804)
            wait("it has its shape", lambda: (window.box().width, window.box().height) == (960, 670))
