#pragma once
// Observations of the observatories: text files of fixed columns behind a header of five lines, read as a
// stream.

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/text_files.h"

namespace tarvex {

/// Observatories whose files the laboratory knows by name.
inline constexpr std::array<std::string_view, 6> observatoryNames = {"GREN", "PARI", "USNO",
                                                                     "NIKO", "CAPE", "SUMM"};

/// One usable observation.
struct Observation {
    int year = 0, month = 0;
    int day = 0;             ///< whole day, DenObsI
    double hours = 0;        ///< time of day, ChasObs
    double ascension = 0;    ///< right ascension, degrees
    double declination = 0;  ///< degrees
    std::string line;        ///< the record as it was read
    double dayWithTime() const { return day + hours / 24; }
};

/// Which records a pass wants.
struct ObservationFilter {
    int firstYear = 0;       ///< records of earlier years are skipped
    int lastYear = 0;        ///< a later year ends the file
    bool byDistance = true;  ///< needs right ascension and declination; otherwise the right ascension only
};

/// Takes a record apart.
/// @param month  month of the record before, 0 when there is none; a month text that is none keeps it
/// @param end    set when the year is past the last one
/// @return       nothing when the record is to be skipped or the end is reached
/// Throws ConversionFailure or OverflowFailure when a column that is needed is blank, short or no number.
std::optional<Observation> parseObservation(const std::string& line, const ObservationFilter& filter,
                                            int& month, bool& end);

/// A record with these values in its columns, the angles in degrees, rounded to the last digit that it holds.
std::string observationRecord(int year, int month, int day, double hours, double ascension,
                              double declination);

/// An open file of observations.
class ObservationFile {
public:
    struct Header {
        std::string text;  ///< lines 1 to 4, each with the name of the observatory, parted by line ends
        int firstYear = 0, lastYear = 0;
    };

    /// Opens a file and reads its header.
    /// Throws OpenFailure when there is none, another Failure when the header is not sound; the file is
    /// closed then.
    Header open(const std::filesystem::path& path, const std::string& observatory);
    /// Closes, opens again and skips the header.  Throws FileFailure.
    void rewind();
    void close() { reader_.reset(); }
    bool isOpen() const { return reader_.has_value(); }
    const std::filesystem::path& path() const { return path_; }

    /// The next usable observation, nothing at the end of the file or of the years.
    /// Throws Failure for a record that cannot be read, and when the file is closed.
    std::optional<Observation> ReadObsRecord(const ObservationFilter& filter);

private:
    std::optional<TextReader> reader_;
    std::filesystem::path path_;
    int month_ = 0;  ///< month of the last record
};

/// Name of a file of observations, "\Obs\SUMM0_G_100.txt".
/// @param filtered  "" for all data, "LB" (by distance) or "L" (by longitude) for a Good file
std::string observationFileName(const std::string& observatory, int body, const std::string& number,
                                const std::string& filtered);

}  // namespace tarvex
