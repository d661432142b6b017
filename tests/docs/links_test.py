#!/usr/bin/env python3
"""Links of the documents lead somewhere, and the index leads to every document."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = [*ROOT.glob("*.md"), *ROOT.glob("docs/*.md"), *ROOT.glob("examples/**/*.md"),
             ROOT / "bench" / "README.md"]


def links(document):
    """The files that a document links to, without what is elsewhere and without code."""
    text = re.sub(r"```.*?```|`[^`]*`", "", document.read_text(encoding="utf-8"), flags=re.DOTALL)
    targets = re.findall(r"\]\(([^)\s]+)\)", text)
    return [(document.parent / target.split("#")[0]).resolve()
            for target in targets if not re.match(r"[a-z]+:|#", target)]


class Documents(unittest.TestCase):
    def test_links_lead_somewhere(self):
        found = 0
        for document in DOCUMENTS:
            for target in links(document):
                found += 1
                self.assertTrue(target.exists(), f"{document}: {target}")
        self.assertGreater(found, 50)

    def test_the_index_leads_to_every_document(self):
        index = set(links(ROOT / "docs" / "README.md"))
        for pattern in ("*.md", "*.1", "*.schema.json", "*.awk"):
            for document in (ROOT / "docs").glob(pattern):
                if document.name != "README.md":
                    self.assertIn(document.resolve(), index)


if __name__ == "__main__":
    unittest.main()
