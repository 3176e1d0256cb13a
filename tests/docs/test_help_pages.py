"""Every help page that the program opens is there, links to what is there, and loads nothing from outside."""

import re
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGES = [*sorted((ROOT / "Docs").glob("*.htm")), ROOT / "Donate.htm"]
OPENED = ["MorlenEHelp.htm", "AIAircraftLoader.htm", "AIAirportLoader.htm", "MorlenEdit.htm", "VarloHelp.htm"]


class HelpPages(unittest.TestCase):
    def test_every_page_that_a_link_of_the_program_opens_is_there(self) -> None:
        self.assertLessEqual(set(OPENED), {page.name for page in PAGES})

    def test_every_link_leads_to_a_file(self) -> None:
        for page in PAGES:
            for link in re.findall(r'(?:href|src)="([^"#]+)', page.read_text(encoding="utf-8")):
                self.assertTrue((page.parent / link).is_file(), f"{page.name}: {link}")

    def test_every_help_page_links_to_all_others(self) -> None:
        for page in PAGES[:-1]:
            text = page.read_text(encoding="utf-8")
            for other in OPENED:
                self.assertTrue(other == page.name or f'href="{other}"' in text, f"{page.name}: {other}")

    def test_pages_have_no_scripts_and_load_nothing_from_outside(self) -> None:
        for page in PAGES:
            self.assertNotRegex(page.read_text(encoding="utf-8"), r"(?i)<script|https?://|//www")


if __name__ == "__main__":
    unittest.main()
