#pragma once
// Vectors of three components, and what turns them.

#include <cmath>

namespace tarvex {

struct Vec3 {
    double x = 0, y = 0, z = 0;

    Vec3& operator+=(const Vec3& b) {
        x += b.x, y += b.y, z += b.z;
        return *this;
    }
    Vec3& operator-=(const Vec3& b) {
        x -= b.x, y -= b.y, z -= b.z;
        return *this;
    }
    friend Vec3 operator-(const Vec3& a) { return {-a.x, -a.y, -a.z}; }
    friend Vec3 operator+(Vec3 a, const Vec3& b) { return a += b; }
    friend Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(double k, const Vec3& a) { return {k * a.x, k * a.y, k * a.z}; }
};

inline double dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double length(const Vec3& a) { return std::sqrt(dot(a, a)); }

/// A matrix by its rows.
struct Mat3 {
    Vec3 first, second, third;

    friend Vec3 operator*(const Mat3& M, const Vec3& v) {
        return {dot(M.first, v), dot(M.second, v), dot(M.third, v)};
    }
};

/// Position, m, and velocity, m/s, of one body as seen from another or in a frame.
struct StateVector {
    Vec3 r, v;
};

}  // namespace tarvex
