"""Tools that work on whole pictures of numbers: noise, edges, blends."""
import numpy as np
from PIL import Image, ImageFilter


def smoothstep(low, high, value):
    t = np.clip((value - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


LATTICE = np.random.RandomState(1907).rand(256, 256).astype(np.float32)


def noise(u, v):
    """Smooth value noise from -1 to 1; one bump per unit."""
    iu, iv = np.floor(u).astype(np.int32), np.floor(v).astype(np.int32)
    fu, fv = (u - iu).astype(np.float32), (v - iv).astype(np.float32)
    fu, fv = fu * fu * (3 - 2 * fu), fv * fv * (3 - 2 * fv)
    u0, u1, v0, v1 = iu & 255, (iu + 1) & 255, iv & 255, (iv + 1) & 255
    top = LATTICE[v0, u0] * (1 - fu) + LATTICE[v0, u1] * fu
    low = LATTICE[v1, u0] * (1 - fu) + LATTICE[v1, u1] * fu
    return (top * (1 - fv) + low * fv) * 2 - 1


def edge_step(distance):
    """How much a signed distance changes from one pixel to the next."""
    down, across = np.gradient(distance)
    return np.hypot(down, across) + 1e-6


def cover(distance):
    """How far each pixel lies inside a shape, from its signed distance."""
    return np.clip(0.5 - distance / edge_step(distance), 0, 1)


def chalk(distance, half_width):
    """Cover of a line that never gets thinner than about one pixel."""
    step = edge_step(distance)
    half = np.maximum(half_width, 0.75 * step)
    return np.clip(0.5 - (np.abs(distance) - half) / step, 0, 1)


def blend(image, colour, alpha):
    image += (np.asarray(colour, np.float32) - image) * alpha[..., None]


def gradient(rows, stops):
    places = [place for place, _ in stops]
    return np.stack([np.interp(rows, places, [c[i] for _, c in stops]) for i in range(3)],
                    axis=-1).astype(np.float32)


def as_picture(image):
    return Image.fromarray(np.clip(image + 0.5, 0, 255).astype(np.uint8), "RGB")


def blurred(image, size):
    return np.asarray(as_picture(image).filter(ImageFilter.GaussianBlur(size)), np.float32)
