#!/usr/bin/python3
"""Compute the sample files of observations beside the program from the DE405 ephemeris.

usage: make_observations.py JPL_FOLDER OBS_FOLDER        (data/JPL, data/Obs; packages python3-erfa, python3-numpy)

JPL_FOLDER holds ascp1960.405 ... ascp2040.405 (tools/prepare_ephemeris makes them).  OBS_FOLDER receives
SUMM<body>_G_100.txt for the Sun (0), Mercury (1), Venus (2), Mars (4) and the Moon (11), 1960 to 2059.

They are no observations, and their heads say so: geocentric apparent places, right ascension and declination of the
true equator and equinox of date, at the moments when the body passes the meridian of Greenwich, in universal time,
as the catalogues of meridian observations give them, reduced to the Earth's centre and free of refraction.
  - positions: DE405, with light time and the aberration of the Earth's barycentric velocity; no bending of light
  - precession and nutation: IAU 2006/2000A (ERFA), so nothing here is computed by the laboratory's own chain
  - ET-UT: the polynomials of Espenak and Meeus (2006), which forecast it from 2006 on
  - noise: normal, with the standard deviation NOISE in each coordinate, from a fixed seed
Mercury, Venus and Mars are left out where they stand too near the Sun to be seen.
"""
import os
import sys

import erfa
import numpy as np

LAYOUT = {"mercury": (3, 14, 4), "venus": (171, 10, 2), "emb": (231, 13, 2), "mars": (309, 11, 1),
          "moon": (441, 13, 8), "sun": (753, 11, 2)}       # first value from 1, coefficients, subintervals of 32 days
AU, EMRAT, LIGHT = 149597870.691, 81.30056, 299792.458     # km, mass ratio, km/s
FIRST, LAST = 2436934.5, 2473459.5                         # 1 January 1960 and 1 January 2060
NOISE = 0.3                                                # arc seconds
MONTHS = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"]
# number, name, target, days between observations, least elongation from the Sun in degrees
BODIES = [(0, "Солнце", "sun", 5, 0), (1, "Меркурий", "mercury", 5, 12), (2, "Венера", "venus", 5, 12),
          (4, "Марс", "mars", 5, 20), (11, "Луна", "moon", 3, 0)]


class Ephemeris:
    """Barycentric equatorial positions and velocities, km and km a day, as DE405 gives them."""

    def __init__(self, folder):
        records = []
        for year in (1960, 1980, 2000, 2020, 2040):
            with open(os.path.join(folder, f"ascp{year}.405"), encoding="ascii") as file:
                words = file.read().replace("D", "E").split()
            size = 1022                                     # two words of the header line, 1020 numbers
            rows = np.array(words, dtype=float).reshape(-1, size)[:, 2:]
            records.append(rows)
        rows = np.vstack(records)
        _, keep = np.unique(rows[:, 0], return_index=True)
        self.rows = rows[keep]

    def chebyshev(self, name, tt):
        first, count, parts = LAYOUT[name]
        record = np.clip(np.searchsorted(self.rows[:, 0], tt, side="right") - 1, 0, len(self.rows) - 1)
        length = 32.0 / parts
        days = tt - self.rows[record, 0]
        part = np.minimum((days / length).astype(int), parts - 1)
        x = 2 * (days - part * length) / length - 1
        position, velocity = np.zeros((len(tt), 3)), np.zeros((len(tt), 3))
        t0, t1, d0, d1 = np.ones_like(x), x, np.zeros_like(x), np.ones_like(x)
        for k in range(count):
            for axis in range(3):
                c = self.rows[record, first - 1 + part * 3 * count + axis * count + k]
                position[:, axis] += c * t0
                velocity[:, axis] += c * d0 * 2 / length
            t0, t1, d0, d1 = t1, 2 * x * t1 - t0, d1, 2 * t1 + 2 * x * d1 - d0
        return position, velocity

    def barycentric(self, name, tt):
        if name in ("earth", "moon"):
            emb, v_emb = self.chebyshev("emb", tt)
            moon, v_moon = self.chebyshev("moon", tt)       # from the Earth
            earth, v_earth = emb - moon / (1 + EMRAT), v_emb - v_moon / (1 + EMRAT)
            return (earth, v_earth) if name == "earth" else (earth + moon, v_earth + v_moon)
        return self.chebyshev(name, tt)


