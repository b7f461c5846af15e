#!/usr/bin/env python3
"""Runs the Python examples of a document as its reader would: one after the other, in one session, in a recording's
folder. Ends with the document's name and line when one of them fails.

    run_examples.py DOCUMENT FOLDER
"""

import os
import sys
import traceback
import warnings
from pathlib import Path


class Fault(Exception):
    pass


def examples(lines):
    """The code of every ```python block, with the number of the line before it."""
    fence = language = None
    for number, line in enumerate(lines, 1):
        mark = line.strip()
        if not mark.startswith('```'):
            continue
        if fence is None:
            fence, language = number, mark[3:]
        elif mark == '```':
            if language == 'python':
                yield fence, '\n'.join(lines[fence:number - 1])
            fence = None
        else:
            raise Fault(f'line {fence}: this fence is still open where another begins, at line {number}')
    if fence is not None:
        raise Fault(f'line {fence}: this fence is never closed')


def run(document, folder):
    """How many examples there are; all of them ran."""
    lines = document.read_text(encoding='utf-8').splitlines()
    blocks = list(examples(lines))
    if not blocks:
        raise Fault('there is no Python example')
    os.chdir(folder)
    for kind in RuntimeWarning, UserWarning:           # such as a division by 0, or a file without data
        warnings.simplefilter('error', kind)
    session = {}
    for before, code in blocks:
        try:
            # Empty lines in front: Python then counts as the document does.
            exec(compile('\n' * before + code, str(document), 'exec'), session)
        except Exception as error:
            frames = traceback.extract_tb(error.__traceback__)
            places = [frame.lineno for frame in frames if frame.filename == str(document)]
            line = places[0] if places else error.lineno       # without a place: of what cannot be read at all
            raise Fault(f'line {line}: {lines[line - 1].strip()}\n{type(error).__name__}: {error}') from None
    return len(blocks)


def main():
    document, folder = (Path(argument).resolve() for argument in sys.argv[1:])
    try:
        print(f'{document.name}: {run(document, folder)} examples ran.')
    except Fault as fault:
        sys.exit(f'{document.name}, {fault}')


if __name__ == '__main__':
    main()
