#pragma once
// Arithmetic failures do not raise by themselves in C++.  ArithmeticGuard watches the floating-point flags of
// a piece of work; ratio() and finite() refuse at the place where a user's zero could enter the shared state.

#include <cfenv>
#include <cmath>

#ifdef __SSE2__
#include <xmmintrin.h>
#endif

#include "core/failure.h"

namespace tarvex {

/// Watches a piece of work for division by zero, invalid operations and overflow.  Guards nest: the flags of
/// the outer guard are kept and come back when the inner one ends.
class ArithmeticGuard {
public:
    ArithmeticGuard() {
        std::fegetexceptflag(&saved_, FE_ALL_EXCEPT);
        std::feclearexcept(FE_ALL_EXCEPT);
    }
    ~ArithmeticGuard() { std::fesetexceptflag(&saved_, FE_ALL_EXCEPT); }
    ArithmeticGuard(const ArithmeticGuard&) = delete;
    ArithmeticGuard& operator=(const ArithmeticGuard&) = delete;

    /// Throws ArithmeticFailure when a watched operation has happened since the guard was made or last
    /// checked.
    void check() const {
        if (raised()) {
            std::feclearexcept(FE_ALL_EXCEPT);
            throw ArithmeticFailure("деление на ноль, корень из отрицательного или слишком большое число");
        }
    }

private:
    static bool raised() {
#ifdef __SSE2__
        // doubles never touch the older unit here, whose status costs as much again to read
        return (_mm_getcsr() & (_MM_EXCEPT_DIV_ZERO | _MM_EXCEPT_INVALID | _MM_EXCEPT_OVERFLOW)) != 0;
#else
        return std::fetestexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW) != 0;
#endif
    }

    std::fexcept_t saved_{};
};

/// Keeps the floating-point flags as they are across foreign code (drawing, events, formatting).
class FlagsKept {
public:
    FlagsKept() { std::fegetexceptflag(&saved_, FE_ALL_EXCEPT); }
    ~FlagsKept() { std::fesetexceptflag(&saved_, FE_ALL_EXCEPT); }
    FlagsKept(const FlagsKept&) = delete;
    FlagsKept& operator=(const FlagsKept&) = delete;

private:
    std::fexcept_t saved_{};
};

/// They tell the values; apart, so that what is called in loops stays small.
[[noreturn]] void failedRatio(double a, double b);
[[noreturn]] void failedRoot(double v);

/// a / b; throws ArithmeticFailure when the quotient is not a number (b = 0, overflow, 0/0).
inline double ratio(double a, double b) {
    const double q = a / b;
    if (b == 0 || !std::isfinite(q)) failedRatio(a, b);
    return q;
}

/// The value itself; throws ArithmeticFailure when it is not finite.
inline double finite(double v) {
    if (!std::isfinite(v)) throw ArithmeticFailure("результат - не число");
    return v;
}

/// Square root; throws ArithmeticFailure for a negative argument.
inline double root(double v) {
    if (!(v >= 0)) failedRoot(v);
    return std::sqrt(v);
}

}  // namespace tarvex
