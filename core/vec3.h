#pragma once
// A vector of three components.

#include <cmath>

namespace tarvex {

struct Vec3 {
    double x = 0, y = 0, z = 0;

    Vec3& operator+=(const Vec3& b) {
        x += b.x, y += b.y, z += b.z;
        return *this;
    }
    friend Vec3 operator+(Vec3 a, const Vec3& b) { return a += b; }
    friend Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(double k, const Vec3& a) { return {k * a.x, k * a.y, k * a.z}; }
};

inline double dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double length(const Vec3& a) { return std::sqrt(dot(a, a)); }

}  // namespace tarvex
