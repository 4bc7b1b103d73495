#!/usr/bin/python3
"""Makes a weapons file: build_weapons.py SOURCE TARGET. The source's head says how its rows are written."""

import sys

STEMS = ("user", "ada", "himad", "abm", "at", "ar", "cav", "fat", "fa", "mrl", "ssm", "ah", "lift", "spt", "eng", "brg",
         "iew", "iewa", "hq", "inf", "mech", "mp", "nbc", "psy", "rec", "sf", "uav")
MOBILITY = {"foot": 0, "wheel": 1, "track": 2, "air": 3}
SENSOR = {"optical": 0, "thermal": 1, "radar": 2, "elint": 3}
SIDE = {"B": 1, "R": 2}


class BadRow(Exception):
    pass


def number(text):
    """A number as the file writes it: a blank before it unless it is negative, no needless digits."""
    whole, _, part = text.partition(".")
    whole, part = str(int(whole)), part.rstrip("0")
    return " " + whole + ("." + part if part else "")


def text(value, width):
    if len(value) > width:
        raise BadRow(f"{value!r} is longer than {width}")
    return value.ljust(width)


def row_lines(line):
    name, nation, side, role, size, mobility, power, reach, least, sensor = (w.strip() for w in line.split("|"))
    if not 0 <= int(role) < len(STEMS) or not 0 <= int(size) <= 6:
        raise BadRow("no such role or size")
    if int(size) == 6 and int(role) != 18:
        raise BadRow("only a headquarters is a corps")
    if int(least) > int(reach) or float(power) <= 0:
        raise BadRow("range or power out of order")
    icon = f"{STEMS[int(role)]}{int(size) + 1}.ico"         # the icons count the sizes from 1
    return (f"WPN: {text(name, 20)}", f"NATION: {text(nation, 12)}", f"IMAGE: {text('b' + icon, 40)}",
            f"RIMAGE: {text('r' + icon, 40)}", f"RANGE: {number(reach)}", f"MRANGE: {number(least)}",
            f"RCP: {number(power)}", f"SIDE: {number(str(SIDE[side]))}", f"SIZE: {number(size)}",
            f"TYPE: {number(role)}", f"SENSORT: {number(str(SENSOR[sensor]))}",
            f"MOBILITY: {number(str(MOBILITY[mobility]))}", "IMAGETYPE:  0", "RIMAGETYPE:  0")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    source, target = sys.argv[1:]
    lines, names = [], set()
    with open(source, encoding="ascii") as rows:
        for count, line in enumerate(rows, 1):
            if line.strip() and not line.startswith("#"):
                try:
                    row = row_lines(line)
                    if row[0] in names:
                        raise BadRow("a second row of this name")
                    names.add(row[0])
                    lines += row
                except (BadRow, KeyError, ValueError) as fault:
                    sys.exit(f"{source}:{count}: {fault}")
    with open(target, "wb") as out:
        out.write("".join(line + "\r\n" for line in lines).encode("ascii"))


if __name__ == "__main__":
    main()
