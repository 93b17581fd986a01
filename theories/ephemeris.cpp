#include "theories/ephemeris.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/failure.h"
#include "core/name_table.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

constexpr double recordDays = 32;
constexpr int firstYear = 1600, yearsInFile = 20;

/// First date of each file from that of 1600, and the end of the last one.
constexpr std::array<double, 31> fileStart = {
    2305424.5, 2312752.5, 2320048.5, 2327344.5, 2334640.5, 2341968.5, 2349264.5, 2356560.5,
    2363856.5, 2371184.5, 2378480.5, 2385776.5, 2393104.5, 2400400.5, 2407696.5, 2414992.5,
    2422320.5, 2429616.5, 2436912.5, 2444208.5, 2451536.5, 2458832.5, 2466128.5, 2473456.5,
    2480752.5, 2488048.5, 2495344.5, 2502672.5, 2509968.5, 2517264.5, 2524592.5};

std::int16_t recordsInFile(std::int32_t year) {
    constexpr std::array<std::int32_t, 8> longer = {1680, 1760, 1820, 1900, 1980, 2040, 2120, 2180};
    return std::find(longer.begin(), longer.end(), year) == longer.end() ? 229 : 230;
}

Refusal unreadable(ModelState& s, std::string cause) {
    s.kodStop = 1;
    return {"Ошибка чтения файлов JPL", "Tarvex7", std::move(cause)};
}

void openFile(Ephemeris& e) {
    DEClose(e);
    e.kodJPLopen = 0;
    const auto path = e.tree.at(files::ephemeris(e.DEyear));
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        throw OpenFailure("нет файла эфемериды " + path.filename().string());
    e.file.emplace(path);
    e.kodJPLopen = 10;
}

/// Reads the next record; the loaded one stays when it is not a whole one.
void readRecord(Ephemeris& e) {
    if (!e.file) throw FileFailure("файл эфемериды не открыт");
    const std::int16_t number = e.file->int16();
    e.file->number();  // count of coefficients: always the same
    const bool headed = e.file->lineUsedUp();
    for (int i = 1; i <= Ephemeris::DEncoef; ++i) e.incoming[i] = e.file->number();
    if (!headed || !e.file->lineUsedUp() || e.incoming[2] - e.incoming[1] != recordDays)
        throw FileFailure("испорчена запись " + std::to_string(number) + " файла эфемериды " +
                          e.tree.at(files::ephemeris(e.DEyear)).filename().string());
    e.DErec = e.incoming;
    e.DErecNo = number;
    e.JDrec1 = e.DErec[1];
    e.JDrec2 = e.DErec[2];
}

struct Polynomials {
    std::array<double, 15> T{}, U{};  ///< of the first and second kind, counted from 1

    Polynomials(double tau, int n) {
        T[1] = 1, T[2] = tau;
        U[1] = 1, U[2] = 2 * tau;
        for (int k = 3; k <= n; ++k) {
            T[k] = 2 * tau * T[k - 1] - T[k - 2];
            U[k] = 2 * tau * U[k - 1] - U[k - 2];
        }
    }
};

/// Position in km and its derivative by tau.
struct Place {
    std::array<double, 3> p{}, v{};
};

Place placeOf(const Ephemeris& e, const EphemerisSlot& slot) {
    const double d = slot.days;
    if (!(e.JDrec1 <= e.JDjpl && e.JDjpl < e.JDrec2))
        throw SubscriptFailure("дата JD " + toText(e.JDjpl) + " вне прочитанной записи эфемериды");
    const int sub = static_cast<int>(Fix((e.JDjpl - e.JDrec1) / d));
    const double T0 = e.JDrec1 + sub * d;
    const double tau = ((e.JDjpl - T0) + (e.JDjpl - T0)) / d - 1;
    const int n = slot.coefficients;
    const Polynomials c(tau, n);
    Place result;
    for (int component = 0; component < 3; ++component) {
        const double* C = &e.DErec[slot.start + (sub * 3 + component) * n] - 1;  // counted from 1
        double p = C[1], v = 0;
        for (int k = 2; k <= n; ++k) {
            p = p + C[k] * c.T[k];
            v = v + (k - 1) * C[k] * c.U[k - 1];
        }
        result.p[component] = finite(p);
        result.v[component] = finite(v);
    }
    return result;
}

}  // namespace

