#include "reduction/coordinate_chain.h"

#include <array>
#include <cmath>

#include "core/numbers.h"
#include "theories/elements.h"

namespace tarvex {

namespace {

double radians(double degrees) { return degrees / kUgol; }

/// Obliquity of the ecliptic of the epoch T, rad.
double obliquity(double T) {
    return radians(23.43929111 - (((0.00059 - 0.001813 * T) * T + 46.815) * T) / 3600);
}

void applyPrecession(const ModelState& s, double& x, double& y, double& z) {
    const auto& M = s.Mprec;
    const double a = M[1][1] * x + M[1][2] * y + M[1][3] * z;
    const double b = M[2][1] * x + M[2][2] * y + M[2][3] * z;
    const double c = M[3][1] * x + M[3][2] * y + M[3][3] * z;
    x = a, y = b, z = c;
}

/// A fraction of a revolution, signed or in 0..1, as an angle in rad.
double signedTurn(double revolutions) { return 2 * Pi * Frac0(revolutions); }
double turn(double revolutions) { return 2 * Pi * Frac1(double(revolutions)); }

double notNegative(double angle, double full) { return angle < 0 ? angle + full : angle; }

}  // namespace

void EquToEcl(ModelState& s, double T) {
    s.LatPl = obliquity(T);
    const double c = std::cos(s.LatPl), sn = std::sin(s.LatPl);
    const double y = s.Y[s.Ipl], z = s.Z[s.Ipl];
    s.Y[s.Ipl] = c * y + sn * z;
    s.Z[s.Ipl] = c * z - sn * y;
}

void EclToEqu(ModelState& s, double T) {
    s.LatPl = obliquity(T);
    const double c = std::cos(s.LatPl), sn = std::sin(s.LatPl);
    const double y = s.Y[s.Ipl], z = s.Z[s.Ipl];
    s.Y[s.Ipl] = c * y - sn * z;
    s.Z[s.Ipl] = c * z + sn * y;
}

void PrecessMatrixEcl(ModelState& s, double T0, double T1) {
    const double t = T1 - T0;
    const double Pi1 =
        radians(174.876383889 +
                ((3289.4789 + 0.60622 * T0) * T0 + (-869.8089 - 0.50491 * T0 + 0.03536 * t) * t) / 3600);
    const double pi2 = radians(
        (47.0029 - (0.06603 - 0.000598 * T0) * T0 + (-0.03302 + 0.000598 * T0 + 0.00006 * t) * t) * t / 3600);
    s.Prec =
        radians((5029.0966 + (2.22226 - 0.000042 * T0) * T0 + (1.11113 - 0.000042 * T0 - 0.000006 * t) * t) *
                t / 3600);
    const double c1 = std::cos(Pi1 + s.Prec), s1 = std::sin(Pi1 + s.Prec);
    const double c2 = std::cos(pi2), s2 = std::sin(pi2);
    const double c3 = std::cos(Pi1), s3 = std::sin(Pi1);
    s.Mprec[1] = {0, c1 * c3 + s1 * c2 * s3, c1 * s3 - s1 * c2 * c3, -s1 * s2};
    s.Mprec[2] = {0, s1 * c3 - c1 * c2 * s3, s1 * s3 + c1 * c2 * c3, c1 * s2};
    s.Mprec[3] = {0, s2 * s3, -s2 * c3, c2};
}

void PrecessMatrixEqu(ModelState& s, double T0, double T1) {
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
    s.Mprec[1] = {0, -sz * sf + cz * ct * cf, -sz * cf - cz * ct * sf, -cz * st};
    s.Mprec[2] = {0, cz * sf + sz * ct * cf, cz * cf - sz * ct * sf, -sz * st};
    s.Mprec[3] = {0, st * cf, -st * sf, ct};
}

void ApplyPrecessXYZ(ModelState& s) { applyPrecession(s, s.X[s.Ipl], s.Y[s.Ipl], s.Z[s.Ipl]); }
void ApplyPrecessVXYZ(ModelState& s) { applyPrecession(s, s.VX[s.Ipl], s.VY[s.Ipl], s.VZ[s.Ipl]); }

void Nutation(double T, double& X, double& Y, double& Z, int mode) {
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
    const double dX = -c * Y - sn * Z, dY = c * X - deps * Z, dZ = sn * X + deps * Y;
    const int sign = mode == 0 ? 1 : -1;
    X += sign * dX;
    Y += sign * dY;
    Z += sign * dZ;
}

double SiderealTime(double MJD) {
    const double UT = (MJD - Fix(MJD)) * 24;
    const double Tc = (Fix(MJD) - 51544.5) / 36525;
    return 1.0027379093 * UT + 6.697374558 + ((0.093104 - 0.0000062 * Tc) * Tc + 8640184.812866) * Tc / 3600;
}

void HorizonToXYZ1(ModelState& s, int row) {
    const double d = radians(s.Bpl[row]), f = radians(s.ObsB), H = radians(s.TAU);
    s.X[row] = std::cos(d) * std::sin(f) * std::cos(H) - std::sin(d) * std::cos(f);
    s.Y[row] = std::cos(d) * std::sin(H);
    s.Z[row] = std::cos(d) * std::cos(f) * std::cos(H) + std::sin(d) * std::sin(f);
}

void HorizonToXYZ2(ModelState& s, int row) {
    const double h = radians(s.Vys), f = radians(s.ObsB), A = radians(s.Azim);
    s.X[row] = std::cos(h) * std::sin(f) * std::cos(A) + std::sin(h) * std::cos(f);
    s.Y[row] = std::cos(h) * std::sin(A);
    s.Z[row] = std::sin(h) * std::sin(f) - std::cos(h) * std::cos(f) * std::cos(A);
}

double Refraction(double z) {
    // arc seconds at 86, 86.5 ... 90 degrees
    constexpr std::array<double, 9> low = {755.74, 832.67, 925, 1026, 1147, 1321.5, 1536, 1788, 2040};
    if (z <= 86) {
        const double t = std::tan(radians(z));
        return (57.1 * t - 0.0208 * t * t * t) / 3600;
    }
    if (z > 90) return low.back() / 3600;
    int i = 0;
    while (i < 7 && z > 86.5 + 0.5 * i) ++i;
    const double z0 = 86 + 0.5 * i;
    return (2 * (z - z0) * (low[i + 1] - low[i]) + low[i]) / 3600;
}

void MoonInequalities(ModelState& s, double T) {
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
    s.Lpl[rowMoon] = 2 * kUgol * Pi * Frac1(L0 + dL / 1296000);
    s.Bpl[rowMoon] = (18520 * sin(S) + N) * kUgol / arcSecondsInRadian;

    s.AlfaL[rowMoon] = notNegative(2 * Pi * L0, 2 * Pi);
    s.AlfaU0[rowMoon] = notNegative(s.AlfaL[rowMoon] - F, 2 * Pi);
    s.AlfaP0[rowMoon] = notNegative(s.AlfaL[rowMoon] - l, 2 * Pi);
    s.Eks0[rowMoon] = 0.0549;
    s.R0sr[rowMoon] = 384402000;
    s.Betta0[rowMoon] = 5.14444 / kUgol;
    s.W0sr[rowMoon] = 2 * Pi * 1336.855225 / 36525 / sekD;
    const double a = notNegative(l - Pi, 2 * Pi), e = s.Eks0[rowMoon];
    s.Rpl[rowEarthMoon][rowMoon] =
        (1 + e * e / 2 + e * std::cos(a) - e * e * std::cos(2 * a) / 2) * s.R0sr[rowMoon];
}

void MoonPerturbApply(ModelState& s) {
    const auto degrees = [](double angle) { return 360 * Frac1(angle / 2 / Pi); };
    const double lm = degrees(s.AlfaL[rowMoon]), ls = degrees(s.AlfaL[rowEarthMoon]) + 180;
    const double node = degrees(s.AlfaU0[rowMoon]), per = degrees(s.AlfaP0[rowMoon]);
    const double pers = degrees(s.AlfaP0[rowEarthMoon]) + 180;
    const auto argument = [](double difference) { return radians(notNegative(difference, 360)); };
    const double D = argument(lm - ls), F = argument(lm - node), l = argument(lm - per),
                 l1 = argument(ls - pers);

    const auto& k = s.kLl;
    using std::sin;
    s.Lpl[rowMoon] += k[1] * sin(l) + k[2] * sin(2 * l) + k[3] * sin(l - 2 * D) + k[4] * sin(2 * D) +
                      k[5] * sin(l1) + k[6] * sin(2 * F) + k[7] * sin(D) + k[8] * sin(2 * D - 2 * l) +
                      k[9] * sin(2 * D - l - l1) + k[10] * sin(2 * D + l) + k[25] * sin(l1 - 2 * D) +
                      k[26] * sin(l - l1) + k[27] * sin(l + l1) + k[28] * sin(2 * F - 2 * D);
    s.Bpl[rowMoon] += k[11] * sin(l + F) + k[12] * sin(l - F) + k[13] * sin(2 * D - F) +
                      k[14] * sin(2 * D - l + F) + k[15] * sin(2 * D - l - F) + k[16] * sin(2 * D + F);
}

}  // namespace tarvex
