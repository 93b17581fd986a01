#pragma once
// One experiment of a plan in a process of its own, and the passing data tree that this process writes into.

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <string>

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

class Worker {
public:
    /// Starts the process.
    /// @param folder  where its passing tree is made
    /// @param root    the data tree: all of it but the plan's folder is read in place
    /// @return        nothing when the machine has no process to give
    /// Throws std::filesystem::filesystem_error when the passing tree cannot be made.
    static std::unique_ptr<Worker> start(const BatchOptions& options, const Task& task,
                                         const std::filesystem::path& folder,
                                         const std::filesystem::path& root);
    ~Worker();  ///< kills the process when it still runs, and removes its tree
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    const Task& task() const { return task_; }
    /// Becomes readable when it has news.
    int news() const { return pipe_; }
    void readNews();
    double share() const { return share_; }  ///< of its run that is done

    /// True when the process has ended.
    bool ended();
    /// Of a process that has ended: what went wrong, empty when nothing did.
    std::string trouble() const;
    /// The finished record.
    std::filesystem::path record() const;

private:
    Worker(const BatchOptions& options, const Task& task, std::filesystem::path tree);

    const BatchOptions& options_;
    Task task_;
    std::filesystem::path tree_;
    pid_t pid_ = -1;
    int pipe_ = -1, status_ = 0;
    double share_ = 0;
};

}  // namespace tarvex
