#!/usr/bin/env python3
"""check_links.py HTML_DIR [MARKDOWN...]: every link leads somewhere.

In the pages of HTML_DIR each relative link names a file below it and, where it has a fragment, an
element of that file; in the Markdown files, as a reader of the repository follows them, each
relative link names a file. Links to other hosts are left alone.
"""
import re
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit


class Page(HTMLParser):
    """The links of a page, and the names that a fragment may have."""

    def __init__(self, path):
        super().__init__()
        self.links, self.names = [], {"", "top"}
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        for key, value in attributes:
            if key in ("href", "src") and value:
                self.links.append((self.getpos()[0], value))
            elif key == "id" or (key == "name" and tag == "a"):
                self.names.add(value)


def dead_links(root):
    pages = {path.resolve(): Page(path) for path in sorted(root.rglob("*.html"))}
    if not pages:
        yield f"{root}: no pages"
    for path, page in pages.items():
        for line, link in page.links:
            parts = urlsplit(link)
            if parts.scheme or parts.netloc:
                continue
            target = (path.parent / unquote(parts.path)).resolve() if parts.path else path
            known = pages.get(target)
            if not target.is_file() or not target.is_relative_to(root.resolve()):
                yield f"{path.name}:{line}: no such file: {link}"
            elif known and unquote(parts.fragment) not in known.names:
                yield f"{path.name}:{line}: no such place: {link}"


def dead_markdown_links(path):
    fence = False
    for line, text in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        fence ^= text.startswith("```")
        for link in [] if fence else re.findall(r"\]\(([^)\s]+)\)", re.sub("`[^`]*`", "", text)):
            parts = urlsplit(link)
            if not parts.scheme and parts.path and not (path.parent / parts.path).exists():
                yield f"{path}:{line}: no such file: {link}"


def main():
    dead = list(dead_links(Path(sys.argv[1])))
    for name in sys.argv[2:]:
        dead += dead_markdown_links(Path(name))
    for message in dead:
        print(message, file=sys.stderr)
    return bool(dead)


if __name__ == "__main__":
    sys.exit(main())
