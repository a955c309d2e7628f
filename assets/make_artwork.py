#!/usr/bin/python3
"""Draw the pictures that ship with Kelvane Diamond Table.

Writes, below the source folder:

    program/Ballparks/DEFAULT1679X974.jpg     the ballpark behind the whole board
    program/Ballparks/<name>.jpg              three more to choose from
    program/Logos/VisLogo.jpg, HomeLogo.jpg   logos for a team that has none of its own
    program/Logos/<team>.jpg                  logos of the four example teams
    src/windows/icons/                        the icon, as SVG and in several sizes
    packaging/windows/board.ico               the same for Windows, all sizes in one file

Usage:  make_artwork.py [source-folder]

Needs the Debian packages python3-cairo, python3-pil, python3-numpy and, for the
lettering on fence and scoreboard, fonts-dejavu-core.  Every random choice comes
from a fixed seed, so two runs give the same pictures.
"""
import sys
from multiprocessing import get_context
from pathlib import Path

from artwork import foundry, harbour, summit, wooden
from artwork.finish import save_small
from artwork.icon import save_icons, save_windows_icon
from artwork.logos import LOGOS, logo

BALLPARKS = {"DEFAULT1679X974": harbour.ballpark,
             "Summit Field (day)": summit.ballpark,
             "Foundry Park (night)": foundry.ballpark,
             "Old Wooden Grounds": wooden.ballpark}


def draw_ballpark(name, target):
    quality = save_small(BALLPARKS[name](), target)
    print(f"{target}: quality {quality}, {target.stat().st_size} bytes")


def draw_ballparks(folder):
    """Each in a process of its own, so that none can depend on the ones before it."""
    folder.mkdir(parents=True, exist_ok=True)
    with get_context("spawn").Pool(2, maxtasksperchild=1) as pool:
        pool.starmap(draw_ballpark, [(name, folder / f"{name}.jpg") for name in BALLPARKS],
                     chunksize=1)


def draw_logos(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, draw in LOGOS.items():
        logo(draw).save(folder / f"{name}.jpg", quality=92, subsampling=0)


def main():
    source = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
    draw_ballparks(source / "program" / "Ballparks")
    draw_logos(source / "program" / "Logos")
    icons = source / "src" / "windows" / "icons"
    save_icons(icons)
    save_windows_icon(icons, source / "packaging" / "windows" / "board.ico")


if __name__ == "__main__":
    main()
