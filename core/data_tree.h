#pragma once
// The tree of plain text files beside the program.  Every file has one name, written with back-slashes as the
// messages show it ("\Dat\Tarvex7.dat"); DataTree turns it into a path of this machine.
// Numbers enter names without leading zeros.  No routine creates a folder.

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvex {

class DataTree {
public:
    explicit DataTree(std::filesystem::path root) : root_(std::move(root)) {}

    const std::filesystem::path& root() const { return root_; }
    /// Path of a file or folder named with back-slashes relative to the tree's root.  It may be a symbolic
    /// link to anywhere: whoever sets up a tree may keep the ephemeris elsewhere. Throws OpenFailure for a
    /// name with "..".
    std::filesystem::path at(std::string_view name) const;
    /// The same for a name that holds a text typed by the user: what follows its first folder stays in it.
    /// Throws OpenFailure for one that leads out (an absolute path, "..", a link).
    std::filesystem::path typed(std::string_view name) const;

private:
    std::filesystem::path root_;
};

/// True when a typed name stays under the folder: it is no absolute path, has no "..", and follows no link
/// that leads out.
bool staysUnder(const std::filesystem::path& folder, std::string_view name);

/// Names of the files by kind: N a file number, i a body, k a plan, e an experiment.
namespace files {

std::string parameters(int N);                       ///< \Dat\Tarvex<N>.dat
std::string perturbations(int N);                    ///< \Dat\dL<N>.dat
std::string trackXYZ(int i, int N);                  ///< \Dat\Tarvex<i>XYZ<N>.txt
std::string testPlan(int k);                         ///< \Dat\NabPlan<k>.txt
std::string pulsar(int N);                           ///< \Dat\Pulsar<N>.dat
std::string ephemeris(int year);                     ///< \JPL\ascp<year>.405
std::string runRecord(int k, int i, int e);          ///< \Plan<k>\Txt<i>\Tarvex<i>Ras<e>.txt
std::string series(std::string_view folder, int i);  ///< <folder>\Tarvex<i>Nab.txt, folder like "\NEW"
std::string shifts(std::string_view folder);         ///< <folder>\TarvexNab.dat
std::string plan(int k);                             ///< \Plan<k>\TarvexPlan<k>.dat
std::string planJournal(int k);                      ///< \Plan<k>\TarvexJournal<k>.txt
std::string planShifts(int k, int i);                ///< \Plan<k>\Tarvex<i>Ras.dat
std::string shiftErrors(std::string_view folder);    ///< <folder>\TarvexNabErr.dat
std::string planShiftErrors(int k, int i);           ///< \Plan<k>\Tarvex<i>RasErr.dat

}  // namespace files

}  // namespace tarvex
