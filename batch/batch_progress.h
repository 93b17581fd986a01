#pragma once
// What a batch tells of its progress: often on a terminal, little in a log.

#include <chrono>
#include <cstddef>
#include <iosfwd>

#include "batch/worker.h"

namespace tarvex {

class BatchProgress {
public:
    using Clock = std::chrono::steady_clock;

    /// @param terminal  somebody looks: tell() every two seconds; otherwise at most once a minute, and a line
    ///                  when an experiment begins or ends
    BatchProgress(std::ostream& err, bool terminal, int plan) : err_(err), terminal_(terminal), plan_(plan) {}

    void begin(std::size_t total, std::size_t finishedBefore, Clock::time_point now);
    void began(const Task& task);
    void finished(const Task& task);
    void failed(const Task& task, const std::string& trouble);

    /// One line when it is time for one: how much is done and when the rest will be.
    /// @param running  experiments in work
    /// @param shares   sum of their done shares
    void tell(std::size_t running, double shares, Clock::time_point now);
    /// The same line at once.
    void tellNow(std::size_t running, double shares, Clock::time_point now);

    bool allGood() const { return failed_ == 0; }

private:
    std::ostream& err_;
    bool terminal_;
    int plan_;
    std::size_t total_ = 0, before_ = 0, done_ = 0, failed_ = 0;
    Clock::time_point begun_, told_;
};

}  // namespace tarvex
