#!/usr/bin/env python3
"""What the two checks of the documents have to find."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).parent


class Checks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name, *lines):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text('\n'.join(lines) + '\n', encoding='utf-8')
        return path

    def run_check(self, check, *arguments):
        outcome = subprocess.run([sys.executable, HERE / check, *arguments], capture_output=True, text=True)
        return outcome.returncode, outcome.stdout + outcome.stderr

    def test_examples_share_a_session_and_name_the_line_of_a_fault(self):
        document = self.write('a.md', '# A', '```python', 'x = open("data").read()', '```', 'and', '```matlab', 'x = ;',
                              '```', '```python', 'y = int(x)', 'assert y == 8', '```')
        self.write('data', '8')
        self.assertEqual(self.run_check('run_examples.py', document, self.folder), (0, 'a.md: 2 examples ran.\n'))
        self.write('data', '9')
        code, said = self.run_check('run_examples.py', document, self.folder)
        self.assertEqual((code, said), (1, 'a.md, line 11: assert y == 8\nAssertionError: \n'))

    def test_examples_must_be_there_and_closed(self):
        for lines, expected in [(['# A'], 'a.md, there is no Python example\n'),
                                (['```python', 'x = 1'], 'a.md, line 1: this fence is never closed\n'),
                                (['```python', 'x = 1', '## B', '```python', '```'],
                                 'a.md, line 1: this fence is still open where another begins, at line 4\n'),
                                (['```python', 'x = 1', 'x +', '```'],
                                 'a.md, line 3: x +\nSyntaxError: invalid syntax (a.md, line 3)\n')]:
            code, said = self.run_check('run_examples.py', self.write('a.md', *lines), self.folder)
            self.assertEqual((code, said.replace(f'{self.folder}/', '')), (1, expected))

    def test_links_and_pictures(self):
        self.write('docs/b.md', '## One: `.two` & three', '```', '# not a heading', '```', '## Again', '## Again')
        self.write('docs/images/old.png')
        self.write('pictures/new.png')
        self.write('README.md', '[b](docs/b.md#one-two--three) [again](docs/b.md#again-1) <https://x.y>',
                   '`[code](nowhere)` [c](docs/c.md) [d](docs/b.md#not-a-heading) ![e](docs/images/old.png)')
        code, said = self.run_check('check_links.py', self.folder, self.folder / 'pictures')
        self.assertEqual((code, said.splitlines()), (1, [
            'README.md, line 2: docs/c.md: there is no such file',
            'README.md, line 2: docs/b.md#not-a-heading: there is no such heading',
            'README.md, line 2: docs/images/old.png: the tour takes no such picture',
            'docs/images/new.png: missing; see scripts/pictures',
            'docs/images/old.png: the tour takes no such picture']))


if __name__ == '__main__':
    unittest.main()
