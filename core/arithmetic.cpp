#include "core/arithmetic.h"

#include "core/numbers.h"

namespace tarvex {

namespace {
std::string told(double v) { return std::isfinite(v) ? toText(v) : "бесконечность"; }
}  // namespace

void failedRatio(double a, double b) {
    throw ArithmeticFailure(b == 0 ? "деление " + told(a) + " на ноль"
                                   : "слишком большое число: " + told(a) + " / " + told(b));
}

void failedRoot(double v) { throw ArithmeticFailure("корень из " + told(v)); }

}  // namespace tarvex
