#!/usr/bin/env python3
"""Packs the figures of the built-in REC533 engine into assets/engine/figures.bin.

usage: engine_figures.py COEFFS_DIR ANTENNAS_DIR DECILES_CSV OUTPUT

COEFFS_DIR    coeff01.asc ... coeff12.asc, fof2CCIR.asc, fof2URSI.asc of the package voacapl-data
ANTENNAS_DIR  const17.voa, swwhip.voa of the same package
DECILES_CSV   decile factors of foF2 (Recommendation ITU-R P.1239, tables 2 and 3):
              decile,season,r12_class,lat,h00 ... h23

The layout of the output is told in assets/engine/README.md and read by src/engine/rec533/Figures.cpp.
"""
import struct
import sys
from pathlib import Path

MAGIC = b"HOPFIG01"
NUMBER_WIDTH = 15  # fixed columns of the coefficient files


def numbers(lines, count):
    """The next `count` numbers of fixed columns."""
    values = []
    while len(values) < count:
        line = next(lines).rstrip("\r\n")
        for i in range(0, len(line.rstrip()), NUMBER_WIDTH):
            values.append(float(line[i:i + NUMBER_WIDTH]))
    if len(values) != count:
        raise SystemExit(f"{len(values)} numbers where {count} were expected")
    return values


def array_of(path, name, count):
    """The array that follows the line `name` of a monthly file."""
    lines = iter(path.read_text(encoding="ascii").splitlines())
    for line in lines:
        if line.startswith(name):
            return numbers(lines, count)
    raise SystemExit(f"{path}: no {name}")


def fof2(path):
    lines = iter(path.read_text(encoding="ascii").splitlines())
    next(lines)
    values = []
    for month in range(1, 13):
        title = next(lines)
        if title.split("=")[1].strip() != str(month):
            raise SystemExit(f"{path}: month {month} expected, found {title}")
        values += numbers(lines, 1976)
    return values


def antenna(path):
    lines = path.read_text(encoding="ascii").splitlines()
    gain = float(lines[2].split()[0])
    if lines[3].split()[0] != "11":
        raise SystemExit(f"{path}: not a table of 91 gains")
    table = [float(x) for line in lines[5:] for x in line.split()]
    if len(table) != 91:
        raise SystemExit(f"{path}: {len(table)} gains")
    return [gain] + table


def deciles(path):
    rows = {}
    for line in path.read_text(encoding="ascii").splitlines()[1:]:
        cell = line.split(",")
        rows[cell[0], cell[1], int(cell[2]), int(cell[3])] = [round(float(x) * 100) for x in cell[4:]]
    out = bytearray()
    for decile in ("lower", "upper"):
        for season in ("winter", "equinox", "summer"):
            for level in range(3):
                for lat in range(0, 91, 5):
                    out += bytes(rows[decile, season, level, lat])
    return bytes(out)


def main():
    coeffs, antennas, table, output = map(Path, sys.argv[1:])
    month_file = [coeffs / f"coeff{month:02d}.asc" for month in range(1, 13)]
    values = fof2(coeffs / "fof2CCIR.asc") + fof2(coeffs / "fof2URSI.asc")
    for path in month_file:
        values += array_of(path, "XFM3CF", 882)
    for season in (1, 4, 7, 10):  # the noise figures are the same within Dec-Feb, Mar-May ...
        first = None
        for month in (season + 10) % 12 + 1, season, season + 1:
            block = []
            for name, count in (("DUD", 300), ("FAM", 168), ("FAKP", 2784), ("FAKABP", 12)):
                block += array_of(month_file[month - 1], name, count)
            if first is not None and block != first:
                raise SystemExit(f"noise figures of month {month} differ within their season")
            first = block
        values += first
    for name in ("const17.voa", "swwhip.voa"):
        values += antenna(antennas / name)
    output.write_bytes(MAGIC + struct.pack(f"<{len(values)}f", *values) + deciles(table))


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    main()
