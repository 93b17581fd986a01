#pragma once
// The file of a binary pulsar, Dat\Pulsar<N>.dat: two lines of text and seven whole numbers.

#include <filesystem>

namespace tarvex {

struct PulsarData {
    double m1 = 0, m2 = 0;  ///< masses in Suns
    double Eks = 0;
    double AlfaP = 0;  ///< degrees
    double Betta = 0;  ///< degrees
    double Rsr = 0;    ///< m
    double P0 = 0;     ///< time between two pulses, s: the step of the solution
};

/// Throws OpenFailure for a missing file, FileFailure for one that is cut short or holds no numbers.
PulsarData readPulsar(const std::filesystem::path& path);

/// Writes the data cut to whole millionths (the semi-major axis to whole metres).  Throws FileFailure.
void writePulsar(const std::filesystem::path& path, const PulsarData& data);

}  // namespace tarvex
