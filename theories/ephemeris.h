#pragma once
// The DE405 ephemeris: Chebyshev records read from its ASCII files, one file for 20 years, one record for 32
// days.
//
// A date outside the ephemeris, and a record that does not serve the date, set kodStop and leave as a
// Refusal: the guard of the form shows its message once, and nothing is computed from a stale record.  A file
// that is missing or broken while it is opened leaves as a FileFailure, for the message of the caller.

#include <array>
#include <cstdint>
#include <optional>

#include "core/data_tree.h"
#include "core/model_state.h"
#include "core/text_files.h"

namespace tarvex {

/// Where a body stands in a record.
struct EphemerisSlot {
    int start;         ///< first value, the record's values counted from 1
    int coefficients;  ///< of one component in one subinterval
    int days;          ///< length of a subinterval
};

/// An ephemeris that is being read: the open file, the loaded record and the date of evaluation.
struct Ephemeris {
    explicit Ephemeris(const DataTree& tree_) : tree(tree_) {}

    static constexpr int DEncoef = 1020;  ///< values in a record, with its two dates and the padding
    /// Slots 1..11: Mercury ... Pluto (3 the Earth-Moon barycentre), 10 the Moon from the Earth, 11 the Sun.
    static constexpr std::array<EphemerisSlot, 12> recordLayout = {{{},
                                                                    {3, 14, 8},
                                                                    {171, 10, 16},
                                                                    {231, 13, 16},
                                                                    {309, 11, 32},
                                                                    {342, 8, 32},
                                                                    {366, 7, 32},
                                                                    {387, 6, 32},
                                                                    {405, 6, 32},
                                                                    {423, 6, 32},
                                                                    {441, 13, 4},
                                                                    {753, 11, 16}}};

    std::int32_t DEyear = 0;   ///< first year of the open file
    std::int16_t DEnrec = 0;   ///< records in it; the last one also starts the next file
    std::int16_t DErecNo = 0;  ///< number of the loaded record in its file
    std::array<double, DEncoef + 1>
        DErec{};                    ///< the loaded record, counted from 1: two dates, then coefficients
    double JDrec1 = 0, JDrec2 = 0;  ///< its two dates
    double JDjpl = 0;               ///< date of evaluation; the caller keeps it up to date
    std::int16_t kodJPLopen = 0;    ///< 10 since a file was opened, also after it is closed

    const DataTree& tree;
    std::optional<TextReader> file;              ///< empty while no file is open
    std::array<double, DEncoef + 1> incoming{};  ///< a record while it is read
};

/// Opens the file that serves s.JD, loads the record that holds it and sets JDjpl to it.  A file that was
/// open is closed.  Outside 2305424.5 .. 2524592.5: Refusal "В файлах DE405 нет такой даты" and kodStop = 1.
/// Throws OpenFailure when the file is missing and FileFailure when it holds no such record.
void DEOpen(ModelState& s, Ephemeris& e);

/// Coordinates and velocities of a body at JDjpl, from the barycentre of the Solar System (body 11, the Moon:
/// from the Earth; body 10 gives the same values in row 10), into its row of X..VZ.
/// @param body  0..11
/// @param kod   0: equator of J2000, au and au/day; 1: ecliptic of J2000, m and m/s
/// When JDjpl lies outside the record, the body has no slot or the record is damaged: Refusal "Ошибка чтения
/// файлов JPL" and kodStop = 1; the row stays as it was.
void DEEvaluate(ModelState& s, Ephemeris& e, int body, int kod);

/// One walk step of a run: reads the next record, of the next file when this one is used up, if JDjpl has
/// left the loaded one.  Never reads more than one record ahead, so a run's step must stay below 32 days.
/// Before the loaded record: the same Refusal as in DEEvaluate.
void DEAdvance(ModelState& s, Ephemeris& e);

/// For callers that step both ways: like DEAdvance, and a JDjpl that the next record does not hold either, or
/// earlier than the loaded one, opens the file and record of that date anew.
void DESeek(ModelState& s, Ephemeris& e);

/// Closes the file, if one is open; kodJPLopen stays.
void DEClose(Ephemeris& e);

/// Enters the variables of the ephemeris under their own names; FileNoJPL, the channel, is 1 while a file is
/// open.
void addNames(NameTable& table, const Ephemeris& e);

}  // namespace tarvex
