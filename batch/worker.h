#pragma once
// Experiments of a plan in a process of their own, and the passing data trees that this process writes into.

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "batch/batch_options.h"

namespace tarvex {

/// An experiment of the plan for one planet.
struct Task {
    int planet = 0, experiment = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): it takes the 0 that the compiler compares with for a pointer
    auto operator<=>(const Task&) const = default;
};

/// "планета 1, эксперимент 2"
std::string nameOf(const Task& task);

/// Some experiments in one process, side by side in the lanes of its core where their law allows it.
class Worker {
public:
    /// Starts the process.
    /// @param folder  where the passing trees are made, one for each experiment
    /// @param root    the data tree: all of it but the plan's folder is read in place
    /// @return        nothing when the machine has no process to give
    /// Throws std::filesystem::filesystem_error when a passing tree cannot be made.
    static std::unique_ptr<Worker> start(const BatchOptions& options, const std::vector<Task>& tasks,
                                         const std::filesystem::path& folder,
                                         const std::filesystem::path& root);
    ~Worker();  ///< kills the process when it still runs, and removes its trees
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Becomes readable when it has news.
    int news() const { return pipe_; }
    /// @return  false when there are none and will be none
    bool readNews();
    std::size_t inWork() const;  ///< experiments that have not ended
    double share() const;        ///< of those, what is done of each, all together

    /// True when the process has ended; all its news have been read then.
    bool ended();

    /// An experiment that has ended.
    struct Outcome {
        Task task;
        std::string trouble;           ///< what went wrong, empty when nothing did
        std::filesystem::path record;  ///< the finished one
    };
    /// The experiments that have ended since the last call; all of them once the process has.
    std::vector<Outcome> outcomes();

private:
    enum class State { InWork, Done, Failed, Told };
    struct Part {
        Task task;
        std::filesystem::path tree;
        State state = State::InWork;
        double share = 0;
    };
    Worker(const BatchOptions& options, const std::vector<Task>& tasks, const std::filesystem::path& folder);
    int work(int pipe) const;
    Outcome outcomeOf(const Part& part) const;

    const BatchOptions& options_;
    std::vector<Part> parts_;
    pid_t pid_ = -1;
    int pipe_ = -1;
};

}  // namespace tarvex
