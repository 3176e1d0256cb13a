"""Builds a list from a small source, and checks the list that the program ships."""

import re
import sqlite3
import sys
import tempfile
import unittest
from contextlib import closing
from itertools import permutations
from pathlib import Path

HERE = Path(__file__).resolve().parent
DATA = HERE.parents[1] / "data"
sys.path.insert(0, str(DATA))

import make_airport_list as maker  # noqa: E402
from names import COUNTRIES, PROVINCES, SIMULATOR_CODES  # noqa: E402

DIVIDED = {"Australia": "AU", "Canada": "CA", "United States": "US"}
DEGREES = r"(?:\d\d|1\d\d)\* [0-5]\d\.\d\d'"
ENTRY = re.compile(rf"([A-Z0-9]{{4}}),[NS]{DEGREES},[EW]{DEGREES},(?:0|-?[1-9]\d*)")


def airport(**changes: object) -> maker.Airport:
    """A plain airport but for the changes."""
    plain = maker.Airport("KSEA", "Field", "Town", "United States", "US", "US-WA", 47.447943, -122.310276, 433, 9000)
    return plain._replace(**changes)


class Building(unittest.TestCase):
    def build(self, folder: Path) -> bytes:
        source, out = folder / "airports.sqlite", folder / "LIST.OCX"
        with closing(sqlite3.connect(source)) as database:
            database.executescript((HERE / "airports.sql").read_text(encoding="utf-8"))
        self.assertEqual(maker.main([str(source), str(out)]), 0)
        return out.read_bytes()

    def test_a_small_source_gives_the_expected_bytes(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(self.build(Path(folder)), (HERE / "expected_airports.OCX").read_bytes())

    def test_the_order_of_the_source_does_not_matter(self) -> None:
        airports = [airport(code=code, name=name) for code, name in (("KBBB", "b"), ("KAAA", "B"), ("KCCC", "C"))]
        wanted = maker.make_list(airports)
        lines = wanted.decode("cp1252").split("\r\n")[:-1]
        self.assertEqual([line.split("|")[4] for line in lines], ["KAAA", "KBBB", "KCCC"])
        for shuffled in permutations(airports):
            self.assertEqual(maker.make_list(shuffled), wanted)

    def test_minutes_are_rounded_with_their_degrees(self) -> None:
        def coordinate(degrees: float) -> str:
            return maker.coordinate(degrees, "N", "S")

        self.assertEqual(coordinate(47.447943), "N47* 26.88'")
        self.assertEqual(coordinate(46.99999), "N47* 00.00'")
        self.assertEqual(coordinate(-99.99999), "S100* 00.00'")
        self.assertEqual(coordinate(-5.0835), "S05* 05.01'")
        self.assertEqual(coordinate(-0.00001), "N00* 00.00'")

    def test_an_entry_that_ttools_cannot_take_is_refused(self) -> None:
        longest = airport(elevation_feet=-1266)
        self.assertEqual(len(maker.airport_entry("KSEA", longest)), maker.LONGEST_ENTRY)
        with self.assertRaises(ValueError):
            maker.airport_entry("KSEA", airport(elevation_feet=-12660))

    def test_a_replaced_code_may_not_stand_twice(self) -> None:
        with self.assertRaises(ValueError):
            maker.make_list([airport(code=code, country="South Africa", country_code="ZA") for code in ("FAOR", "FAJS")])

    def test_the_list_has_a_greatest_length(self) -> None:
        letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
        codes = ["".join((a, b, c, d)) for a in letters[:2] for b in letters for c in letters for d in letters]
        elsewhere = {"country": "Greenland", "country_code": "GL"}
        fitting = [airport(code=code, **elsewhere) for code in codes[: maker.MOST_LINES]]
        self.assertEqual(maker.make_list(fitting).count(b"\r\n"), maker.MOST_LINES)
        with self.assertRaises(ValueError):
            maker.make_list([*fitting, airport(code="ZZZZ", **elsewhere)])

    def test_fields_hold_nothing_that_breaks_a_line(self) -> None:
        self.assertEqual(maker.clean(" G\u00fceppi\u00ad\t|\u00a0 Field\r\n"), "G\u00fceppi / Field")
        self.assertEqual(maker.clean("e\u0301 \u0141\u00f3d\u017a \u0130stanbul"), "\u00e9 L\u00f3dz Istanbul")

    def test_a_letter_without_a_counterpart_is_refused(self) -> None:
        with self.assertRaises(UnicodeEncodeError):
            maker.make_list([airport(name="\u6771\u4eac")])

    def test_a_missing_city_is_the_place_in_the_name(self) -> None:
        for name, place in (
            ("Galatea Airfield", "Galatea"),
            ("Forster (Wallis Is) Airport", "Forster"),
            ("A\u00e9rodrome d'\u00c9gletons", "\u00c9gletons"),
            ("RNZAF Base Ohakea", "Ohakea"),
            ("Minsk Mazowiecki Military Air Base", "Minsk Mazowiecki"),
            ("Airport", "Airport"),
        ):
            self.assertEqual(maker.place_in(name), place)


    def test_a_description_in_place_of_a_city_counts_as_missing(self) -> None:
        line = maker.make_line(airport(name="Kyabram Airport", city="Private Airfield in the Shire of Campaspe"))
        self.assertEqual(line.city, "Kyabram")
        self.assertEqual(maker.make_line(airport(city="Lake in the Hills")).city, "Lake in the Hills")

    def test_an_airport_in_place_of_a_city_is_its_place(self) -> None:
        for city, place in (
            ("Lavan Airport", "Lavan"),
            ("Paihia Private Airport", "Paihia"),
            ("Beale Air Force Base", "Beale"),
            ("International Falls", "International Falls"),
            ("Regional City, Upper", "Regional City, Upper"),
        ):
            self.assertEqual(maker.make_line(airport(city=city)).city, place)
        popovi = airport(name="Sport Airfield Popovi", city="Sport Airfield Popovi")
        self.assertEqual(maker.make_line(popovi).city, "Popovi")

    def test_closed_airports_and_foreign_codes_are_left_out(self) -> None:
        self.assertTrue(maker.is_listed(airport()))
        for changes in (
            {"name": "Piquet Airport (Closed?)"},
            {"name": "Old Field (closed)"},
            {"code": "BUTL"},
            {"code": "OZKL", "country_code": "AU"},
        ):
            self.assertFalse(maker.is_listed(airport(**changes)), changes)
        self.assertTrue(maker.is_listed(airport(code="BUTL", country_code="GL")))

    def test_a_wrong_height_of_the_source_is_put_right(self) -> None:
        self.assertTrue(maker.make_line(airport(code="HECA", country_code="EG")).entry.endswith(",382"))


class ShippedList(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.content = (DATA / "ZENTAM.OCX").read_bytes()
        cls.lines = [line.split("|") for line in cls.content.decode("cp1252").split("\r\n")[:-1]]
        cls.codes = [line[4] for line in cls.lines]

    def test_every_line_ends_with_cr_lf(self) -> None:
        self.assertTrue(self.content.endswith(b"\r\n"))
        self.assertEqual({self.content.count(b"\r\n")}, {self.content.count(b"\r"), self.content.count(b"\n")})

    def test_no_city_is_an_airport(self) -> None:
        ends = re.compile(r" (?:Airport|Airfield|Airstrip|Private|Air Force Base)$")
        self.assertEqual([line[4] for line in self.lines if ends.search(line[3])], [])

    def test_the_list_is_just_under_its_greatest_length(self) -> None:
        self.assertLess(len(self.lines), maker.MOST_LINES)
        self.assertGreater(len(self.lines), maker.MOST_LINES - 200)

    def test_every_line_has_six_clean_fields(self) -> None:
        for line in self.lines:
            self.assertEqual(len(line), 6, line)
            for field in line:
                self.assertEqual(field, field.strip(), line)
                self.assertTrue(field.isprintable() and "  " not in field, line)
            self.assertTrue(all(field for position, field in enumerate(line) if position != 1), line)

    def test_no_field_holds_the_separator_of_a_list_entry(self) -> None:
        for line in self.lines:
            self.assertFalse(any(" - " in field for field in line), line)

    def test_no_country_or_province_looks_like_an_airport_of_the_file(self) -> None:
        # An entry whose 6th character is "-" counts as one that is there already.
        for name in {field for line in self.lines for field in line[:2]}:
            self.assertNotEqual(name[5:6], "-", name)

    def test_every_airport_entry_is_one_that_ttools_reads(self) -> None:
        for line in self.lines:
            match = ENTRY.fullmatch(line[5])
            self.assertIsNotNone(match, line)
            self.assertEqual(match[1], line[4])
            self.assertLessEqual(len(line[5]), maker.LONGEST_ENTRY)

    def test_no_airport_is_closed(self) -> None:
        self.assertEqual([line for line in self.lines if "closed" in line[2].lower()], [])

    def test_no_code_stands_twice(self) -> None:
        self.assertEqual(len(set(self.codes)), len(self.codes))

    def test_replaced_codes_are_the_simulators(self) -> None:
        self.assertEqual(set(SIMULATOR_CODES) & set(self.codes), set())
        self.assertLessEqual(set(SIMULATOR_CODES.values()), set(self.codes))

    def test_provinces_are_filled_where_they_are_needed(self) -> None:
        for line in self.lines:
            prefix = DIVIDED.get(line[0])
            names = {name for code, name in PROVINCES.items() if code[:2] == prefix}
            self.assertIn(line[1], names or {""}, line)
        self.assertEqual({line[1] for line in self.lines} - {""}, set(PROVINCES.values()))

    def test_no_country_begins_with_another(self) -> None:
        countries = {line[0] for line in self.lines}
        for one, other in permutations(countries, 2):
            self.assertFalse(one.lower().startswith(other.lower()), f"{one} begins with {other}")
        self.assertLessEqual(set(COUNTRIES.values()), countries)

    def test_lines_are_in_order(self) -> None:
        keys = [maker.sort_key(maker.Line(*line)) for line in self.lines]
        self.assertEqual(keys, sorted(keys))

    def test_well_known_airports(self) -> None:
        lines = {"|".join(line) for line in self.lines}
        for wanted in (
            "United States|Washington|Seattle\u2013Tacoma International Airport|Seattle|KSEA"
            "|KSEA,N47* 26.88',W122* 18.62',433",
            "South Africa||O.R. Tambo International Airport|Johannesburg|FAJS|FAJS,S26* 08.40',E28* 14.81',5558",
            "Egypt||Cairo International Airport|Cairo|HECA|HECA,N30* 06.69',E31* 23.80',382",
            "Australia|Victoria|Kyabram Airport|Kyabram|YKYB|YKYB,S36* 19.95',E144* 58.32',340",
            "Netherlands||Amsterdam Airport Schiphol|Amsterdam|EHAM|EHAM,N52* 18.52',E04* 45.83',-11",
        ):
            self.assertTrue(wanted in lines, wanted)


class Readme(unittest.TestCase):
    def test_it_lists_each_replaced_code(self) -> None:
        rows = re.findall(r"^\| ([A-Z]{4}) \| ([A-Z]{4}) \|", (DATA / "README.md").read_text(encoding="utf-8"), re.M)
        self.assertEqual(dict(rows), SIMULATOR_CODES)


if __name__ == "__main__":
    unittest.main()
