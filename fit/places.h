#pragma once
// Places of bodies that a model is fitted to: from a file, or from the ephemeris.

#include <filesystem>
#include <vector>

#include "core/data_tree.h"
#include "core/vec3.h"

namespace tarvex {

/// Where a body was: from the Sun, or only in what direction from the Earth.
struct Place {
    double JD = 0;  ///< ephemeris time
    int body = 0;   ///< 1..10; 0, the Sun, in a sight
    Vec3 r;         ///< from the Sun, ecliptic of J2000, m; in a sight the unit vector from the Earth
    bool sight = false;
    Vec3 aside{};  ///< of a sight: the Earth from the barycentre of Earth and Moon, m

    int coordinates() const { return sight ? 2 : 3; }
};

/// Places from lines "JD body X Y Z" (km, decimal point or comma), of which those of the wanted bodies are
/// taken; empty lines and those that begin with # are none.
/// @return  in order of time
/// @throws OpenFailure; FileFailure naming the line that is no place
std::vector<Place> readPlaces(const std::filesystem::path& path, const std::vector<int>& wanted);

/// Places by DE405 from one date to another, both within the ephemeris; 3 is the barycentre of Earth and
/// Moon.
/// @param wanted   bodies 1..9
/// @param every    days between places, above 0
/// @throws OpenFailure, FileFailure for files of the ephemeris that are missing or broken; Refusal for a date
/// outside it;
///         Failure for a span without places, or more than a million of them
std::vector<Place> ephemerisPlaces(const DataTree& tree, const std::vector<int>& wanted, double fromJD,
                                   double toJD, double every);

}  // namespace tarvex
