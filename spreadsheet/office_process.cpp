#include "spreadsheet/office_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#include "core/numbers.h"
#include "spreadsheet/spreadsheet.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr const char* profilePrefix = "tarvex-office-";
constexpr int askedForRestart = 81;  ///< exit status of the program when a fresh profile has been set up

/// Removes the profile folders of programs that crashed: those whose process is gone.
void sweepProfiles(const fs::path& folder) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (!name.starts_with(profilePrefix)) continue;
        const long owner = std::strtol(name.c_str() + std::string_view(profilePrefix).size(), nullptr, 10);
        if (owner > 0 && kill(static_cast<pid_t>(owner), 0) != 0 && errno == ESRCH)
            fs::remove_all(entry.path(), error);
    }
}

fs::path freshProfile() {
    std::error_code error;
    fs::path folder = fs::temp_directory_path(error);
    if (error) folder = "/tmp";
    sweepProfiles(folder);
    std::string path = (folder / (profilePrefix + std::to_string(getpid()) + "-XXXXXX")).string();
    if (mkdtemp(path.data()) == nullptr)
        throw OfficeFailure("no profile folder can be made in " + folder.string());
    return path;
}

/// Where the process listens in the file system.
std::vector<fs::path> socketsOf(pid_t process) {
    std::vector<std::string> own;  // "socket:[12345]"
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc/" + std::to_string(process) + "/fd", error))
        own.push_back(fs::read_symlink(entry.path(), error).string());
    std::vector<fs::path> paths;
    std::ifstream table("/proc/net/unix");
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string count, references, protocol, flags, type, state, inode, path;
        words >> count >> references >> protocol >> flags >> type >> state >> inode >> path;
        const bool isOwn = std::find(own.begin(), own.end(), "socket:[" + inode + "]") != own.end();
        if (isOwn && path.starts_with('/')) paths.emplace_back(path);
    }
    return paths;
}

/// The environment of the child: ours, with the drawing that needs no screen.
std::vector<std::string> childEnvironment() {
    std::vector<std::string> all;
    for (char** entry = environ; *entry != nullptr; ++entry)
        if (!std::string_view(*entry).starts_with("SAL_USE_VCLPLUGIN=")) all.emplace_back(*entry);
    all.emplace_back("SAL_USE_VCLPLUGIN=svp");
    return all;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> all;
    all.reserve(texts.size() + 1);
    for (std::string& text : texts) all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

}  // namespace

OfficeProcess::OfficeProcess(const fs::path& programFolder)
    : program_(programFolder / "soffice.bin"),
      profile_(freshProfile()),
      pipe_("tarvex" + profile_.filename().string().substr(std::string_view(profilePrefix).size())) {
    // A message to a process that has died must come back as an error, here and at the end of the program,
    // when the client libraries put back what they found.
    signal(SIGPIPE, SIG_IGN);
    try {
        start();
    } catch (...) {
        std::error_code error;
        fs::remove_all(profile_, error);
        throw;
    }
}

void OfficeProcess::start() {
    std::vector<std::string> arguments = {program_.string(),
                                          "--headless",
                                          "--invisible",
                                          "--nologo",
                                          "--norestore",
                                          "--nodefault",
                                          "--nolockcheck",
                                          "--accept=pipe,name=" + pipe_ + ";urp",
                                          "-env:UserInstallation=file://" + profile_.string()};
    std::vector<std::string> environment = childEnvironment();
    const std::vector<char*> argv = pointers(arguments), envp = pointers(environment);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child < 0) throw OfficeFailure("the spreadsheet program cannot be started");
    if (child == 0) {
        // Only calls that are safe after the fork of a program with threads.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) _exit(127);
        signal(SIGPIPE, SIG_DFL);
        const int nothing = ::open("/dev/null", O_RDWR);
        for (int fd = 0; fd < 3; ++fd) dup2(nothing, fd);
        close_range(3, ~0U, 0);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    id_ = child;
}

bool OfficeProcess::alive() {
    if (id_ == 0) return false;
    int status = 0;
    const pid_t ended = waitpid(id_, &status, WNOHANG);
    if (ended == 0) return true;
    id_ = 0;
    if (ended < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != askedForRestart || restarts_++ > 0)
        return false;
    start();
    return true;
}

OfficeProcess::~OfficeProcess() {
    std::error_code error;
    if (id_ != 0) {
        const std::vector<fs::path> sockets = socketsOf(id_);  // a killed office leaves them
        kill(id_, SIGKILL);
        while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
        }
        for (const fs::path& socket : sockets) fs::remove(socket, error);
    }
    fs::remove_all(profile_, error);
}

}  // namespace tarvex
