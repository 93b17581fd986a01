#pragma once
// The process of the spreadsheet program: hidden, with a profile folder of its own, ended with this object
// and, by the kernel, with this program, however that ends.

#include <filesystem>
#include <string>

#include <sys/types.h>

namespace tarvex {

class OfficeProcess {
public:
    /// Starts the program of this folder.  Throws OfficeFailure when it cannot be started.
    explicit OfficeProcess(const std::filesystem::path& programFolder);
    ~OfficeProcess();
    OfficeProcess(const OfficeProcess&) = delete;
    OfficeProcess& operator=(const OfficeProcess&) = delete;

    /// True while the process lives.  With a fresh profile the program asks once to be started again; that is
    /// done here.
    bool alive();
    pid_t id() const { return id_; }
    /// Name of the pipe on which it listens.
    const std::string& pipe() const { return pipe_; }

private:
    void start();

    std::filesystem::path program_, profile_;
    std::string pipe_;
    pid_t id_ = 0;
    int restarts_ = 0;
};

}  // namespace tarvex
