"""Tests of tools/manual/build: what it refuses, and what it makes."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD = Path(__file__).resolve().parents[2] / "tools/manual/build"
FIELDS = "title: A page\norder: 1\n\n"


def build(pages, pictures=("seen.png",), target=None):
    """Builds a manual of these pages; gives the exit status, the words of complaint, the folder."""
    source = Path(tempfile.mkdtemp(dir=folder))
    target = target or Path(tempfile.mkdtemp(dir=folder)) / "Help"
    (source / "pictures").mkdir()
    for name, text in pages.items():
        (source / name).write_text(text, "utf-8")
    for name in pictures:
        (source / "pictures" / name).write_bytes(b"PNG")
    (source / "style.css").write_text("p {}")
    (source / "template.html").write_text("$charset|$title|$navigation|$body|$neighbours", "utf-8")
    run = subprocess.run([sys.executable, BUILD, source, target], capture_output=True, text=True)
    return run.returncode, run.stderr, target


class BuildTest(unittest.TestCase):
    def test_faults_end_the_build_with_nothing_written(self):
        seen = "![Seen](pictures/seen.png)\n"
        for body, complaint in [
            ("[x](gone.html)", "index.html: the link 'gone.html' leads nowhere"),
            ("[x](index.html#gone)", "no such section"),
            ("[x](#gone)", "no such section"),
            ("![x](pictures/gone.png)", "there is no picture 'pictures/gone.png'"),
            ("![](pictures/seen.png)", "has no text"),
        ]:
            with self.subTest(body):
                status, words, target = build({"index.md": FIELDS + seen + body})
                self.assertEqual(status, 1)
                self.assertIn(complaint, words)
                self.assertFalse(target.exists())
        for pages, complaint in [
            ({"index.md": FIELDS}, "pictures/seen.png: no page shows it"),
            ({"other.md": FIELDS + seen}, "no page index.html"),
            ({"index.md": seen}, "no fields"),
        ]:
            with self.subTest(complaint):
                status, words, _ = build(pages)
                self.assertEqual(status, 1)
                self.assertIn(complaint, words)

    def test_links_that_lead_somewhere_and_comments_are_no_faults(self):
        status, words, target = build({
            "index.md": FIELDS + "# Über „uns“\n\n[a](#uber-uns) [b](two.html#part) "
                        "[c](https://example.org/x)\n<!-- ![x](pictures/later.png) -->\n",
            "two.md": "title: Two\norder: 2\n\n## Part\n\n![Seen](pictures/seen.png)"})
        self.assertEqual((status, words), (0, ""))
        index = (target / "index.html").read_text("utf-8")
        self.assertIn("Über „uns“", index)
        self.assertNotIn("later.png", index)
        self.assertEqual((target / "pictures/seen.png").read_bytes(), b"PNG")

    def test_what_the_manual_lost_goes_from_the_help_folder(self):
        page = FIELDS + "![Seen](pictures/seen.png)"
        _, _, target = build({"index.md": page, "old.md": FIELDS})
        (target / "pictures/old.png").write_bytes(b"PNG")
        self.assertTrue((target / "old.html").exists())
        build({"index.md": page}, target=target)
        self.assertEqual(sorted(path.name for path in target.rglob("*") if path.is_file()),
                         ["index.html", "seen.png", "style.css"])


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        unittest.main()
