#!/usr/bin/env python3
"""Builds the world's airport list from an SQLite file of OurAirports data.

    python3 make_airport_list.py SOURCE.sqlite OUT
"""

import re
import sqlite3
import sys
import unicodedata
from collections.abc import Iterable
from contextlib import closing
from pathlib import Path
from typing import NamedTuple

from names import CODE_LETTERS, COUNTRIES, ELEVATIONS, LETTERS, PROVINCES, SIMULATOR_CODES

MOST_LINES = 24000
LONGEST_ENTRY = 35
# Airports with a figure in their code are mostly private strips: the limit keeps the list under MOST_LINES.
SHORTEST_RUNWAY_FEET = 2001

SELECT_LAND_AIRPORTS = """
    SELECT icao, name, city, country, country_code, state, latitude, longitude, elevation_ft,
           (SELECT MAX(length_ft) FROM runways WHERE airport_id = airports.id) AS longest_runway_feet
    FROM airports
    WHERE type IN ('small_airport', 'medium_airport', 'large_airport')
"""

CODE = re.compile(r"[A-Z0-9]{4}")
LETTERS_ONLY = re.compile(r"[A-Z]{4}")
# A few records are no airport by their name, whatever their type says.
NO_AIRPORT = re.compile(r"\b(?:heliport|helipad|duplicate)\b|\(closed\b", re.IGNORECASE)
# A description where the city should stand.
NO_CITY = re.compile(r"\bairfield in the\b", re.IGNORECASE)

ASIDE = re.compile(r"\s*\([^)]*\)|\s+[/-]\s.*|,.*")
NAME_START = re.compile(r"^(?:(?:Aérodrome|Altiport|Aeródromo)\s+(?:de\s+|d')?|Sport Airfield\s+|RAAF\s+(?:Base\s+)?|RNZAF\s+Base\s+)")
NAME_END = re.compile(
    r"\s+(?:Airport|Airfield|Airstrip|Airbase|Airpark|Aerodrome|Altiport|International|Regional|Municipal"
    r"|(?:Military )?Air Base|Air Force (?:Base|Station)|Glider(?: Field)?|Advanced Landing Ground"
    r"|Army Aviation Centre|Marine Corps Air Station|Private)$",
    re.IGNORECASE,
)


class Airport(NamedTuple):
    """One land airport as the source has it."""

    code: str
    name: str
    city: str | None
    country: str
    country_code: str
    province_code: str | None
    latitude: float
    longitude: float
    elevation_feet: int | None
    longest_runway_feet: int | None


class Line(NamedTuple):
    """The six fields of a line."""

    country: str
    province: str
    name: str
    city: str
    code: str
    entry: str


def read_land_airports(source: Path) -> list[Airport]:
    """Reads the airports that are open and on land."""
    with closing(sqlite3.connect(f"{source.resolve().as_uri()}?mode=ro", uri=True)) as database:
        return [Airport(*row) for row in database.execute(SELECT_LAND_AIRPORTS)]


def is_listed(airport: Airport) -> bool:
    """Whether the list has room for the airport."""
    if not CODE.fullmatch(airport.code) or NO_AIRPORT.search(airport.name):
        return False
    if LETTERS_ONLY.fullmatch(airport.code):
        return airport.code[0] in CODE_LETTERS.get(airport.country_code, airport.code)
    return (airport.longest_runway_feet or 0) >= SHORTEST_RUNWAY_FEET


def in_code_page(character: str) -> str:
    """The character itself, or what stands for it where Windows-1252 lacks it."""
    try:
        character.encode("cp1252")
        return character
    except UnicodeEncodeError:
        base = "".join(c for c in unicodedata.normalize("NFKD", character) if not unicodedata.combining(c))
        return "".join(LETTERS.get(c, c) for c in base)


def clean(text: str) -> str:
    """The text as a field: in the code page, blanks single, nothing that would break the line."""
    composed = unicodedata.normalize("NFC", " ".join(text.split())).replace("|", "/")
    visible = "".join(c for c in composed if not unicodedata.category(c).startswith("C"))
    # The program tells the code from the rest of an entry by the first " - ".
    return " ".join("".join(map(in_code_page, visible)).split()).replace(" - ", " / ")


def place_in(name: str) -> str:
    """The place that an airport's name speaks of."""
    place = NAME_START.sub("", ASIDE.sub("", name))
    while (shorter := NAME_END.sub("", place)) != place:
        place = shorter
    return place or name


def city_of(airport: Airport) -> str:
    """The airport's city: its place where the source names none, or the airport itself or what it is."""
    city = clean(airport.city or "")
    if not city or NO_CITY.search(city):
        return place_in(clean(airport.name))
    return place_in(city) if city == clean(airport.name) or NAME_END.search(city) else city


def coordinate(degrees: float, positive: str, negative: str) -> str:
    """Hemisphere, degrees and minutes, rounded as a whole so that no minutes read 60.00."""
    hundredths = round(degrees * 6000)
    whole, rest = divmod(abs(hundredths), 6000)
    return f"{negative if hundredths < 0 else positive}{whole:02d}* {rest // 100:02d}.{rest % 100:02d}'"


def airport_entry(code: str, airport: Airport) -> str:
    """The airport as TTools reads it."""
    entry = ",".join(
        (
            code,
            coordinate(airport.latitude, "N", "S"),
            coordinate(airport.longitude, "E", "W"),
            str(ELEVATIONS.get(airport.code, airport.elevation_feet or 0)),
        )
    )
    if len(entry) > LONGEST_ENTRY:
        raise ValueError(f"airport entry too long: {entry}")
    return entry


def make_line(airport: Airport) -> Line:
    """The airport's line."""
    code = SIMULATOR_CODES.get(airport.code, airport.code)
    divided = airport.country_code in ("AU", "CA", "US")
    return Line(
        country=clean(COUNTRIES.get(airport.country_code, airport.country)),
        province=PROVINCES[airport.province_code or ""] if divided else "",
        name=clean(airport.name),
        city=city_of(airport),
        code=code,
        entry=airport_entry(code, airport),
    )


def sort_key(line: Line) -> tuple[str, str, str, str]:
    """Country, province and name, blind to case; the code tells equal names apart."""
    return line.country.lower(), line.province.lower(), line.name.lower(), line.code


def make_list(airports: Iterable[Airport]) -> bytes:
    """The whole list as its file holds it."""
    lines = sorted(map(make_line, filter(is_listed, airports)), key=sort_key)
    if len({line.code for line in lines}) != len(lines):
        raise ValueError("a code stands in two lines")
    if len(lines) > MOST_LINES:
        raise ValueError(f"{len(lines)} lines, more than {MOST_LINES}")
    return "".join("|".join(line) + "\r\n" for line in lines).encode("cp1252")


def main(arguments: list[str]) -> int:
    """Builds the list named on the command line."""
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    source, out = map(Path, arguments)
    out.write_bytes(make_list(read_land_airports(source)))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
