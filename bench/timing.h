#pragma once
// How the benches take times, and the parts of their one table.

#include <ctime>
#include <functional>
#include <vector>

namespace tarvex::bench {

/// Processor time of this thread, so that other work on the machine does not count.
double nanoseconds();

/// One of so many calls, ns.
template <class Work>
double timed(int times, Work work) {
    const double begun = nanoseconds();
    for (int n = 0; n < times; ++n) work();
    return (nanoseconds() - begun) / times;
}

double median(std::vector<double> v);

/// Lines of the table: every figure is the median of its rounds, and what is compared takes turns.
void printLaws(int rounds);                 ///< right-hand sides and steps against the literal equations
void printPlans(int rounds);                ///< experiments one after another and abreast
void printReduction(int rounds);            ///< observations and dates of a table a second
void printPassages(int years, int rounds);  ///< the ways to measure Mercury, Jupiter, Neptune

}  // namespace tarvex::bench