void DEOpen(ModelState& s, Ephemeris& e) {
    e.JDjpl = s.JD;
    if (!(fileStart.front() <= e.JDjpl && e.JDjpl <= fileStart.back())) {
        s.kodStop = 1;
        throw Refusal("В файлах DE405 нет такой даты", "Tarvex7m", "дата JD " + toText(e.JDjpl));
    }
    // At the very last date no file starts: the year stays what it was.
    if (const auto next = std::upper_bound(fileStart.begin(), fileStart.end(), e.JDjpl);
        next != fileStart.end())
        e.DEyear = firstYear + yearsInFile * static_cast<std::int32_t>(next - fileStart.begin() - 1);
    e.DEnrec = recordsInFile(e.DEyear);
    openFile(e);
    do {
        readRecord(e);
    } while (!(e.JDjpl < e.JDrec2));
}

void DEAdvance(ModelState& s, Ephemeris& e) {
    if (e.JDjpl >= e.JDrec1 && e.JDjpl < e.JDrec2) return;
    if (e.JDjpl < e.JDrec1)
        throw unreadable(s, "дата JD " + toText(e.JDjpl) + " раньше прочитанной записи эфемериды");
    const double before = e.JDrec1;
    if (e.DErecNo >= e.DEnrec) {
        e.DEyear += yearsInFile;
        e.DEnrec = recordsInFile(e.DEyear);
        openFile(e);
    }
    readRecord(e);
    if (e.JDrec1 == before) readRecord(e);  // the record that ends one file and starts the next
}

void DESeek(ModelState& s, Ephemeris& e) {
    if (e.JDjpl >= e.JDrec1 && e.JDjpl < e.JDrec2) return;
    if (e.file && e.JDjpl >= e.JDrec2 && e.JDjpl < e.JDrec2 + recordDays) return DEAdvance(s, e);
    const double JD = s.JD;
    s.JD = e.JDjpl;
    try {
        DEOpen(s, e);
    } catch (...) {
        s.JD = JD;
        throw;
    }
    s.JD = JD;
}

void DEClose(Ephemeris& e) { e.file.reset(); }

void DEEvaluate(ModelState& s, Ephemeris& e, int body, int kod) {
    const int slot = body == rowSun ? 11 : body == rowMoon ? 10 : body;
    if (body < 0 || slot >= static_cast<int>(Ephemeris::recordLayout.size()))
        throw unreadable(s, "нет в эфемериде тела № " + std::to_string(body));
    const double d = Ephemeris::recordLayout[slot].days;
    std::array<double, 3> r, w;
    try {
        const auto [p, v] = placeOf(e, Ephemeris::recordLayout[slot]);
        if (kod == 0) {
            for (int i = 0; i < 3; ++i) {
                r[i] = ratio(1000 * p[i], s.Lae);
                w[i] = ratio(2000 * v[i] / d, s.Lae);
            }
        } else {
            const double c = std::cos(AlfaEclip), sn = std::sin(AlfaEclip);
            r = {1000 * p[0], (c * p[1] + sn * p[2]) * 1000, (c * p[2] - sn * p[1]) * 1000};
            w = {2000 * v[0] / sekD / d, ((c * v[1] + sn * v[2]) * 2000) / sekD / d,
                 ((c * v[2] - sn * v[1]) * 2000) / sekD / d};
            for (int i = 0; i < 3; ++i) finite(r[i]), finite(w[i]);
        }
    } catch (const Failure& failure) {
        throw unreadable(s, failure.what());
    }
    s.X[body] = r[0], s.Y[body] = r[1], s.Z[body] = r[2];
    s.VX[body] = w[0], s.VY[body] = w[1], s.VZ[body] = w[2];
}

void addNames(NameTable& table, const Ephemeris& e) {
#define NAME(variable) table.add(#variable, e.variable)
    NAME(DEyear);
    NAME(DEnrec);
    NAME(DErecNo);
    NAME(DErec);
    NAME(JDrec1);
    NAME(JDrec2);
    NAME(JDjpl);
    NAME(kodJPLopen);
#undef NAME
    table.addComputed("FileNoJPL", [&e](const std::vector<int>&) { return toFullText(e.file ? 1 : 0); });
    table.addComputed("DEncoef", [](const std::vector<int>&) { return toFullText(Ephemeris::DEncoef); });
    const auto slotColumn = [&table](const char* name, int EphemerisSlot::*column) {
        table.addComputed(name, [column](const std::vector<int>& i) {
            if (i.size() != 1 || i[0] < 0 || i[0] > 11) throw SubscriptFailure("номер вне границ");
            return toFullText(Ephemeris::recordLayout[i[0]].*column);
        });
    };
    slotColumn("DEstart", &EphemerisSlot::start);
    slotColumn("DEncf", &EphemerisSlot::coefficients);
    slotColumn("DEdays", &EphemerisSlot::days);
}

}  // namespace tarvex
