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

#include "spreadsheet/spreadsheet.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr int askedForRestart = 81;  ///< exit status of the program when a fresh profile has been set up

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

/// A profile that trusts no workbook: no macro runs, nothing is fetched from outside (pictures and links of a
/// file are, by the program's own settings), no link is brought up to date.
void writeProfile(const fs::path& profile) {
    fs::create_directories(profile / "user");
    std::ofstream settings(profile / "user" / "registrymodifications.xcu");
    settings << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\""
                " xmlns:xs=\"http://www.w3.org/2001/XMLSchema\""
                " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n";
    const struct {
        const char *node, *name, *value;
    } items[] = {{"Common/Security/Scripting", "DisableMacrosExecution", "true"},
                 {"Common/Security/Scripting", "MacroSecurityLevel", "3"},
                 {"Common/Security/Scripting", "BlockUntrustedRefererLinks", "true"},
                 {"Calc/Content/Update", "Link", "2"}};
    for (const auto& [node, name, value] : items)
        settings << "<item oor:path=\"/org.openoffice.Office." << node << "\"><prop oor:name=\"" << name
                 << "\" oor:op=\"fuse\"><value>" << value << "</value></prop></item>\n";
    settings << "</oor:items>\n";
    if (!settings.flush()) throw OfficeFailure("не пишется профиль LibreOffice: " + profile.string());
}

/// The environment of the child: ours, with the drawing that needs no screen and the folder for all that it
/// leaves about.
std::vector<std::string> childEnvironment(const fs::path& folder) {
    std::vector<std::string> all = {"SAL_USE_VCLPLUGIN=svp"};
    for (const char* name : {"TMPDIR", "TEMP", "TMP"})
        all.push_back(std::string(name) + "=" + folder.string());
    const auto replaced = all;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view given = *entry;
        const std::string_view name = given.substr(0, given.find('=') + 1);
        if (std::none_of(replaced.begin(), replaced.end(), [&](auto& own) { return own.starts_with(name); }))
            all.emplace_back(given);
    }
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
    : program_(programFolder / "soffice.bin"), folder_("office"), pipe_(folder_.path().filename().string()) {
    sweepPrivateFolders();
    // A message to a process that has died must come back as an error, here and at the end of the program,
    // when the client libraries put back what they found.
    signal(SIGPIPE, SIG_IGN);
    writeProfile(folder_.path() / "profile");
    start();
}

void OfficeProcess::start() {
    std::vector<std::string> arguments = {
        program_.string(),
        "--headless",
        "--invisible",
        "--nologo",
        "--norestore",
        "--nodefault",
        "--nolockcheck",
        "--accept=pipe,name=" + pipe_ + ";urp",
        "-env:UserInstallation=file://" + (folder_.path() / "profile").string()};
    std::vector<std::string> environment = childEnvironment(folder_.path());
    const std::vector<char*> argv = pointers(arguments), envp = pointers(environment);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child < 0) throw OfficeFailure("не запускается LibreOffice");
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

void OfficeProcess::connected() { sockets_ = socketsOf(id_); }

OfficeProcess::~OfficeProcess() {
    if (id_ != 0) {
        if (sockets_.empty()) connected();
        kill(id_, SIGKILL);
        while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    std::error_code error;
    for (const fs::path& socket : sockets_) fs::remove(socket, error);  // a killed process leaves them
}

}  // namespace tarvex
