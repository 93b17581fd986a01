#pragma once
// Roots, inverses and sixths of vectors, in two ways that round alike.

#include <cmath>

#include "numeric/lane_kernels.h"

namespace tarvex::kernel {

/// As the processor makes them.
struct PlainArithmetic {
    template <class V>
    TARVEX_LANES static V root(V v) {
        V r;
        for (unsigned k = 0; k < sizeof(V) / sizeof(double); ++k) r[k] = std::sqrt(v[k]);
        return r;
    }
    template <class V>
    TARVEX_LANES static V earlyRoot(V v) {
        return root<V>(v);
    }
    template <class V>
    TARVEX_LANES static V inverse(V v) {
        return 1 / v;
    }
    template <class V>
    TARVEX_LANES static V sixth(V v) {
        return v / 6;
    }
};

#ifdef __clang__
using FusedArithmetic = PlainArithmetic;  // its assembly takes no vectors wider than those of the whole file
#else
/// For kernels of eight lanes.  Their divider is the busiest part, so the roots of the first two distances
/// and the sixths are made by multiplications: an approximation, and at last a correction by the exact
/// remainder, which rounds as the processor does (P. Markstein, IBM Journal of Research and Development 34,
/// 111, 1990). Zeros and infinities give no number and raise a flag.
struct FusedArithmetic : PlainArithmetic {
    template <class V>
    TARVEX_LANES static V earlyRoot(V v) {
        V inverse;
        asm("vrsqrt14pd %1, %0" : "=v"(inverse) : "v"(v));
        const V half = V{} + 0.5;
        V r = v * inverse, h = inverse * 0.5;  // towards the root and half its inverse
        for (int iteration = 0; iteration < 2; ++iteration) {
            const V error = lessProduct<V>(r, h, half);
            r = plusProduct<V>(r, error, r);
            h = plusProduct<V>(h, error, h);
        }
        return plusProduct<V>(lessProduct<V>(r, r, v), h, r);
    }
    template <class V>
    TARVEX_LANES static V inverse(V v) {
        const V one = V{} + 1;
        V r;
        asm("vrcp14pd %1, %0" : "=v"(r) : "v"(v));
        for (int iteration = 0; iteration < 3; ++iteration)
            r = plusProduct<V>(r, lessProduct<V>(r, v, one), r);
        return r;
    }
    template <class V>
    TARVEX_LANES static V sixth(V v) {
        const V inverse = V{} + 1. / 6, q = v * inverse;
        return plusProduct<V>(lessProduct<V>(q, V{} + 6, v), inverse, q);
    }

private:
    /// c + a*b and c - a*b, rounded once.
    template <class V>
    TARVEX_LANES static V plusProduct(V a, V b, V c) {
        asm("vfmadd213pd %2, %1, %0" : "+v"(a) : "v"(b), "vm"(c));
        return a;
    }
    template <class V>
    TARVEX_LANES static V lessProduct(V a, V b, V c) {
        asm("vfnmadd213pd %2, %1, %0" : "+v"(a) : "v"(b), "vm"(c));
        return a;
    }
};
#endif

}  // namespace tarvex::kernel
