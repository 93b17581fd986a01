#pragma once
// Who wrote what a run starts from.  All forms write to one shared state, so a run may start from something
// else than the parameter screen shows.  Each group of the state keeps the form that wrote it last, and what
// the parameter screen handed over last, so that a screen can tell what will run.

#include <array>
#include <cstdint>
#include <initializer_list>

#include "core/constants.h"

namespace tarvex {

struct ModelState;

/// Where the parameter screen loads elements and masses from.
enum class Source : std::uint8_t { New0, JPL0, Ser0, JPL2, File, Screen };

/// The groups of the shared state that a run starts from.
enum class Given : std::uint8_t {
    Elements,        ///< of bodies 1..10; a run measures by the copy in ElemStart
    InitialData,     ///< X0 .. VZ0 of bodies 0..10
    Masses,          ///< m and gamma
    Date,            ///< JDstart
    EarthMoon,       ///< kodMoon
    Bary,            ///< kodBary
    SystemVelocity,  ///< VXsys, VYsys, VZsys
    Plan,            ///< NPlan
    Laws             ///< how gravity acts; held outside the model's state
};
inline constexpr int groupCount = 9;

class Provenance {
public:
    /// One writing of a group.
    struct Writing {
        int form = 0;  ///< number of the form; 0: nobody yet
        const char* how = "";  ///< Russian, part of a sentence ("по элементам"); lives as long as the program
        std::int64_t order = 0;  ///< writings are counted through all groups, from 1
    };

    /// A form says in one line that it has written a group.
    void wrote(Given group, int form, const char* how = "");
    /// The screen on which these groups are set for the runs to come has set them: from now on they have
    /// moved when they differ from what they are now.
    void handOver(const ModelState& s, std::initializer_list<Given> groups, const char* how = "",
                  int form = 1);
    /// Finds the groups that have changed since the last call and that nobody has said to have written.
    /// @param form  that has acted meanwhile
    void attribute(const ModelState& s, int form);

    const Writing& last(Given group) const { return last_[static_cast<int>(group)]; }
    const Writing& handedOver(Given group) const { return handedOver_[static_cast<int>(group)]; }
    /// True when the values of the group are no longer those of the last hand-over: somebody else moved them.
    /// A group that was put back as it was has not moved.  Mean longitudes are not compared, and laws never
    /// move.
    bool moved(const ModelState& s, Given group) const;

    /// The elements by which a run would measure, against those that were loaded.
    enum class Measured : std::uint8_t { ByLoaded, ByOthers, ByNone };
    Measured measuredElements(const ModelState& s) const;

    // --- the last load of the parameter screen
    Source source = Source::Ser0;      ///< of the elements
    int file = 0;                      ///< number of the parameter file, for Source::File
    std::int32_t year = 0, month = 0;  ///< start date as it was typed or read, Gregorian calendar
    double day = 0;                    ///< with fraction
    bool complete = true;              ///< false while a load goes on, and after one that failed midway

private:
    static constexpr int mostCells = 6 * bodies;
    using Cells = std::array<double, mostCells>;  ///< values of a group, zeros behind them
    static Cells cells(const ModelState& s, Given group);

    std::array<Writing, groupCount> last_{}, handedOver_{};
    std::array<Cells, groupCount> given_{};  ///< values of the last hand-over
    std::array<Cells, groupCount> seen_{};   ///< and at the last attribution
    std::int64_t writings_ = 0, attributed_ = 0;
};

}  // namespace tarvex
