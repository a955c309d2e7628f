"""From the large, raw picture to the one that is kept."""
from dataclasses import dataclass

import numpy as np
from PIL import Image

from .camera import CENTRE_X, HEIGHT, SHARP, SUPER, WIDTH
from .grid import as_picture, blurred, smoothstep

JPEG_LIMIT = 700_000            # bytes a ballpark may take: the start waits for its decoding


def empty_picture(colour):
    """A picture of one colour, and the place of each of its pixels."""
    rows, columns = HEIGHT * SUPER, WIDTH * SUPER
    py, px = np.mgrid[0:rows, 0:columns].astype(np.float32)
    px, py = (px + 0.5) / SUPER, (py + 0.5) / SUPER
    image = np.zeros((rows, columns, 3), np.float32)
    image[:] = colour
    return image, px, py


@dataclass
class Print:
    """How the raw picture is developed."""
    bloom: float = 0.5           # how much bright places spread
    dusk: float = 0.42           # how dark the corners become
    curve: float = 0.10          # added contrast
    grain: float = 2.0
    tint: object = None          # a last change of the colours


def reduced(image):
    return np.asarray(as_picture(image).resize((WIDTH * SHARP, HEIGHT * SHARP), Image.LANCZOS),
                      np.float32)


def finish(image, lamps, random, style):
    """Reduce, let the lamps and the sky bloom, darken the corners, add grain."""
    image = reduced(image)
    if lamps is not None:
        lamps = reduced(lamps)
        for radius, strength in ((3, 0.9), (12, 1.3), (46, 2.4)):
            image = image + blurred(lamps, radius * SHARP) * strength * (1 - image / 300)
    bright = np.clip(image - 170, 0, 90)
    image = image + blurred(bright, 18 * SHARP) * style.bloom
    y, x = np.mgrid[0:HEIGHT * SHARP, 0:WIDTH * SHARP].astype(np.float32) / SHARP
    edge = np.hypot((x - CENTRE_X) / 1080, (y - 520) / 760)
    image = image * (1 - style.dusk * smoothstep(0.45, 1.1, edge))[..., None]
    contrast = image / 255
    image = 255 * (contrast + style.curve * contrast * (1 - contrast) * (2 * contrast - 1) * 2)
    if style.tint:
        image = style.tint(image)
    grain = random.normal(0, 1, image.shape[:2]).astype(np.float32)
    grain = grain * 0.6 + np.roll(grain, 1, 1) * 0.3 + np.roll(grain, 1, 0) * 0.3
    return as_picture(image + grain[..., None] * style.grain)


def save_small(picture, target):
    """The best quality that stays below the limit; the quality is returned."""
    for quality in range(90, 60, -2):
        picture.save(target, quality=quality, optimize=True)
        if target.stat().st_size < JPEG_LIMIT:
            break
    return quality
