#pragma once
// Second-order plans of 2 to 6 factors, the quadratic regression on them and its stationary point.
// Columns of the plan matrix and of b: the factors 1..Nf, the products Xi*Xj with i before j, the squares.
//
// A whole experiment: kodPlan, Nf; PlanCenterCount (or N0); BuildPlan; PlanCoefficients; Yu; FitRegression;
// EvalRegression at each point; BuildOptimumSystem; PrintOptimumSystem.
//
// Nothing here reports by itself: a division by zero, a plan longer than its sign strings or a subscript out
// of range throws, and the block keeps what was written before. Source: Box and Wilson, J. R. Stat. Soc. B
// 13, 1 (1951); Box and Hunter, Ann. Math. Stat. 28, 195 (1957).

#include "stats/plan_block.h"

namespace tarvex {

/// Usual number of zero points N0 of the kind kodPlan for Nf factors.
void PlanCenterCount(PlanBlock& p);

/// Builds the plan of kodPlan, Nf and N0: sizes, star arm, matrix, sums, moments, table coefficients of the
/// kinds that have a table, and a text with k1..k7 in the buffer Stroka.
void BuildPlan(PlanBlock& p);

/// The columns of products and squares from those of the factors, their sums and moments.
void FillColumns(PlanBlock& p);

/// k1..k7 of kinds 2 and 3 from the moments; other kinds keep what they have.
void PlanCoefficients(PlanBlock& p);

/// The text "<head>k1= ...  k7= ..." with each coefficient as toText of cut(value) gives it.
std::string coefficientText(const PlanBlock& p, const char* head, double (*cut)(double));

/// Coefficients b of the regression of Yu(1..Nplan) on the plan.
void FitRegression(PlanBlock& p);

/// Z(Nexp) = the regression at the point X; Yopt becomes the number of its terms.  Nothing for Nf
/// outside 2..6.
void EvalRegression(PlanBlock& p);

/// Stationary point Xopt of the regression (coded), with the levels of the elimination as text in TestText.
void BuildOptimumSystem(PlanBlock& p);
/// The system itself as text into TestText(1..Nf), appended to Stroka.
void PrintOptimumSystem(PlanBlock& p);

/// Eliminates the last unknown of level kLevel into the level below; the pivot is always the last diagonal
/// cell.
void EliminateLast(Elimination& e);
/// Solves the system that stands at level 2 (3 .. 6) of kSys, kLevel being that level.
void SolveOptimum2(Elimination& e);
void SolveOptimum3(Elimination& e);
void SolveOptimum4(Elimination& e);
void SolveOptimum5(Elimination& e);
void SolveOptimum6(Elimination& e);

/// Column of the product Xi*Xj (i < j) and of the square Xi^2 in a plan of Nf factors.
int pairColumn(int Nf, int i, int j);
int squareColumn(int Nf, int i);
/// Highest column of the plan, 2*Nf + Npar; the regression has one term more.
int lastColumn(int Nf);

}  // namespace tarvex
