"""Reads the pages of a season, or the book of all, as a browser does, strictly. Prints how many there
are, and lines of the tables; "hard" stands for the name made of hard letters. Fails where a link leads nowhere."""
import pathlib
import sys
import urllib.parse

import html5lib

XHTML = "{http://www.w3.org/1999/xhtml}"
PLAIN = "</title>\ufffd \"Bad\" & 'O'Neill' \u00f1\u6771 \ufffd\ufffd"


def words(element):
    """Its text, without the place of an entry among others."""
    if element.get("class") == "place":
        return ""
    return (element.text or "") + "".join(words(part) + (part.tail or "") for part in element)


def texts(row):
    cells = [words(cell).strip() for cell in row]
    return [cell.replace(PLAIN, "hard") for cell in cells]


def main(folder):
    pages = sorted(folder.rglob("*.html"))
    linked = {folder / "index.html"}
    for page in pages:
        with open(page, "rb") as stream:
            root = html5lib.HTMLParser(strict=True).parse(stream, transport_encoding="utf-8")
        for element in root.iter():
            link = element.get("href") or element.get("src")
            if link and link.startswith("#"):
                assert sum(other.get("id") == link[1:] for other in root.iter()) == 1, (page, link)
            elif link:
                target = (page.parent / urllib.parse.unquote(link)).resolve()
                assert target.is_file() and folder in target.parents, (page, link)
                linked.add(target)
        tables = list(root.iter(XHTML + "table"))
        for table in tables:
            widths = [len(row) for row in table.iter(XHTML + "tr")]
            assert len(set(widths)) == 1, (page, widths)
            assert len(widths) > 1 or page.name == "index.html", page
        if page.parent.name in ("teams", "players"):  # the last table has the games
            own = texts([next(root.iter(XHTML + ("h1" if page.parent.name == "teams" else "p")))])
            for row in tables[-1].iter(XHTML + "tr"):
                cells = texts(row)[1:4 if page.parent.name == "teams" else 2]
                print(page.parent.name, "|".join(own + cells))
        titles = {}
        for board in root.iter(XHTML + "section"):
            title = words(next(board.iter(XHTML + "h3")))
            titles[title] = titles.get(title, 0) + 1
            for row in list(board.iter(XHTML + "tr"))[1:]:
                print(page.stem, title, "{}|{}".format(titles[title], "|".join(texts(row))))
        rows = [texts(row) for row in tables[0].iter(XHTML + "tr")] if tables else []
        for row in rows[1:]:
            if page.parent.name == "games":
                print("line {}|{}|{}".format(page.stem.split("-")[0], row[0], row[-3]))
            if page.name == "index.html":
                print("standing " + "|".join(row[:3]))
            if page.stem.startswith("games-"):
                print("month " + "|".join(row[1:]))
    assert linked >= set(pages), set(pages) - linked
    print("pages", len(pages))


sys.stdout.reconfigure(encoding="utf-8")
main(pathlib.Path(sys.argv[1]).resolve())
