#include "core/leftovers.h"

#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/file_lock.h"
#include "core/private_folder.h"
#include "core/text_files.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace fs = std::filesystem;
using test::TempFolder;

namespace {

const std::string socketBegin = "/tmp/OSL_PIPE_test";

/// What every program of ours may hold: a file that grows, a private folder, a socket, a lock.
struct Holdings {
    explicit Holdings(const fs::path& tree)
        : growing(tree / ("Dat/" + std::to_string(getpid()))), lock(FileLock::tryLock(tree / "locked")) {
        test::writeBytes(folder.path() / "inside", "x");
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        (socketBegin + std::to_string(getpid())).copy(address.sun_path, sizeof address.sun_path - 1);
        listening = socket(AF_UNIX, SOCK_STREAM, 0);
        EXPECT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listening, 1), 0);
    }
    ~Holdings() { close(listening); }
    TextWriter growing;
    PrivateFolder folder{"test"};
    std::optional<FileLock> lock;
    int listening = -1;
};

/// How many of the three kinds of leftovers there are of a process.
std::string held(const fs::path& tree, pid_t process) {
    int files = 0, folders = 0;
    for (const auto& entry : fs::directory_iterator(tree / "Dat"))
        files += entry.path().filename().string().starts_with(std::to_string(process) + ".");
    for (const auto& entry : fs::directory_iterator(fs::temp_directory_path()))
        folders +=
            entry.path().filename().string().starts_with("tarvex-test-" + std::to_string(process) + "-");
    return std::to_string(files) + std::to_string(folders) +
           std::to_string(fs::exists(socketBegin + std::to_string(process)));
}

}  // namespace

/// All that a killed program leaves goes, its lock at once; nothing of a living one does.
TEST(Leftovers, OnlyThoseOfKilledProgramsAreSwept) {
    const TempFolder tree;
    tree.makeFolder("Dat");
    tree.makeFolder("elsewhere");
    test::writeBytes(tree.path() / "locked", "");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t program = fork();
    if (program == 0) {
        const Holdings holdings(tree.path());
        if (write(ends[1], "!", 1) == 1) pause();
        _exit(1);
    }
    char ready = 0;
    ASSERT_EQ(read(ends[0], &ready, 1), 1);
    {
        const Holdings own(tree.path());
        EXPECT_FALSE(own.lock.has_value()) << "the other program holds it";
        sweepLeftovers(tree.path());
        EXPECT_EQ(held(tree.path(), program), "111");

        kill(program, SIGKILL);
        waitpid(program, nullptr, 0);
        const auto freed = FileLock::tryLock(tree.path() / "locked");
        ASSERT_TRUE(freed.has_value());
        EXPECT_TRUE(freed->held());
        const fs::path other = tree.path() / "Dat/a.elsewhere-99999999.tmp~";
        const fs::path older = tree.path() / "Dat/b.elsewhere-99999999.tmp~";
        const fs::path linked = tree.path() / "elsewhere/c.99999999.tmp~";
        for (const fs::path& file : {other, older, linked}) test::writeBytes(file, "x");
        const auto foreign = fs::temp_directory_path() / "tarvex-test-99999999x";  // begins as one of ours
        fs::create_directory(foreign);
        fs::last_write_time(older, fs::file_time_type::clock::now() - std::chrono::hours(48));
        fs::create_directory_symlink(tree.path() / "elsewhere", tree.path() / "Dat/link");
        sweepLeftovers(tree.path() / "Dat");
        EXPECT_TRUE(fs::remove(foreign));
        EXPECT_EQ(held(tree.path(), program), "000");
        EXPECT_EQ(held(tree.path(), getpid()), "111");
        EXPECT_TRUE(fs::exists(other) && !fs::exists(older) && fs::exists(linked));
    }
    // its socket, which nobody holds any more, may have been swept by another program meanwhile
    sweepLeftovers(tree.path());
    EXPECT_EQ(held(tree.path(), getpid()), "000");
    for (const int end : ends) close(end);
}

/// Who waits gets the file that bears the name now, not the one that was replaced meanwhile.
TEST(FileLock, AWaitingProgramGetsTheFileThatReplacedTheLockedOne) {
    const TempFolder folder;
    const fs::path path = folder.path() / "journal";
    auto first = FileLock::wait(path);
    ASSERT_TRUE(first.held());
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t waiting = fork();
    if (waiting == 0) {
        first.release();  // a copy of this process's own
        if (write(ends[1], "!", 1) != 1) _exit(2);
        const auto second = FileLock::wait(path);
        _exit(test::readBytes(path) == "new" && !FileLock::tryLock(path) ? 0 : 1);
    }
    char ready = 0;
    ASSERT_EQ(read(ends[0], &ready, 1), 1);
    EXPECT_FALSE(FileLock::tryLock(path).has_value());
    test::writeBytes(folder.path() / "passing", "new");
    fs::rename(folder.path() / "passing", path);
    first.release();
    int status = -1;
    waitpid(waiting, &status, 0);
    EXPECT_EQ(status, 0);
    for (const int end : ends) close(end);
    EXPECT_FALSE(FileLock::tryLock(folder.path() / "none")->held());
}

}  // namespace tarvex