def et_ut(jd):
    """ET-UT in seconds, after Espenak and Meeus."""
    y = 2000 + (jd - 2451544.5) / 365.25
    t = y - 1950
    early = 29.07 + 0.407 * t - t**2 / 233 + t**3 / 2547
    t = y - 1975
    middle = 45.45 + 1.067 * t - t**2 / 260 - t**3 / 718
    t = y - 2000
    late = (63.86 + 0.3345 * t - 0.060374 * t**2 + 0.0017275 * t**3 + 0.000651814 * t**4 + 0.00002373599 * t**5)
    forecast = 62.92 + 0.32217 * t + 0.005589 * t**2
    far = -20 + 32 * ((y - 1820) / 100) ** 2 - 0.5628 * (2150 - y)
    return np.select([y < 1961, y < 1986, y < 2005, y < 2050], [early, middle, late, forecast], far)


def apparent(ephemeris, name, ut):
    """Right ascension and declination, rad, and the angle from the Sun, rad."""
    tt = ut + et_ut(ut) / 86400
    earth, v_earth = ephemeris.barycentric("earth", tt)
    directions = []
    for target in (name, "sun"):
        delay = np.zeros_like(tt)
        for _ in range(4):
            vector = ephemeris.barycentric(target, tt - delay / 86400)[0] - earth
            delay = np.linalg.norm(vector, axis=1) / LIGHT
        directions.append(vector / np.linalg.norm(vector, axis=1)[:, None])
    velocity = v_earth / 86400 / LIGHT
    sun_distance = np.linalg.norm(ephemeris.barycentric("sun", tt)[0] - earth, axis=1) / AU
    seen = erfa.ab(directions[0], velocity, sun_distance, np.sqrt(1 - np.sum(velocity**2, axis=1)))
    of_date = np.einsum("nij,nj->ni", erfa.pnm06a(tt, 0.0), seen)
    ascension = np.arctan2(of_date[:, 1], of_date[:, 0]) % (2 * np.pi)
    elongation = np.arccos(np.clip(np.sum(directions[0] * directions[1], axis=1), -1, 1))
    return ascension, np.arcsin(of_date[:, 2]), elongation


def transits(ephemeris, name, step):
    """Universal times near every `step`-th day at which the body passes the meridian of Greenwich."""
    ut = np.arange(FIRST + 1, LAST - 2, step, dtype=float)
    for _ in range(8):
        sidereal = erfa.gst06a(ut, 0.0, ut + et_ut(ut) / 86400, 0.0)
        angle = (apparent(ephemeris, name, ut)[0] - sidereal + np.pi) % (2 * np.pi) - np.pi
        ut = ut + angle / (2 * np.pi) * 0.9973
    return ut


def sexagesimal(value, digits):
    unit = 10**digits
    parts = int(round(value * 3600 * unit))
    return f"{parts // unit // 3600:02} {parts // unit // 60 % 60:02} {parts // unit % 60:02}.{parts % unit:0{digits}}"


def record(ut, ascension, declination):
    y, m, d, fraction = erfa.jd2cal(np.round(ut * 864000000) / 864000000, 0.0)
    line = f"{'DE405':10}{y:4} {d:02} {MONTHS[m - 1]} +{sexagesimal(fraction * 24, 4)}".ljust(42)
    line += ("+" + sexagesimal(ascension * 12 / np.pi, 5)).ljust(26)
    return line + ("-" if declination < 0 else "+") + sexagesimal(abs(np.degrees(declination)), 4)


def main(jpl, obs):
    ephemeris = Ephemeris(jpl)
    random = np.random.default_rng(405)
    for number, title, name, step, least in BODIES:
        ut = transits(ephemeris, name, step)
        ascension, declination, elongation = apparent(ephemeris, name, ut)
        noise = np.radians(random.normal(0, NOISE, (2, len(ut))) / 3600)
        ascension = (ascension + noise[0] / np.cos(declination)) % (2 * np.pi)
        declination = declination + noise[1]
        seen = elongation >= np.radians(least)
        sigma = str(NOISE).replace(".", ",")
        lines = [f"Это не наблюдения: {title}, места вычислены по эфемериде DE405 программой tools/make_observations.py, ",
                 f"{title}: видимые геоцентрические места на меридиане Гринвича раз в {step} дн., всемирное время, ",
                 f"добавлен шум {sigma} угл.сек (СКО каждой координаты); прецессия и нутация IAU 2006/2000A, ",
                 "источник   год день мес   время UT          прямое восхождение        склонение ",
                 " 1960  2059 "]
        lines += [record(*row) for row in zip(ut[seen], ascension[seen], declination[seen])]
        path = os.path.join(obs, f"SUMM{number}_G_100.txt")
        with open(path + ".tmp~", "w", encoding="utf-8", newline="\r\n") as file:
            file.write("\n".join(lines) + "\n")
        os.replace(path + ".tmp~", path)
        print(f"{path}: {int(seen.sum())} records")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__.split("\n\n")[1])
    main(sys.argv[1], sys.argv[2])
