#!/usr/bin/env python3
"""Makes the pages that travel with the programs from the documents for users.

    guide_pages.py DOCS_FOLDER TARGET_FOLDER

TARGET_FOLDER gets guide.html, the documents that the guide leads to, and their pictures. Links to
other documents become plain text: those do not travel. Needs the module markdown (Debian:
python3-markdown).
"""
import html
import re
import shutil
import struct
import sys
from pathlib import Path

import markdown

DOCUMENTS = ["guide", "files", "engines", "model"]
WIDTH_MAX = 760  # pixels; also what a plain text window scales to

STYLE = """
body { font-family: sans-serif; line-height: 1.5; max-width: 48em; margin: 0 auto; padding: 1em 1.5em 4em;
       color: #1a1a1a; background: #ffffff; }
h1, h2, h3 { line-height: 1.2; }
h2 { margin-top: 2em; border-bottom: 1px solid #c8c8c8; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { border: 1px solid #c8c8c8; padding: 0.25em 0.6em; text-align: left; vertical-align: top; }
th { background: #eef1f5; }
code, pre { font-family: monospace; background: #f2f2f2; }
pre { padding: 0.8em; overflow-x: auto; }
img { max-width: 100%; height: auto; border: 1px solid #c8c8c8; }
a { color: #0645ad; }
"""

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<style>{style}</style>
</head>
<body>
{body}
</body>
</html>
"""


def size_of_png(path):
    """Width and height in pixels from a PNG's first chunk."""
    head = path.read_bytes()[:24]
    if head[:8] != b"\x89PNG\r\n\x1a\n":
        return None
    return struct.unpack(">II", head[16:24])


def pictures_put(body, source, target):
    """Copies the pictures that a page shows, and gives each its size."""

    def sized(match):
        name = match.group(1)
        picture = source / name
        (target / name).parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(picture, target / name)
        size = size_of_png(picture)
        if size is None:
            return match.group(0)
        width = min(size[0], WIDTH_MAX)
        return f'{match.group(0)} width="{width}" height="{round(size[1] * width / size[0])}"'

    return re.sub(r'src="([^":]+)"', sized, body)


def links_turn(body):
    """Links between the pages lead to the pages; those to documents that do not travel lose theirs."""

    def turned(match):
        target, text = match.group(1), match.group(2)
        if "://" in target or target.startswith("#"):
            return match.group(0)
        name, _, anchor = target.partition("#")
        if name.endswith(".md") and name[:-3] in DOCUMENTS:
            return f'<a href="{name[:-3]}.html{"#" + anchor if anchor else ""}">{text}</a>'
        return text

    return re.sub(r'<a href="([^"]*)">(.*?)</a>', turned, body, flags=re.S)


def page_make(source, target, name):
    text = (source / f"{name}.md").read_text(encoding="utf-8")
    title = re.search(r"^# (.*)$", text, re.M).group(1)
    body = markdown.markdown(text, extensions=["tables", "fenced_code", "toc", "sane_lists"])
    body = links_turn(pictures_put(body, source, target))
    page = PAGE.format(title=html.escape(title), style=STYLE, body=body)
    (target / f"{name}.html").write_text(page, encoding="utf-8", newline="\n")


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: guide_pages.py DOCS_FOLDER TARGET_FOLDER")
    source, target = Path(sys.argv[1]), Path(sys.argv[2])
    target.mkdir(parents=True, exist_ok=True)
    for name in DOCUMENTS:
        page_make(source, target, name)


main()
