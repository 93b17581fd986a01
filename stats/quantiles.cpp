#include "stats/quantiles.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>

namespace tarvex {

using boost::math::cdf;
using boost::math::complement;
using boost::math::quantile;

double studentQuantile(double p, double degrees) { return quantile(boost::math::students_t(degrees), p); }

double studentTail(double t, double degrees) {
    return 2 * cdf(complement(boost::math::students_t(degrees), std::abs(t)));
}

double fisherTail(double F, double above, double below) {
    return cdf(complement(boost::math::fisher_f(above, below), F));
}

double fisherQuantile(double p, double above, double below) {
    return quantile(boost::math::fisher_f(above, below), p);
}

double chiSquareQuantile(double p, double degrees) { return quantile(boost::math::chi_squared(degrees), p); }

double chiSquareTail(double chiSquare, double degrees) {
    return cdf(complement(boost::math::chi_squared(degrees), chiSquare));
}

}  // namespace tarvex
