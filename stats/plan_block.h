#pragma once
// The shared plan of a multifactor experiment: built on one form, run on another, fitted on a third.  Arrays
// are indexed by the system's own subscripts; where they count from 1, cell 0 is unused.

#include <array>
#include <cstdint>
#include <string>

namespace tarvex {

class NameTable;

inline constexpr int maxFactors = 6;   ///< factors of one plan
inline constexpr int maxPoints = 91;   ///< points of the largest plan
inline constexpr int maxColumns = 27;  ///< columns of the plan matrix, and highest coefficient

/// Kinds of plan, the values of kodPlan.
enum PlanKind : std::int16_t {
    planOrtho = 1,
    planRoto = 2,
    planUniform = 3,
    planDBox = 4,
    planComposite = 5,
    planAugmented = 6  ///< any of them with points added; fitted by least squares
};

/// A linear system under elimination of its last unknown, level by level.
struct Elimination {
    /// Level, row, column; column 0 is the free term: column 0 + sum of column j * Xj = 0.
    std::array<std::array<std::array<double, 7>, 7>, 7> kSys{};
    std::int16_t kLevel = 0;        ///< level at which the elimination stands
    std::array<double, 10> Xopt{};  ///< the solution, coded when it is an optimum
    /// Rows 1..5 the rows of each level (1..6 the printed system), rows 11..16 the formula lines of
    /// X1opt..X6opt.
    std::array<std::string, 21> TestText{};
};

/// Sign strings FactSign(Nf, i): the level of factor i in every point of a plan of Nf factors, two characters
/// a point: the core, the star, and a tail of zero points of fixed length.
std::array<std::array<std::string, 7>, 7> signStrings();

struct PlanBlock : Elimination {
    // --- the plan
    std::int16_t kodPlan = 0;           ///< kind, see PlanKind; 0 before the first plan
    std::int16_t Nf = 0;                ///< number of factors
    std::int16_t Nyadro = 0;            ///< points of the core
    std::int16_t Nzvezd = 0;            ///< star points
    std::int16_t N0 = 0;                ///< zero points
    std::int16_t Npar = 0;              ///< pairs of factors
    std::int16_t Nplan = 0;             ///< points of the plan
    double Plecho = 0;                  ///< star arm
    double Xi2sr = 0;                   ///< mean of Xi^2 of the orthogonal plan, 0 for all others
    double la2 = 0, la4 = 0, la4z = 0;  ///< moments of the plan
    std::array<double, 8> k{};          ///< k1..k7 of the regression formulae
    std::array<std::array<std::string, 7>, 7> FactSign = signStrings();
    std::array<std::array<double, maxPoints + 1>, maxColumns + 1>
        PlanKod{};  ///< raw level of factor c in point u
    std::array<std::array<double, maxPoints + 1>, maxColumns + 1>
        PlanX{};  ///< plan matrix, column c in point u
    std::array<double, maxColumns + 1> EXi{}, EXi2{},
        EXi4{};  ///< sums of a column, of its squares, fourth powers

    // --- criterion and regression
    std::array<double, 100> Yu{};    ///< criterion in experiment u; row 99 is the divisor of the bench
    std::array<double, 100> Yras{};  ///< regression value in experiment u
    std::array<double, maxColumns + 1> b{};  ///< regression coefficients b0..b(2*Nf+Npar)
    std::array<double, 10> X{};              ///< point at which the equation is evaluated (its own cells)
    std::array<double, 100> Z{};             ///< values of the equation (its own cells)
    std::int16_t Nexp = 0;                   ///< row of Z that is written; the current experiment
    std::int16_t NexpKon = 0;                ///< last experiment to run
    double Yopt = 0;                         ///< reference value of the criterion
    double Ymin = 0, Ymax = 0;               ///< extremes of the criterion
    double Mcrit = 0;                        ///< units of the criterion in a picture unit
    std::string Stroka;                      ///< text buffer of the statistics; not cleared by who adds to it

    // --- factors in natural units: zero level + code * interval
    std::array<std::int16_t, 10> Nfact{};  ///< numbers of the ticked factors in rising order
    std::array<double, 11> Xnul{};         ///< zero levels; row 10 is the weight of a record
    std::array<double, 10> dXvar{};        ///< intervals
    std::array<double, 10> XoptR{};        ///< optimum, natural
    std::array<std::array<double, maxPoints + 1>, 10> XU{};  ///< value of factor i in experiment u

    std::int16_t kodTestHead = 0;  ///< 88 once the head of the file of test experiments is written
};

/// Points of the plan as a loop bound; throws SubscriptFailure when no plan of 1 to 91 points stands.
int experiments(const PlanBlock& p);

/// Enters the variables of the plan under their names (the point and the values of the equation as Xplan,
/// Zplan).
void addNames(NameTable& table, const PlanBlock& p);

}  // namespace tarvex
