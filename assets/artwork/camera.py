"""Where the viewer sits.

Ground positions are feet: home plate is (0, 0), x grows towards first base, y
towards centre field, z upwards.  The picture plane is upright, so a vertical
edge in the park stays vertical in the picture.  Every ballpark is seen through
this one camera: the pieces of the game stand on the bases of all of them.
"""
import math

WIDTH, HEIGHT = 1679, 974       # the units of all places and sizes
SHARP = 2                       # pixels of the kept picture for a unit: sharp at twice the density
SUPER = 2 * SHARP               # pixels of the raw picture for a unit, reduced at the end
CENTRE_X = 840
HORIZON = 226
HOME_Y, SECOND_Y = 890, 430     # screen rows of home plate and second base
SECOND_FT = 90 * math.sqrt(2)
BACK = SECOND_FT / ((HOME_Y - HORIZON) / (SECOND_Y - HORIZON) - 1)
FALL = (HOME_Y - HORIZON) * BACK
SCALE = 613                     # pixels per foot at one foot of depth
EYE = FALL / SCALE              # how high above the field the viewer sits


def project(x, y, z=0.0):
    depth = y + BACK
    return CENTRE_X + SCALE * x / depth, HORIZON + SCALE * (EYE - z) / depth


def unit(y):
    """Pixels per foot, across the view, at the distance y."""
    return SCALE / (y + BACK)
