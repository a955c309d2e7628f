"""Prints a workbook line by line, as another program understands it.

usage: read_workbook.py FILE [SHEET FIRST LAST]   (those rows alone, of a sheet or of "", all)

    sheet|LineScores|11|C:V=3 W:Y=5|visible     row height, widths of columns
    LineScores!A1|s|text|0.00 bold thin:99CCFF fill:FEFEFE

Types are n, s and blank. Control characters and "\\" of texts stand as "\\x0a".
"""
import re
import sys
import zipfile
from xml.etree import ElementTree

import openpyxl
from openpyxl.utils import get_column_letter
from openpyxl.utils.escape import unescape

MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"


def head_of(archive, number):
    """Height of the rows and the columns' own widths; no row may have a height of its own."""
    height, widths = "-", []
    with archive.open(f"xl/worksheets/sheet{number}.xml") as stream:
        for _, element in ElementTree.iterparse(stream, ("start",)):
            if element.tag == MAIN + "sheetFormatPr":
                custom = element.get("customHeight") == "1"
                height = element.get("defaultRowHeight") if custom else "usual"
            if element.tag == MAIN + "col":
                first, last = (get_column_letter(int(element.get(end))) for end in ("min", "max"))
                # The file counts the margins of a cell of 7 pixels a character.
                width = round((float(element.get("width")) * 7 - 5) / 7)
                if widths and widths[-1][2] == width and int(element.get("min")) == next_column:
                    first = widths.pop()[0]
                next_column = int(element.get("max")) + 1
                widths.append((first, last, width))
            if element.tag == MAIN + "row":
                break
    return height, " ".join(
        f"{first}={width}" if first == last else f"{first}:{last}={width}"
        for first, last, width in widths)


def look_of(cell):
    words = [cell.number_format] if cell.number_format != "General" else []
    if cell.font.bold:
        words.append("bold")
    edges = {(edge.style, edge.color.rgb[2:] if edge.color else "-")
             for edge in (cell.border.left, cell.border.right, cell.border.top, cell.border.bottom)}
    for style, colour in edges:
        if style:
            words.append(f"{style}:{colour}")
    if cell.fill.fill_type:
        words.append(f"fill:{cell.fill.fgColor.rgb[2:]}")
    return " ".join(words)


def shown(value):
    text = unescape(value) if isinstance(value, str) else repr(value)
    return re.sub(r"[\x00-\x1f\x7f\\]", lambda found: f"\\x{ord(found[0]):02x}", text)


def main(path, sheet=None, first=1, last=None):
    workbook = openpyxl.load_workbook(path, read_only=True)
    archive = zipfile.ZipFile(path)
    if archive.testzip():
        sys.exit("a checksum is wrong")
    for number, name in enumerate(workbook.sheetnames, 1):
        front = " front" if workbook.active.title == name else ""
        print("sheet", name, *head_of(archive, number), workbook[name].sheet_state + front, sep="|")
        if sheet not in (None, "", name):
            continue
        for row in workbook[name].iter_rows(min_row=int(first), max_row=last and int(last)):
            for cell in row:
                if isinstance(cell, openpyxl.cell.read_only.EmptyCell):
                    continue
                kind = "blank" if cell.value is None else cell.data_type
                value = "" if cell.value is None else shown(cell.value)
                print(f"{name}!{cell.coordinate}", kind, value, look_of(cell), sep="|")


sys.stdout.reconfigure(encoding="utf-8")
main(*sys.argv[1:])
