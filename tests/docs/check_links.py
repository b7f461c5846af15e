#!/usr/bin/env python3
"""Checks the documents of a source tree: what they link to is there, file and heading, and docs/images holds the
pictures that the tour takes, no others.

    check_links.py SOURCE_TREE PICTURES_OF_THE_TOUR
"""

import re
import sys
from pathlib import Path

LINK = re.compile(r'\]\(\s*([^)\s]+)[^)]*\)|\bsrc="([^"]+)"')


def prose(document):
    """The lines of a document without its code."""
    fenced = False
    for number, line in enumerate(document.read_text(encoding='utf-8').splitlines(), 1):
        if line.strip().startswith('```'):
            fenced = not fenced
        elif not fenced:
            yield number, line


def anchors(document):
    """The names under which the headings of a document are linked to: small letters, hyphens, no punctuation."""
    plain, names = [], []
    for _, line in prose(document):
        if heading := re.match(r'#+\s+(.*)', line):
            words = re.sub(r'\]\([^)]*\)', ']', heading[1].strip().lower())
            name = re.sub(r'[^\w\- ]', '', words).replace(' ', '-')
            names.append(f'{name}-{plain.count(name)}' if name in plain else name)
            plain.append(name)
    return names


def faults(tree, taken):
    for document in sorted([*tree.glob('*.md'), *tree.glob('docs/**/*.md')]):
        for number, line in prose(document):
            for link in LINK.finditer(re.sub(r'`[^`]*`', '', line)):
                target = link[1] or link[2]
                if re.match(r'[a-z]+:', target):
                    continue
                path, _, anchor = target.partition('#')
                file = (document.parent / path).resolve() if path else document
                where = f'{document.relative_to(tree)}, line {number}: {target}'
                if not file.exists():
                    yield f'{where}: there is no such file'
                elif anchor and anchor not in anchors(file):
                    yield f'{where}: there is no such heading'
                elif file.suffix == '.png' and file.name not in taken:
                    yield f'{where}: the tour takes no such picture'
    kept = {picture.name for picture in tree.glob('docs/images/*')}
    for name in sorted(kept ^ taken):
        fault = 'the tour takes no such picture' if name in kept else 'missing; see scripts/pictures'
        yield f'docs/images/{name}: {fault}'


def main():
    tree, pictures = (Path(argument).resolve() for argument in sys.argv[1:])
    taken = {picture.name for picture in pictures.glob('*.png')}
    found = list(faults(tree, taken)) if taken else [f'{pictures} holds no picture']
    if found:
        sys.exit('\n'.join(found))
    print(f'All links lead somewhere; {len(taken)} pictures.')


if __name__ == '__main__':
    main()
