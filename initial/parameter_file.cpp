#include "initial/parameter_file.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

constexpr const char* dateRemark =
    "               MK=1 000 000         kUgol=180 град/pi       sekG = 31557600 сек";
constexpr const char* massTitles = "mSol / 10^25____gamma * 10^16____Lae";
constexpr const char* rowTitles =
    "№ объкта_MK * AlfaL * kUgol__R0sr / 1000__MK * W0sr * sekG__MK * Eks0__MK * Betta0 * kUgol__"
    "MK * AlfaP0 * kUgol__MK * AlfaU0 * kUgol__X / 1000__Y / 1000__Z / 1000__MK * VX___MK * VY___"
    "MK * VZ_____MK * km";

constexpr double massScale = 1e25, gammaScale = 1e16;

std::string bodyLine(const ModelState& s, int i) {
    std::string line = Format(i, "00");
    for (const double v : {
             Fix(MK * s.AlfaL[i] * kUgol),
             std::round(Fix(s.R0sr[i]) /
                        1000),  // cut in metres, rounded in kilometres, as files have it here and for Y
             Fix(MK * s.W0sr[i] * sekG),
             Fix(MK * s.Eks0[i]),
             Fix(MK * s.Betta0[i] * kUgol),
             Fix(MK * s.AlfaP0[i] * kUgol),
             Fix(MK * s.AlfaU0[i] * kUgol),
             Fix(s.X[i] / 1000),
             std::round(Fix(s.Y[i]) / 1000),
             Fix(s.Z[i] / 1000),
             Fix(MK * s.VX[i]),
             Fix(MK * s.VY[i]),
             Fix(MK * s.VZ[i]),
             Fix(MK * s.km[i]),
         }) {
        const std::string item = fileItem(v);
        line += (line.size() == 2 && item.front() == '-' ? " " : "") + item;  // off the number of the body
    }
    return line;
}

}  // namespace

void writeParameters(const ModelState& s, const DataTree& tree, int N) {
    TextWriter file(tree.at(files::parameters(N)));
    file.line(fileItem(Fix(1000 * s.Den0)) + fileItem(s.Mes0) + fileItem(s.God0) + dateRemark);
    file.line(massTitles);
    file.items(Fix(s.mSol / massScale), Fix(gammaScale * s.gamma), Fix(s.Lae));
    file.line(rowTitles);
    for (int i = 0; i <= NPlanetMax; ++i) file.line(bodyLine(s, i));
    file.commit();
}

ParameterReader::ParameterReader(const DataTree& tree, int N) : file_(tree.at(files::parameters(N))) {}

void ParameterReader::date(ModelState& s) {
    s.Den = file_.number() / 1000;
    s.Mes = file_.int32();
    s.God = file_.int32();
    file_.line();  // the remark
    s.God0 = s.God;
    s.Mes0 = s.Mes;
    s.Den0 = s.Den;
}

void ParameterReader::bodies(ModelState& s, const std::function<void(int body)>& rowRead) {
    const auto next = [this] { return file_.number(); };
    file_.line();  // titles of the masses
    s.mSol = finite(next() * massScale);
    s.gamma = next() / gammaScale;
    s.Lae = next();
    file_.line();  // the end of that line
    file_.line();  // titles of the rows
    for (int i = 0; i <= NPlanetMax; ++i) {
        s.IplSel = file_.int32BeforeSign();  // earlier versions set a negative AlfaL right behind it
        s.AlfaL[i] = next() / MK / kUgol;
        s.R0sr[i] = finite(next() * 1000);
        s.W0sr[i] = next() / MK / sekG;
        s.Eks0[i] = next() / MK;
        s.Betta0[i] = next() / MK / kUgol;
        s.AlfaP0[i] = next() / MK / kUgol;
        s.AlfaU0[i] = next() / MK / kUgol;
        s.X0[i] = s.X[i] = finite(next() * 1000);
        s.Y0[i] = s.Y[i] = finite(next() * 1000);
        s.Z0[i] = s.Z[i] = finite(next() * 1000);
        s.VX0[i] = s.VX[i] = next() / MK;
        s.VY0[i] = s.VY[i] = next() / MK;
        s.VZ0[i] = s.VZ[i] = next() / MK;
        s.km[i] = next() / MK;
        s.m[i] = ratio(s.mSol, s.km[i]);
        rowRead(i);
    }
}

}  // namespace tarvex
