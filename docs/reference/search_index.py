#!/usr/bin/env python3
"""search_index.py TAGFILE: the names that search.js looks through, from Doxygen's tag file, as
JavaScript: [name, page, what it belongs to]."""
import json
import sys
import xml.etree.ElementTree as xml

MEMBERS = {"function", "typedef", "enumvalue", "variable"}
COMPOUNDS = {"group": "group", "page": "page", "file": "header", "struct": "type"}


def page_of(name):
    return name if name.endswith(".html") else name + ".html"


def entries(root):
    for compound in root.iter("compound"):
        kind, name = compound.get("kind"), compound.findtext("name")
        title = compound.findtext("title") or name
        if kind in COMPOUNDS:
            yield title, page_of(compound.findtext("filename")), COMPOUNDS[kind]
        for member in compound.iter("member"):
            if member.get("kind") in MEMBERS:
                page, anchor = member.findtext("anchorfile"), member.findtext("anchor")
                yield member.findtext("name"), f"{page_of(page)}#{anchor}", title


def main():
    once = {}
    for name, page, of in entries(xml.parse(sys.argv[1]).getroot()):
        # A member of a group stands in the list of its header, too, with the same page.
        if (name, page) not in once or not of.endswith(".h"):
            once[name, page] = of
    rows = [[name, page, of] for (name, page), of in sorted(once.items())]
    print("const searchIndex =", json.dumps(rows, separators=(",", ":")) + ";")


if __name__ == "__main__":
    main()
