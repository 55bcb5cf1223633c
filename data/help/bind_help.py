#!/usr/bin/python3
"""Binds the help: bind_help.py FILE FOLDER NAME...

Writes FILE from the pages (.html) and pictures (.png) NAME of FOLDER, in that order: a line with the
SHA-256 sum of what follows, and then one JSON object.
"""

import base64
import hashlib
import json
import pathlib
import sys


def bound(folder, names):
    pages = [name for name in names if name.endswith(".html")]
    pictures = [name for name in names if name.endswith(".png")]
    return {
        "pages": [{"name": name, "html": (folder / name).read_text("utf-8")} for name in pages],
        "pictures": {name: base64.b64encode((folder / name).read_bytes()).decode("ascii")
                     for name in pictures},
    }


def main():
    file, folder, *names = sys.argv[1:]
    content = json.dumps(bound(pathlib.Path(folder), names), ensure_ascii=False, indent=1).encode("utf-8")
    sum_line = hashlib.sha256(content).hexdigest().encode("ascii") + b"\n"
    pathlib.Path(file).write_bytes(sum_line + content)


if __name__ == "__main__":
    main()
