"""Measures of pictures that tests assert on."""
from PIL import Image, ImageChops, ImageStat


def difference(one, other):
    """The mean absolute difference of two pictures of one size, in steps of 0 to 255."""
    return sum(ImageStat.Stat(ImageChops.difference(one, other)).mean) / 3


def changed_pixels(one, other, least=24):
    """How many pixels differ by at least this much in some channel."""
    channels = ImageChops.difference(one, other).split()
    strongest = ImageChops.lighter(ImageChops.lighter(channels[0], channels[1]), channels[2])
    return sum(strongest.histogram()[least:])


def bounds_of(image, color, is_other=False):
    """The smallest rectangle around all pixels of this colour, or around all others; None without any."""
    plain = Image.new("RGB", image.size, color)
    distance = ImageChops.difference(image, plain).convert("L", (1, 1, 1, 0))
    return distance.point(lambda step: 255 * ((step > 0) == is_other)).getbbox()


def count(image, is_wanted):
    """How many pixels satisfy a condition on (red, green, blue)."""
    return sum(number for number, color in image.getcolors(image.width * image.height) if is_wanted(*color))


def is_red(red, green, blue):
    return red > 200 and green < 110 and blue < 110
