"""The help pages lead to each other and load nothing from outside, show every picture there is, and
explain every control and every message of the program."""

import html
import re
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGES = [*sorted((ROOT / "Docs").glob("*.htm")), ROOT / "Donate.htm"]
IMAGES = sorted((ROOT / "Docs" / "images").iterdir())
OPENED = ["MorlenEHelp.htm", "AIAircraftLoader.htm", "AIAirportLoader.htm", "MorlenEdit.htm", "VarloHelp.htm"]
FOLDERS = ["app", "aircraft_loader", "airport_loader", "fpset", "config_editor"]
MOST_BYTES_OF_A_PICTURE = 120_000

# Present in the program, and never on the screen.
NEVER_SHOWN = {"Duplicate Airport!", "<--- Previous List"}

STRING = r'"((?:[^"\\\n]|\\.)*)"'


def text_of(page: Path) -> str:
    return page.read_text(encoding="utf-8")


def plain(text: str) -> str:
    """What a reader sees: no tags, blanks of any kind and number as one."""
    return " ".join(html.unescape(re.sub(r"<[^>]*>", " ", text)).split())


ALL_TEXT = " ".join(plain(text_of(page)) for page in PAGES)


def sources(pattern: str) -> list[Path]:
    return [path for folder in FOLDERS for path in sorted((ROOT / folder).rglob(pattern))]


def arguments(code: str, start: int) -> str:
    """From a position behind an opening bracket to the one that closes it."""
    depth = 1
    for match in re.compile(STRING + r"|[()]").finditer(code, start):
        depth += {"(": 1, ")": -1}.get(match[0], 0)
        if depth == 0:
            return code[start : match.start()]
    return code[start:]


def constants_in(code: str) -> dict[str, str]:
    return dict(re.findall(r"constexpr QLatin1StringView (\w+) =\s*" + STRING, code))


def literals(code: str, constants: dict[str, str]) -> list[str]:
    """The string literals in a piece of code, adjacent ones joined, named ones looked up."""
    joined = re.sub(r'"(?:_s|_L1)?\s*\n\s*u?"', "", code)
    named = [constants[word] for word in re.findall(r"\b[a-z]\w+\b", re.sub(STRING, "", joined)) if word in constants]
    return re.findall(STRING, joined) + named


def messages_in(code: str) -> set[str]:
    """The titles and texts of all boxes, and the prompts in labels and lists, in the pieces that stand
    between values and line breaks."""
    constants = constants_in(code)
    found: list[str] = []
    for call in re.finditer(r"(?:dialogs\.show|\bshowNotice|\bask)\(", code):
        found += literals(arguments(code, call.end()), constants)
    for call in re.finditer(r"\berrors\.(?:run|show)\(\s*(u?" + STRING + r"|\w+)", code):
        found += literals(call[1], constants)
    found += [text for name, text in constants.items() if name.endswith(("Prompt", "Notice"))]
    pieces = (" ".join(piece.strip(" <->").split()) for text in found for piece in re.split(r"\\r|\\n", text))
    return {piece for piece in pieces if re.search(r"\w", piece)}


class Messages(unittest.TestCase):
    """The search for messages itself finds each kind."""

    def test_every_way_to_speak_to_the_user_is_found(self) -> None:
        code = r"""
            constexpr QLatin1StringView name = "Named Title"_L1;
            constexpr QLatin1StringView shownPrompt = "<--- In a label"_L1;
            m_dialogs.show({.prompt = u"First (one) "_s + path + u"\r\rSecond"_s
                                    u" half"_s, .title = name});
            m_services.errors.run(u"A Title"_s, [this](Step &step) { step.set(u"a step"_s); });
            m_services.errors.show(name, error);
            showNotice("A notice");
            ask("Ask Title", "Asked");
        """
        self.assertEqual(
            messages_in(code),
            {"Named Title", "First (one)", "Second half", "A Title", "A notice", "Ask Title", "Asked", "In a label"},
        )


