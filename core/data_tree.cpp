#include "core/data_tree.h"

#include <fmt/format.h>

#include <algorithm>

namespace tarvex {

std::filesystem::path DataTree::at(std::string_view name) const {
    std::string relative(name);
    std::replace(relative.begin(), relative.end(), '\\', '/');
    relative.erase(0, relative.find_first_not_of('/'));
    return root_ / relative;
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
