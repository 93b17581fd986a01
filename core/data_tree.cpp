#include "core/data_tree.h"

#include <fmt/format.h>

#include <algorithm>
#include <system_error>

#include "core/failure.h"
#include "core/text_files.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

/// The name with slashes, without those before it.
std::string relative(std::string_view name) {
    std::string plain(name);
    std::replace(plain.begin(), plain.end(), '\\', '/');
    plain.erase(0, plain.find_first_not_of('/'));
    return plain;
}

bool climbs(const fs::path& path) {
    return std::any_of(path.begin(), path.end(), [](const fs::path& part) { return part == ".."; });
}

OpenFailure leadsOut(std::string_view name) { return OpenFailure("имя ведет вне каталога: " + quote(name)); }

}  // namespace

fs::path DataTree::at(std::string_view name) const {
    const fs::path inside = relative(name);
    if (climbs(inside)) throw leadsOut(name);
    return root_ / inside;
}

fs::path DataTree::typed(std::string_view name) const {
    const std::string inside = relative(name);
    const std::size_t slash = std::min(inside.find('/'), inside.size());
    const fs::path folder = root_ / inside.substr(0, slash);
    const std::string rest = inside.substr(std::min(slash + 1, inside.size()));
    if (!staysUnder(folder, rest)) throw leadsOut(rest);
    return folder / rest;
}

bool staysUnder(const fs::path& folder, std::string_view name) {
    const fs::path inside(name);
    if (inside.empty() || inside.is_absolute() || climbs(inside)) return false;
    std::error_code error;
    const fs::path base = fs::weakly_canonical(folder, error);
    if (error) return false;
    const fs::path end = fs::weakly_canonical(linkTarget(base / inside), error);
    return !error && std::mismatch(base.begin(), base.end(), end.begin(), end.end()).first == base.end();
}

namespace files {

std::string parameters(int N) { return fmt::format("\\Dat\\Tarvex{}.dat", N); }
std::string perturbations(int N) { return fmt::format("\\Dat\\dL{}.dat", N); }
std::string trackXYZ(int i, int N) { return fmt::format("\\Dat\\Tarvex{}XYZ{}.txt", i, N); }
std::string testPlan(int k) { return fmt::format("\\Dat\\NabPlan{}.txt", k); }
std::string pulsar(int N) { return fmt::format("\\Dat\\Pulsar{}.dat", N); }
std::string ephemeris(int year) { return fmt::format("\\JPL\\ascp{}.405", year); }
std::string runRecord(int k, int i, int e) {
    return fmt::format("\\Plan{0}\\Txt{1}\\Tarvex{1}Ras{2}.txt", k, i, e);
}
std::string series(std::string_view folder, int i) { return fmt::format("{}\\Tarvex{}Nab.txt", folder, i); }
std::string shifts(std::string_view folder) { return fmt::format("{}\\TarvexNab.dat", folder); }
std::string plan(int k) { return fmt::format("\\Plan{0}\\TarvexPlan{0}.dat", k); }
std::string planJournal(int k) { return fmt::format("\\Plan{0}\\TarvexJournal{0}.txt", k); }
std::string planShifts(int k, int i) { return fmt::format("\\Plan{}\\Tarvex{}Ras.dat", k, i); }

std::string shiftErrors(std::string_view folder) { return fmt::format("{}\\TarvexNabErr.dat", folder); }

std::string planShiftErrors(int k, int i) { return fmt::format("\\Plan{}\\Tarvex{}RasErr.dat", k, i); }

}  // namespace files

}  // namespace tarvex
