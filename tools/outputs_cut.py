#!/usr/bin/env python3
"""Cut every value out of the captured engine outputs, for the tests of the readers.

The method is not the readers': blocks are found by their shape and rows by their distance from the
block's first row, labels are only checked afterwards; grids are cut by the columns of the field, not by
the head's label. The texts are written as they stand, without conversion.

usage: tools/outputs_cut.py [tests/propagation/data]
Writes expected/ENGINE_NAME.csv under that folder. Rows:
  path,AZIMUTH,AZIMUTH,MILES           hour,N,MUF,LUF,FOT (MHz)
  cell,HOUR,INDEX,MODE,... in the order of the rows named below
  point,ALONG_LATITUDE,ALONG_LONGITUDE,LATITUDE,LONGITUDE,SNR
"""
import pathlib
import re
import sys

# rows of an hour's block: distance from the FREQ row, and the label that must stand there
VOACAP_ROWS = [(1, "MODE"), (2, "TANGLE"), (3, "DELAY"), (4, "V HITE"), (8, "S DBW"), (9, "N DBW"),
               (21, "SNRxx"), (12, "REL"), (17, "SNR LW"), (18, "SNR UP")]
REC533_ROWS = [(1, "MODE"), (2, "ANGL"), (3, "DBU"), (5, "S/N"), (7, "SNxx"), (6, "FS/N")]


def cut(line, first, last):
    """Columns first..last, counted from 1."""
    return line[first - 1:last]


def frequency_count(deck):
    for line in deck.splitlines():
        if line.startswith("FREQ"):
            return len(line[10:].split())
    raise ValueError("deck without frequencies")


def path_row(lines):
    at = next(i for i, line in enumerate(lines) if line.rstrip().endswith("N. MI.      KM"))
    line = lines[at + 1]
    fields = cut(line, 43, 48), cut(line, 51, 56), cut(line, 60, 66)
    return "path," + ",".join(field.strip() for field in fields)


def block_rows(lines, starts, rows, count, first_column):
    out = []
    for hour, start in enumerate(starts, 1):
        texts = []
        # long paths have one row more, of the angle at the receiver
        longer = 1 if lines[start + 3].rstrip().endswith("RANGLE") else 0
        for distance, label in rows:
            distance += longer if distance > 2 else 0
            line = lines[start + distance]
            assert line.rstrip().endswith(label), (start + distance, line)
            texts.append([cut(line, first_column + 5 * k, first_column + 5 * k + 4) for k in range(count)])
        for k in range(count):
            fields = [texts[0][k]] + [row[k].strip() for row in texts[1:]]
            out.append(f"cell,{hour},{k + 1}," + ",".join(fields))
    return out


def voacap_point_to_point(lines, count):
    out = [path_row(lines)]
    head = next(i for i, line in enumerate(lines) if line.split()[:2] == ["GMT", "LMT"])
    table = [line for line in lines[head + 1:] if line.strip()][:24]
    for hour, line in enumerate(table, 1):
        assert float(line.split()[0]) == hour
        out.append(f"hour,{hour},{cut(line, 39, 43).strip()},{cut(line, 46, 50).strip()},"
                   f"{cut(line, 18, 22).strip()}")
    starts = [i for i, line in enumerate(lines) if re.match(r" +\d+\.0 .* FREQ$", line.rstrip())]
    assert len(starts) == 24
    return out + block_rows(lines, starts, VOACAP_ROWS, count, 12)


def rec533_point_to_point(lines, count):
    out = [path_row(lines)]
    starts = [i for i, line in enumerate(lines)
              if re.match(r"[ \d]+\d\.\d", line) and cut(line, 60, 63) == "FREQ"]
    assert len(starts) == 24
    for hour, start in enumerate(starts, 1):
        line = lines[start]
        out.append(f"hour,{hour},{cut(line, 5, 8).strip()},{cut(line, 65, 68).strip()},"
                   f"{cut(line, 69, 73).strip()}")
    return out + block_rows(lines, starts, REC533_ROWS, count, 9)


def grid(lines, first, last):
    out = []
    for line in lines[3:]:
        fields = cut(line, 4, 6), cut(line, 1, 3), cut(line, 7, 16), cut(line, 17, 26), cut(line, first, last)
        out.append("point," + ",".join(field.strip() for field in fields))
    return out


def main():
    data = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "tests/propagation/data")
    expected = data / "expected"
    expected.mkdir(exist_ok=True)
    for path in sorted((data / "engines").glob("*/*")):
        engine, name = path.parent.name, path.stem
        if engine == "failures" or path.suffix not in (".out", ".vg1", ".rg1"):
            continue
        lines = path.read_bytes().decode("ascii").split("\n")
        if lines[-1] == "":
            lines.pop()
        if path.suffix == ".out":
            count = frequency_count(path.with_suffix(".dat").read_bytes().decode("ascii"))
            read = voacap_point_to_point if engine == "voacap" else rec533_point_to_point
            rows = read(lines, count)
        else:
            rows = grid(lines, 129, 134) if engine == "voacap" else grid(lines, 63, 68)
        (expected / f"{engine}_{name}.csv").write_bytes(("\n".join(rows) + "\n").encode("ascii"))


if __name__ == "__main__":
    main()
