#pragma once
// The process of the spreadsheet program: hidden, ended with this object and, by the kernel, with this
// program, however that ends.  Its profile and passing files lie in a private folder.

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

#include "core/private_folder.h"

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
    /// To be told when it listens there.
    void connected();

private:
    void start();

    std::filesystem::path program_;
    PrivateFolder folder_;
    std::string pipe_;
    std::vector<std::filesystem::path> sockets_;  ///< where it listens
    pid_t id_ = 0;
    int restarts_ = 0;
};

}  // namespace tarvex
