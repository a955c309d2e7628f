"""Prints a report as a browser understands it: the title, the rows of each table with cells parted
by "|", a line "--" behind each table, and the comment with "<br>" for each line's end."""
import sys

import html5lib

XHTML = "{http://www.w3.org/1999/xhtml}"


def text_behind(element):
    return (element.text or "") + "".join(
        ("<br>" if child.tag == XHTML + "br" else "") + text_behind(child) + (child.tail or "")
        for child in element)


def main(path):
    with open(path, "rb") as stream:
        body = html5lib.parse(stream).find(XHTML + "body")
    print((body.text or "").strip("\n\xa0"))
    for child in body:
        if child.tag == XHTML + "table":
            for row in child.iter(XHTML + "tr"):
                print("|".join("".join(cell.itertext()) for cell in row))
            print("--")
        elif child.tag == XHTML + "br":
            print("<br>", end="")
        else:
            print(text_behind(child), end="")
        print((child.tail or "").strip("\n\xa0"), end="")
    print()


sys.stdout.reconfigure(encoding="utf-8")
main(sys.argv[1])
