"""The outline of a park: its outfield fence and the wall along each foul side."""
import math

import numpy as np


class Outline:
    """A fence given by its distance from home plate at an angle from the line to
    centre field, and a straight wall along each foul side.

    `corners` are (degrees, feet).  A round fence runs evenly from one to the
    next and is smoothed; an angular one goes in straight lines."""

    def __init__(self, corners, angular=False, wall_at_home=84.0, wall_slope=0.70):
        self.wall_at_home, self.wall_slope = wall_at_home, wall_slope
        degrees = np.linspace(-70, 70, 561)
        self.angles = np.radians(degrees)
        known, feet = zip(*corners)
        self.radii = self.straight(known, feet) if angular \
            else self.rounded(np.interp(degrees, known, feet))
        self.corner = self.find_corner()

    @staticmethod
    def rounded(feet):
        kernel = np.hanning(33)
        padded = np.pad(feet, 16, mode="edge")
        return np.convolve(padded, kernel / kernel.sum(), "valid")

    def straight(self, known, feet):
        """Distances to the straight lines between the corners."""
        turn, feet = np.radians(known), np.array(feet, float)
        x, y = feet * np.sin(turn), feet * np.cos(turn)
        part = np.clip(np.searchsorted(turn, self.angles) - 1, 0, len(turn) - 2)
        dx, dy = np.diff(x)[part], np.diff(y)[part]
        sine, cosine = np.sin(self.angles), np.cos(self.angles)
        return (x[part] * dy - y[part] * dx) / (sine * dy - cosine * dx)

    def point(self, degrees, beyond=0.0):
        angle = math.radians(degrees)
        radius = float(np.interp(angle, self.angles, self.radii)) + beyond
        return radius * math.sin(angle), radius * math.cos(angle)

    def find_corner(self):
        """The angle at which the fence meets the foul-side wall."""
        for degrees in np.arange(45, 70, 0.05):
            x, y = self.point(degrees)
            if x > self.wall_at_home + self.wall_slope * y:
                return float(degrees)
        return 60.0

    def far_end(self):
        """How far along y the foul-side walls reach."""
        return self.point(self.corner)[1]

    def wall_line(self, side, first, last, count=40):
        """Ground points along a foul-side wall, with the direction away from the field.

        That direction is straight across the view, so that the back rows never
        reach behind the viewer."""
        for y in np.linspace(first, last, count):
            yield side * (self.wall_at_home + self.wall_slope * y), y, side, 0.0

    def fence_line(self, first, last, count=40):
        for degrees in np.linspace(first, last, count):
            angle = math.radians(degrees)
            yield (*self.point(degrees), math.sin(angle), math.cos(angle))