class HelpPages(unittest.TestCase):
    def test_every_page_that_a_link_of_the_program_opens_is_there(self) -> None:
        self.assertLessEqual(set(OPENED), {page.name for page in PAGES})

    def test_every_link_leads_to_a_file(self) -> None:
        for page in PAGES:
            for link in re.findall(r'(?:href|src)="([^"#]+)', text_of(page)):
                self.assertTrue((page.parent / link).is_file(), f"{page.name}: {link}")

    def test_every_link_into_a_page_leads_to_a_place_in_it(self) -> None:
        for page in PAGES:
            for link, place in re.findall(r'href="([^"#]*)#([^"]+)"', text_of(page)):
                target = page.parent / link if link else page
                self.assertIn(f'id="{place}"', text_of(target), f"{page.name}: {link}#{place}")

    def test_every_page_links_to_all_others(self) -> None:
        for page in PAGES:
            linked = {Path(link).name for link in re.findall(r'href="([^"#]+)"', text_of(page))}
            for other in PAGES:
                self.assertTrue(other == page or other.name in linked, f"{page.name}: {other.name}")

    def test_pages_have_no_scripts_and_load_nothing_from_outside(self) -> None:
        for page in [*PAGES, ROOT / "Docs" / "style.css"]:
            self.assertNotRegex(text_of(page), r"(?i)<script|\bon\w+=|https?:|//www|@import|url\(|javascript:")

    def test_pages_share_one_style_sheet(self) -> None:
        for page in PAGES:
            self.assertEqual(len(re.findall(r'<link rel="stylesheet" href="(?:Docs/)?style\.css">', text_of(page))), 1)
            self.assertNotRegex(text_of(page), r"<style|\bstyle=")

    def test_every_element_is_closed(self) -> None:
        for page in PAGES:
            open_elements: list[str] = []
            for end, name in re.findall(r"<(/?)([a-z]\w*)", text_of(page)):
                if end:
                    self.assertEqual(name, open_elements.pop(), page.name)
                elif name not in ("meta", "link", "img"):
                    open_elements.append(name)
            self.assertEqual(open_elements, [], page.name)


class Pictures(unittest.TestCase):
    def test_every_picture_says_in_words_what_it_shows(self) -> None:
        for page in PAGES:
            for figure in re.findall(r"<img[^>]*>", text_of(page)):
                self.assertRegex(figure, r' alt="[^"]{20,}"', page.name)
            self.assertEqual(
                text_of(page).count("<img"), len(re.findall(r"<figure><img[^>]*>\s*<figcaption>\w", text_of(page)))
            )

    def test_every_picture_is_shown_once_and_in_its_own_size(self) -> None:
        shown = [
            (page.parent / name, int(width), int(height))
            for page in PAGES
            for name, width, height in re.findall(r'<img src="([^"]+)" width="(\d+)" height="(\d+)"', text_of(page))
        ]
        self.assertEqual(sorted(name for name, _, _ in shown), IMAGES)
        for name, width, height in shown:
            header = name.read_bytes()[:24]
            self.assertEqual(header[:8], b"\x89PNG\r\n\x1a\n", name)
            size = int.from_bytes(header[16:20], "big"), int.from_bytes(header[20:24], "big")
            self.assertEqual(size, (width, height), name)

    def test_no_picture_is_slow_to_load(self) -> None:
        for image in IMAGES:
            self.assertLess(image.stat().st_size, MOST_BYTES_OF_A_PICTURE, image.name)


class Completeness(unittest.TestCase):
    def assert_explained(self, texts: set[str]) -> None:
        missing = sorted(text for text in texts - NEVER_SHOWN if text not in ALL_TEXT)
        self.assertEqual(missing, [], "not in any help page")

    def test_every_message_is_explained(self) -> None:
        messages = {message for path in sources("*.cpp") for message in messages_in(text_of(path))}
        self.assertGreater(len(messages), 60)
        self.assert_explained(messages)

    def test_every_error_is_explained(self) -> None:
        errors = set(re.findall(r"return " + STRING, text_of(ROOT / "platform" / "runtime_error.cpp")))
        self.assertGreater(len(errors), 10)
        self.assert_explained(errors)

    def test_every_button_option_and_menu_entry_is_explained(self) -> None:
        captions: set[str] = set()
        kinds = r'<(?:widget class="(?:QPushButton|QRadioButton|QCheckBox|LinkLabel)"|action)[^>]*>(.*?)</(?:widget|action)>'
        for form in sources("*.ui"):
            for control in re.findall(kinds, text_of(form), re.DOTALL):
                captions |= {plain(text) for text in re.findall(r'name="text">\s*<string>([^<]*)', control)}
        self.assertGreater(len(captions), 25)
        self.assert_explained(captions)

    def test_every_file_of_the_program_is_explained(self) -> None:
        files: set[str] = set()
        for path in sources("*.cpp"):
            for name in re.findall(r'"\\*([\w\\]+\.(?:ini|txt|OCX|htm))"', text_of(path)):
                files.add(name.split("\\")[-1])
        self.assertGreaterEqual(files, {"MorlenE.ini", "TraceLog.txt", "AircraftList.txt", "ZENTAM.OCX"})
        self.assert_explained({name for name in files if name not in OPENED})
        self.assert_explained({".Backup1", ".Backup2"})


if __name__ == "__main__":
    unittest.main()
