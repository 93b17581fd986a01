#pragma once
// One step of the classical Runge-Kutta scheme of the fourth order, whatever it advances: its order of work
// and its sums.
// Source: W. Kutta, Beitrag zur naeherungsweisen Integration totaler Differentialgleichungen, Zeitschrift
// fuer Mathematik und Physik 46 (1901), 435-453.

namespace tarvex {

/// A step of h seconds.
/// @param slope  slope(t): forms the derivatives of the present state, t seconds after the step's beginning
/// @param go     go(stage, share): keeps those derivatives as stage 1, 2 or 3 and puts the state to the one
/// at
///               the beginning and share*h of them
/// @param end    end(): keeps them as stage 4 and puts the state to the end of the step
template <class Slope, class Go, class End>
[[gnu::always_inline]] inline void rungeKutta4(double h, Slope slope, Go go, End end) {
    slope(0);
    go(1, 0.5);
    slope(h / 2);
    go(2, 0.5);
    slope(h / 2);
    go(3, 1);
    slope(h);
    end();
}

/// What go() does with the cells first..last-1 of a state: K = h*dU and U = U0 + share*K.
[[gnu::always_inline]] inline void goFromStart(int first, int last, double h, double share,
                                               const double* __restrict dU, const double* __restrict U0,
                                               double* __restrict K, double* __restrict U) {
    for (int k = first; k < last; ++k) {
        K[k] = h * dU[k];
        U[k] = U0[k] + K[k] * share;
    }
}

/// Six times the mean of what four stages have brought.
[[gnu::always_inline]] inline double sixfoldMean(double k1, double k2, double k3, double k4) {
    return k1 + 2 * k2 + 2 * k3 + k4;
}

}  // namespace tarvex
