#include "reduction/sky.h"

#include <array>
#include <cmath>

#include "core/constants.h"
#include "core/numbers.h"
#include "theories/geometry.h"

namespace tarvex::sky {

namespace {

double radians(double degrees) { return degrees / kUgol; }

/// A fraction of a revolution, signed or in 0..1, as an angle in rad.
double signedTurn(double revolutions) { return 2 * Pi * Frac0(revolutions); }
double turn(double revolutions) { return 2 * Pi * Frac1(double(revolutions)); }

double notNegative(double angle, double full) { return angle < 0 ? angle + full : angle; }

}  // namespace

Obliquity obliquity(double T) {
    const double angle = radians(23.43929111 - (((0.00059 - 0.001813 * T) * T + 46.815) * T) / 3600);
    return {angle, std::cos(angle), std::sin(angle)};
}

Precession eclipticPrecession(double T0, double T1) {
    const double t = T1 - T0;
    const double node =
        radians(174.876383889 +
                ((3289.4789 + 0.60622 * T0) * T0 + (-869.8089 - 0.50491 * T0 + 0.03536 * t) * t) / 3600);
    const double tilt = radians(
        (47.0029 - (0.06603 - 0.000598 * T0) * T0 + (-0.03302 + 0.000598 * T0 + 0.00006 * t) * t) * t / 3600);
    const double p =
        radians((5029.0966 + (2.22226 - 0.000042 * T0) * T0 + (1.11113 - 0.000042 * T0 - 0.000006 * t) * t) *
                t / 3600);
    const double c1 = std::cos(node + p), s1 = std::sin(node + p);
    const double c2 = std::cos(tilt), s2 = std::sin(tilt);
    const double c3 = std::cos(node), s3 = std::sin(node);
    return {{{c1 * c3 + s1 * c2 * s3, c1 * s3 - s1 * c2 * c3, -s1 * s2},
             {s1 * c3 - c1 * c2 * s3, s1 * s3 + c1 * c2 * c3, c1 * s2},
             {s2 * s3, -s2 * c3, c2}},
            p};
}

Mat3 equatorPrecession(double T0, double T1) {
    const double t = T1 - T0;
    const double zeta =
        radians((2306.2181 + (1.39656 - 0.000139 * T0) * T0 + (0.30188 - 0.000345 * T0 + 0.017998 * t) * t) *
                t / 3600);
    const double z = zeta + radians((0.7928 + 0.000411 * T0 + 0.000205 * t) * t * t / 3600);
    const double theta =
        radians((2004.3109 - (0.8533 + 0.000217 * T0) * T0 - (0.42665 + 0.000217 * T0 + 0.041833 * t) * t) *
                t / 3600);
    const double cz = std::cos(z), sz = std::sin(z);
    const double ct = std::cos(theta), st = std::sin(theta);
    const double cf = std::cos(zeta), sf = std::sin(zeta);
    return {{-sz * sf + cz * ct * cf, -sz * cf - cz * ct * sf, -cz * st},
            {cz * sf + sz * ct * cf, cz * cf - sz * ct * sf, -sz * st},
            {st * cf, -st * sf, ct}};
}

Vec3 nutation(double T, const Vec3& v) {
    const double ls = signedTurn(0.993133 + 99.997306 * T);
    const double D = signedTurn(0.827362 + 1236.853087 * T);
    const double F = signedTurn(0.259089 + 1342.227826 * T);
    const double N = signedTurn(0.347346 - 5.372447 * T);
    const double eps = 0.4090928 - 0.00022696 * T;
    const double dpsi = (-17.2 * std::sin(N) - 1.319 * std::sin(2 * (F - D + N)) -
                         0.227 * std::sin(2 * (F + N)) + 0.206 * std::sin(2 * N) + 0.143 * std::sin(ls)) /
                        arcSecondsInRadian;
    const double deps = (9.203 * std::cos(N) + 0.574 * std::cos(2 * (F - D + N)) +
                         0.098 * std::cos(2 * (F + N)) - 0.09 * std::cos(2 * N)) /
                        arcSecondsInRadian;
    const double c = dpsi * std::cos(eps), sn = dpsi * std::sin(eps);
    return {-c * v.y - sn * v.z, c * v.x - deps * v.z, sn * v.x + deps * v.y};
}

double siderealTime(double MJD) {
    const double UT = (MJD - Fix(MJD)) * 24;
    const double Tc = (Fix(MJD) - 51544.5) / 36525;
    return 1.0027379093 * UT + 6.697374558 + ((0.093104 - 0.0000062 * Tc) * Tc + 8640184.812866) * Tc / 3600;
}

Observer observerAt(double JDut, double latitude, double longitude) {
    Observer o;
    o.greenwich = 24 * Frac1(siderealTime(JDut - 2400000.5) / 24);
    o.local = longitude / 15 + o.greenwich;
    if (o.local > 24) o.local -= 24;
    o.local *= 15;
    o.place = vectorOf({o.local, latitude, REarth});
    return o;
}

Latitude latitudeOf(double latitude) { return {std::sin(radians(latitude)), std::cos(radians(latitude))}; }

Vec3 horizonFromEquator(double hourAngle, double declination, const Latitude& f) {
    const double d = radians(declination), H = radians(hourAngle);
    return {std::cos(d) * f.sine * std::cos(H) - std::sin(d) * f.cosine, std::cos(d) * std::sin(H),
            std::cos(d) * f.cosine * std::cos(H) + std::sin(d) * f.sine};
}

Vec3 equatorFromHorizon(double azimuth, double altitude, const Latitude& f) {
    const double h = radians(altitude), A = radians(azimuth);
    return {std::cos(h) * f.sine * std::cos(A) + std::sin(h) * f.cosine, std::cos(h) * std::sin(A),
            std::sin(h) * f.sine - std::cos(h) * f.cosine * std::cos(A)};
}

double refraction(double z) {
    // arc seconds at 86, 86.5 ... 90 degrees
    constexpr std::array<double, 9> low = {755.74, 832.67, 925, 1026, 1147, 1321.5, 1536, 1788, 2040};
    if (z <= 86) {
        const double t = std::tan(z / kUgol);
        return (57.1 * t - 0.0208 * t * t * t) / 3600;
    }
    if (z > 90) return low.back() / 3600;
    int i = 0;
    while (i < 7 && z > 86.5 + 0.5 * i) ++i;
    const double z0 = 86 + 0.5 * i;
    return (2 * (z - z0) * (low[i + 1] - low[i]) + low[i]) / 3600;
}

Moon moonAt(double T) {
    const double L0 = Frac1(0.606433 + 1336.855225 * T);
    const double l = turn(0.374897 + 1325.55241 * T);
    const double ls = turn(0.993133 + 99.997361 * T);
    const double D = turn(0.827361 + 1236.853086 * T);
    const double F = turn(0.259086 + 1342.227825 * T);
    using std::sin;
    const double dL = 22640 * sin(l) - 4586 * sin(l - 2 * D) + 2370 * sin(2 * D) + 769 * sin(2 * l) -
                      668 * sin(ls) - 412 * sin(2 * F) - 212 * sin(2 * l - 2 * D) -
                      206 * sin(l + ls - 2 * D) + 192 * sin(l + 2 * D) - 165 * sin(ls - 2 * D) -
                      125 * sin(D) - 110 * sin(l + ls) + 148 * sin(l - ls) - 55 * sin(2 * F - 2 * D);
    const double S = F + (dL + 412 * sin(2 * F) + 541 * sin(ls)) / arcSecondsInRadian;
    const double H = F - 2 * D;
    const double N = -526 * sin(H) + 44 * sin(l + H) - 31 * sin(H - l) - 23 * sin(ls + H) + 11 * sin(H - ls) -
                     25 * sin(F - 2 * l) + 21 * sin(F - l);
    Moon moon;
    moon.longitude = 2 * kUgol * Pi * Frac1(L0 + dL / 1296000);
    moon.latitude = (18520 * sin(S) + N) * kUgol / arcSecondsInRadian;

    Elements& e = moon.elements;
    e.meanLongitude = notNegative(2 * Pi * L0, 2 * Pi);
    e.node = notNegative(e.meanLongitude - F, 2 * Pi);
    e.perihelion = notNegative(e.meanLongitude - l, 2 * Pi);
    e.eccentricity = 0.0549;
    e.semiMajorAxis = 384402000;
    e.inclination = 5.14444 / kUgol;
    e.meanMotion = 2 * Pi * 1336.855225 / 36525 / sekD;
    const double a = notNegative(l - Pi, 2 * Pi), k = e.eccentricity;
    moon.distance = (1 + k * k / 2 + k * std::cos(a) - k * k * std::cos(2 * a) / 2) * e.semiMajorAxis;
    return moon;
}

MoonTerms moonTerms(const Elements& moon, const Elements& earth, const std::array<double, 29>& k) {
    const auto degrees = [](double angle) { return 360 * Frac1(angle / 2 / Pi); };
    const double lm = degrees(moon.meanLongitude), ls = degrees(earth.meanLongitude) + 180;
    const double node = degrees(moon.node), per = degrees(moon.perihelion);
    const double pers = degrees(earth.perihelion) + 180;
    const auto argument = [](double difference) { return radians(notNegative(difference, 360)); };
    const double D = argument(lm - ls), F = argument(lm - node), l = argument(lm - per),
                 l1 = argument(ls - pers);

    using std::sin;
    return {k[1] * sin(l) + k[2] * sin(2 * l) + k[3] * sin(l - 2 * D) + k[4] * sin(2 * D) + k[5] * sin(l1) +
                k[6] * sin(2 * F) + k[7] * sin(D) + k[8] * sin(2 * D - 2 * l) + k[9] * sin(2 * D - l - l1) +
                k[10] * sin(2 * D + l) + k[25] * sin(l1 - 2 * D) + k[26] * sin(l - l1) + k[27] * sin(l + l1) +
                k[28] * sin(2 * F - 2 * D),
            k[11] * sin(l + F) + k[12] * sin(l - F) + k[13] * sin(2 * D - F) + k[14] * sin(2 * D - l + F) +
                k[15] * sin(2 * D - l - F) + k[16] * sin(2 * D + F)};
}

}  // namespace tarvex::sky
