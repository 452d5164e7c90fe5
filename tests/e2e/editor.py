"""Kestrio's editor as a user sees it: where its parts are on the screen, and what is done with them."""
import contextlib
import functools

from PIL import Image, ImageDraw

import pictures
from desktop import Desktop, Rect, wait_until

PICTURE_COLOR = (207, 226, 214)  # of nothing else in the window
GROUND = (233, 234, 238)         # around the canvas
SURFACE = (251, 251, 253)        # of bar, panel and strip
PANEL_WIDTH = 288
STRIP_HEIGHT = 104
BAR_HEIGHT = 52
TILE_WIDTH, TILE_GAP, TILE_MARGIN = 104, 12, 16


def make_picture(path, size=(1600, 1000)):
    """A plain picture with a chequered patch in its lower left, for blurs to work on."""
    image = Image.new("RGB", size, PICTURE_COLOR)
    draw = ImageDraw.Draw(image)
    left, top, right, bottom = (round(fraction * side) for fraction, side in
                                zip((0.04, 0.72, 0.22, 0.94), size * 2))
    for y in range(top, bottom, 16):
        for x in range(left + (y - top) // 16 % 2 * 16, right, 32):
            draw.rectangle([x, y, x + 15, y + 15], fill=(40, 40, 60))
    image.save(path)
    return path


class Editor:
    """An editor's window on a desktop."""

    def __init__(self, desktop, process, title):
        self.desktop = desktop
        self.process = process
        self.window = desktop.wait_for_window(title)
        wait_until(self._find_frame, "the editor's bar where the window is")
        desktop.park()
        wait_until(self.find_canvas, "a picture on the canvas")
        desktop.wait_for_stillness(self.frame)

    def _find_frame(self):
        """The window manager may move a window after it has shown it, and the program paints it later."""
        self.frame = self.desktop.rect(self.window)
        left, top, _, bottom = self.frame
        middle = self.frame.center[0]
        at = self.desktop.screenshot().getpixel
        is_bar = at((left, top + 40)) == at((middle, top)) == SURFACE == at((middle, bottom - 1))
        is_outside = SURFACE not in (at((left - 1, top + 40)), at((middle, top - 1)), at((middle, bottom)))
        return is_bar and is_outside and at((left + 4, top + BAR_HEIGHT + 40)) == GROUND

    # Where things are

    @property
    def stage(self):
        """What the canvas has between bar, panel and strip."""
        left, top, right, bottom = self.frame
        return Rect(left, top + BAR_HEIGHT, right - PANEL_WIDTH, bottom - STRIP_HEIGHT)

    @property
    def palette(self):
        """The row of tools, in annotation mode."""
        middle = self.stage.center[0]
        return Rect(middle - 260, self.stage.top + 14, middle + 260, self.stage.top + 54)

    @functools.cached_property
    def marks_area(self):
        """The part of a plain picture that the palette leaves free; looked for before there are marks."""
        found = pictures.bounds_of(self.desktop.screenshot(self.stage), PICTURE_COLOR)
        left, top, right, bottom = Rect(*found).offset(self.stage.left, self.stage.top).inset(4)
        return Rect(left, max(top, self.stage.top + 110), right, bottom)

    def cell(self, column, row):
        """One of 4 x 3 places for a mark, none of which overlap."""
        left, top, right, bottom = self.marks_area
        width, height = (right - left) / 4, (bottom - top) / 3
        return Rect(round(left + column * width), round(top + row * height),
                    round(left + (column + 1) * width), round(top + (row + 1) * height)).inset(8)

    def theme_tile(self, index):
        left = self.frame.left + TILE_MARGIN + index * (TILE_WIDTH + TILE_GAP)
        top = self.frame.bottom - STRIP_HEIGHT + 14
        return Rect(left, top, left + TILE_WIDTH, top + 60)

    @property
    def padding_field(self):
        """The number beside the padding, in the right panel."""
        return self.frame.right - 30, self.frame.top + 202

    @property
    def padding_slider(self):
        return self.frame.right - 160, self.frame.top + 222

    @property
    def zoom_field(self):
        return self.frame.left + 200, self.frame.top + BAR_HEIGHT // 2

    @property
    def annotate_button(self):
        return self.frame.left + 486, self.frame.top + BAR_HEIGHT // 2

    def find_canvas(self):
        """The backdrop with the picture in it, while nothing covers it; None before it is painted."""
        found = pictures.bounds_of(self.desktop.screenshot(self.stage), GROUND, is_other=True)
        return Rect(*found).offset(self.stage.left, self.stage.top) if found else None

    # Looking

    def marks(self):
        return self.desktop.screenshot(self.marks_area)

    def wait_for_change(self, rect, before, what, least=30):
        wait_until(lambda: pictures.changed_pixels(self.desktop.screenshot(rect), before) >= least, what)

    def wait_for_marks(self, expected, what):
        wait_until(lambda: pictures.difference(self.marks(), expected) < 0.02, what)

    # Doing

    def toggle_annotations(self, is_on):
        """Waits until the palette has slid in or out."""
        self.desktop.key("d")
        sample = Rect(self.palette.left + 10, self.palette.top, self.palette.left + 50, self.palette.bottom)
        wait_until(lambda: (pictures.bounds_of(self.desktop.screenshot(sample), GROUND) is None) == is_on,
                   "the tools to be " + ("shown" if is_on else "hidden"))
        self.desktop.wait_for_stillness(self.stage)

    def choose_tool(self, key):
        self.desktop.key(key)

    def deselect(self):
        """Changing the tool drops the selection and its handles."""
        self.desktop.key("v", "a")
        self.desktop.park()


@contextlib.contextmanager
def open_editor(program, picture, keep, screen=(1920, 1080)):
    """An editor on a desktop of its own. A failure leaves a picture of the screen in the folder `keep`."""
    with Desktop(*screen) as desktop:
        process = desktop.run([program, "edit", picture])
        try:
            yield Editor(desktop, process, picture.stem)
        except BaseException:
            file = keep / f"failure-{picture.stem}.png"
            desktop.screenshot().save(file)
            print(f"screen at the failure: {file}\nprogram: {desktop.log()}", flush=True)
            raise
