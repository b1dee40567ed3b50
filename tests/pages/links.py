"""Checks the pages of a manual: python3 links.py FOLDER NAMES

All links and all addresses of the search lead to a page, and to a place in it; each line of the file
NAMES is a name that the search finds.
"""

import html.parser
import json
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.ids, self.links, self.doubles = set(), [], []
        self.feed(path.read_text(encoding="utf-8"))
        self.close()

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name == "id":
                if value in self.ids:
                    self.doubles.append(value)
                self.ids.add(value)
            elif name in ("href", "src", "data-home") and not value.startswith("data:"):
                self.links.append(value)


def main(folder, names):
    pages = {path: Page(path) for path in folder.rglob("*.html")}
    others = {path for path in folder.rglob("*") if path.is_file()} - pages.keys()
    wrong = []

    def check(source, link):
        address, _, place = link.partition("#")
        target = source if not address else (source.parent / urllib.parse.unquote(address)).resolve()
        if target not in pages and target not in others:
            wrong.append(f"{source}: no file '{link}'")
        elif place and target in pages and place not in pages[target].ids:
            wrong.append(f"{source}: no place '{link}'")

    for path, page in pages.items():
        wrong += [f"{path}: id '{double}' is there twice" for double in page.doubles]
        for link in page.links:
            check(path, link)
    script = (folder / "search-data.js").read_text(encoding="utf-8")
    rows = json.loads(script[script.index("[") : script.rindex(";")])
    for row in rows:
        check(folder / "index.html", row[1])
    wrong += [f"the search does not know '{name}'" for name in set(names) - {row[0] for row in rows}]
    print("\n".join(wrong[:20]) or f"{len(pages)} pages, {sum(len(page.links) for page in pages.values())} links")
    return 1 if wrong or len(pages) < 2 else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).read_text().split()))
