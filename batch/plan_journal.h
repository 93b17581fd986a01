#pragma once
// The journal of a plan: which experiments are finished, what they were made with, and what their records
// were like when they were put in place.  A text file in the plan's folder; every line is one experiment.

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "batch/worker.h"
#include "core/data_tree.h"

namespace tarvex {

/// Size and checksum (CRC-32) of a file.
struct FileMark {
    std::uintmax_t size = 0;
    std::uint32_t checksum = 0;
    bool operator==(const FileMark&) const = default;
};

/// @return  nothing when there is no such file or it cannot be read
std::optional<FileMark> markOf(const std::filesystem::path& path);

class PlanJournal {
public:
    /// Reads the journal as it is now.  A line that is none is no experiment: it will run again.
    PlanJournal(const DataTree& tree, int plan);

    /// Settings that the experiment was made with.
    /// @return  nothing when the journal does not know it, or its record is not what was put in place
    std::optional<std::string> finishedWith(const Task& task) const;

    /// Puts a finished record in the place of the experiment's own and enters it, with what other programs
    /// have entered meanwhile.  Killed on the way, it leaves a journal in which the experiment is not
    /// finished. Throws Failure: another program is writing the record, or a file cannot be written.
    void handOver(const Task& task, const std::filesystem::path& finished, const std::string& settings);

    std::filesystem::path record(const Task& task) const;

private:
    struct Entry {
        FileMark mark;
        std::string settings;
    };
    void read();
    void write() const;

    const DataTree& tree_;
    int plan_;
    std::filesystem::path path_;
    std::map<Task, Entry> entries_;
};

/// The settings of a batch in one line: the given ones in their order and the checksum of the plan.
std::string settingsLine(const BatchOptions& options, const DataTree& tree);

}  // namespace tarvex
