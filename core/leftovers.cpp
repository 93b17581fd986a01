#include "core/leftovers.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include "core/private_folder.h"
#include "core/process_numbers.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view passingEnd = ".tmp~";
constexpr auto longestWrite = std::chrono::hours(24);  ///< of a file on another machine
constexpr const char* socketFolder = "/tmp";           ///< where the spreadsheet program makes its sockets
constexpr std::string_view socketBegin = "OSL_PIPE_";

std::string machine() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

/// Paths of the sockets that processes of this machine hold.
std::set<std::string> socketsInUse() {
    std::set<std::string> paths;
    std::ifstream table("/proc/net/unix");
    for (std::string line; std::getline(table, line);)
        if (const auto path = line.find('/'); path != std::string::npos) paths.insert(line.substr(path));
    return paths;
}

/// True for a socket of this user on which nobody listens.
bool dead(const fs::path& path) {
    struct stat status {};
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (lstat(path.c_str(), &status) != 0 || !S_ISSOCK(status.st_mode) || status.st_uid != geteuid() ||
        path.native().size() >= sizeof address.sun_path)
        return false;
    std::strcpy(address.sun_path, path.c_str());
    const int asking = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (asking < 0) return false;
    const bool refused = connect(asking, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
                         errno == ECONNREFUSED;
    close(asking);
    return refused;
}

void sweepSockets() {
    const std::set<std::string> used = socketsInUse();
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(socketFolder, error))
        if (entry.path().filename().string().starts_with(socketBegin) &&
            !used.contains(entry.path().string()) && dead(entry.path()))
            fs::remove(entry.path(), error);
}

}  // namespace

fs::path passingName(const fs::path& target) {
    fs::path name = target;
    name += "." + machine() + "-" + std::to_string(getpid()) + std::string(passingEnd);
    return name;
}

bool abandoned(const fs::directory_entry& entry) {
    const std::string path = entry.path().filename().string();
    std::string_view name = path;
    if (!name.ends_with(passingEnd)) return false;
    name.remove_suffix(passingEnd.size());
    const auto mark = name.find_last_of(".-");  // earlier versions left the machine out
    if (mark == std::string_view::npos) return false;
    const pid_t process = processIn(name.substr(mark + 1));
    if (process == 0) return false;
    if (name[mark] == '.' || name.substr(0, mark).ends_with("." + machine())) return gone(process);
    std::error_code error;
    const auto written = fs::last_write_time(entry.path(), error);
    return !error && fs::file_time_type::clock::now() - written > longestWrite;
}

void sweepLeftovers(const fs::path& dataRoot) {
    sweepPrivateFolders();
    sweepSockets();
    constexpr auto how = fs::directory_options::skip_permission_denied;
    std::error_code error, ignored;
    for (fs::recursive_directory_iterator entry(dataRoot, how, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!abandoned(*entry)) continue;
        entry.disable_recursion_pending();
        fs::remove_all(entry->path(), ignored);
    }
}

}  // namespace tarvex
