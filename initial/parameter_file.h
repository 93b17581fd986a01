#pragma once
// The numbered parameter file \Dat\Tarvex<N>.dat: date, masses, elements and coordinates of bodies 0..10,
// each number scaled and cut to a whole one.

#include <functional>

#include "core/data_tree.h"
#include "core/model_state.h"
#include "core/text_files.h"

namespace tarvex {

/// Writes file number N from the date, elements, coordinates X..VZ and km of the state, replacing an old file
/// as a whole.  Throws OpenFailure when it cannot be created, another failure when it cannot be written.
void writeParameters(const ModelState& s, const DataTree& tree, int N);

/// Reads a parameter file in two stages, because its date is shown before the rest is read.
class ParameterReader {
public:
    /// Throws OpenFailure when there is no such file.
    ParameterReader(const DataTree& tree, int N);

    /// The date into God, Mes, Den (day with fraction) and on into God0, Mes0, Den0.
    void date(ModelState& s);
    /// mSol, gamma, Lae and the rows of bodies 0..10 with X0..VZ0 and m; each row's number goes to IplSel.
    /// A failure (also a zero km) leaves the rows read so far.
    /// @param rowRead  called after each row with its body
    void bodies(ModelState& s, const std::function<void(int body)>& rowRead);

private:
    TextReader file_;
};

}  // namespace tarvex
