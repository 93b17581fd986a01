#!/usr/bin/python3
"""Write the DE405 ephemeris of the casacore data package as the published ASCII files.

usage: convert_ephemeris.py TABLE FOLDER

TABLE is the casacore table (columns MJD: start of a 32-day record, x: the values that follow its two dates);
FOLDER receives ascp1960.405 ... ascp2040.405.  A file holds 20 years: for each record a header line (number of the
record in the file, count of its coefficients) and 340 lines of three numbers with D exponents.  Each file ends with
the record that starts the next one.  A file appears whole or not at all, and only after the body positions computed
from its text agree with those that the table's keywords give for their epoch.
"""
import os
import sys

import numpy as np
from casacore.tables import table

DAYS = 32                  # in a record
VALUES = 1020              # in a record, with its two dates and the padding
COUNT = 1018               # of them in use, as the header line tells
# First date of each 20-year file, and the end of the last one.
STARTS = {1960: 2436912.5, 1980: 2444208.5, 2000: 2451536.5, 2020: 2458832.5, 2040: 2466128.5, 2060: 2473456.5}
WIDTH = 26                 # of a number

# Body of the keywords: first value (counted from 1), coefficients, days of a subinterval, names of its position.
LAYOUT = {
    "1": (3, 14, 8), "2": (171, 10, 16), "B": (231, 13, 16), "4": (309, 11, 32), "5": (342, 8, 32),
    "6": (366, 7, 32), "7": (387, 6, 32), "8": (405, 6, 32), "9": (423, 6, 32), "M": (441, 13, 4), "S": (753, 11, 16),
}


def read_records(path):
    """All records of the table as rows of VALUES numbers, and the table's keywords."""
    source = table(path, ack=False)
    start = source.getcol("MJD") + 2400000.5
    values = source.getcol("x")
    keywords = source.getkeywords()
    source.close()
    if keywords["DENUM"] != 405 or values.shape[1] != VALUES - 2 or not np.all(np.diff(start) == DAYS):
        raise ValueError(f"{path} is no table of DE405 in {DAYS}-day records")
    return np.column_stack([start, start + DAYS, values]), keywords


def number_texts(values):
    """The numbers as rows of WIDTH bytes, ' -0.123456789012345678D+01'."""
    plain = np.array(["%+.17E" % v for v in values.ravel()], dtype="S24")
    digits = plain.view(np.uint8).reshape(-1, 24)          # +d.dddddddddddddddddE+xx
    exponent = (digits[:, 22] - 48.0) * 10 + (digits[:, 23] - 48.0)
    exponent = np.where(digits[:, 21] == ord("-"), -exponent, exponent) + 1
    exponent[values.ravel() == 0] = 0
    if np.any(np.abs(exponent) > 99):
        raise ValueError("a coefficient does not fit its field")
    size = np.abs(exponent).astype(np.uint8)
    out = np.full((digits.shape[0], WIDTH), ord(" "), dtype=np.uint8)
    out[digits[:, 0] == ord("-"), 1] = ord("-")
    out[:, 2:4] = np.frombuffer(b"0.", dtype=np.uint8)
    out[:, 4] = digits[:, 1]
    out[:, 5:22] = digits[:, 3:20]
    out[:, 22] = ord("D")
    out[:, 23] = np.where(exponent < 0, ord("-"), ord("+"))
    out[:, 24] = size // 10 + 48
    out[:, 25] = size % 10 + 48
    return out


def file_bytes(records):
    """The whole text of one file."""
    lines = number_texts(records).reshape(len(records), VALUES // 3, 3 * WIDTH)
    ended = np.full((len(records), VALUES // 3, 3 * WIDTH + 1), ord("\n"), dtype=np.uint8)
    ended[:, :, :-1] = lines
    return b"".join(b"%6d%6d\n" % (n + 1, COUNT) + record.tobytes() for n, record in enumerate(ended))


def parse(text):
    """Records of a file's text, as a reader of the file gets them."""
    items = text.replace(b"D", b"E").split()
    rows = np.array(items).reshape(-1, VALUES + 2)
    numbers, counts = rows[:, 0].astype(int), rows[:, 1].astype(int)
    if not (np.all(numbers == np.arange(1, len(rows) + 1)) and np.all(counts == COUNT)):
        raise ValueError("headers out of order")
    return rows[:, 2:].astype(float)


def position(record, body, date):
    """Coordinates of a body, km."""
    first, n, days = LAYOUT[body]
    sub = int((date - record[0]) // days)
    tau = 2 * (date - record[0] - sub * days) / days - 1
    coefficients = record[first - 1 + sub * 3 * n:first - 1 + (sub + 1) * 3 * n].reshape(3, n)
    return np.polynomial.chebyshev.chebval(tau, coefficients.T)


def check(records, keywords):
    """Compare the positions at the epoch of the keywords with those the keywords give, to a metre or so."""
    date, unit = keywords["JDEPOC"], keywords["AU"]
    record = records[np.searchsorted(records[:, 0], date, side="right") - 1]
    for body in LAYOUT:
        expected = np.array([keywords[axis + body] for axis in "XYZ"])
        error = np.max(np.abs(position(record, body, date) / unit - expected)) * unit
        if not error < 0.001 * max(1, np.max(np.abs(expected))):
            raise ValueError(f"body {body} is {error} km off its place at {date}")


def write_whole(path, data):
    temporary = f"{path}.{os.getpid()}.tmp~"
    try:
        with open(temporary, "wb") as out:
            out.write(data)
            out.flush()
            os.fsync(out.fileno())
        os.replace(temporary, path)
    finally:
        if os.path.exists(temporary):
            os.unlink(temporary)


def main(table_path, folder):
    records, keywords = read_records(table_path)
    years = list(STARTS)
    made = {}
    for year, following in zip(years, years[1:]):
        inside = (records[:, 0] >= STARTS[year]) & (records[:, 0] <= STARTS[following])
        made[year] = file_bytes(records[inside])
        again = parse(made[year])
        if not np.array_equal(again, records[inside]) or again[-1, 0] != STARTS[following]:
            raise ValueError(f"the text of {year} does not give the table's numbers back")
        if again[0, 0] <= keywords["JDEPOC"] < again[-1, 0]:
            check(again, keywords)
    for year, data in made.items():
        write_whole(os.path.join(folder, f"ascp{year}.405"), data)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2])
