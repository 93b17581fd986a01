// The office dies under the laboratory: at every message that goes to it, and at the end.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <numeric>

#include "spreadsheet/spreadsheet.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_workbook.h"

namespace {

std::atomic<int> sends = 0;   ///< messages to an office so far
std::atomic<int> deadly = 0;  ///< number of the message before which its office is killed, 0: none

/// Kills the process at the other end, and comes back when it is dead and its end of the socket closed.
void killPeer(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) return;
    kill(peer.pid, SIGKILL);
    siginfo_t ended{};
    waitid(P_PID, static_cast<id_t>(peer.pid), &ended, WEXITED | WNOWAIT);
}

}  // namespace

/// Stands before the system's own in this program: the office's client library sends all its messages by it.
extern "C" ssize_t send(int socket, const void* data, size_t size, int flags) {
    if (++sends == deadly) killPeer(socket);
    return syscall(SYS_sendto, socket, data, size, flags, nullptr, 0);
}

namespace tarvex {

namespace {

const std::vector<Cell> in = {{1, "A1"}}, out = {{1, "A2"}};

bool works(SpreadsheetOffice& office, const std::filesystem::path& table) {
    try {
        const auto book = office.open(table, 1);
        for (const int i : {1, 2})
            if (numberIn(book->calculate(in, {double(i)}, out)[0]) != 2 * i) return false;
        return true;
    } catch (const Failure&) {
        return false;
    }
}

/// One life of a laboratory whose office dies before message n.
[[noreturn]] void life(int n, const std::filesystem::path& table, int pipe) {
    deadly = n;
    bool first = false, second = false;
    {
        SpreadsheetOffice office;
        first = works(office, table);
        second = works(office, table);
    }
    const int count = sends;
    if (write(pipe, &count, sizeof count) != sizeof count) _exit(9);
    std::exit((first ? 2 : 0) + (second ? 1 : 0));  // with the end of the office's libraries
}

struct Life {
    int messages = 0, status = 0;
};

Life live(int n, const std::filesystem::path& table) {
    Life told;
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t laboratory = fork();
    if (laboratory == 0) life(n, table, ends[1]);
    close(ends[1]);
    EXPECT_EQ(read(ends[0], &told.messages, sizeof told.messages), ssize_t(sizeof told.messages));
    close(ends[0]);
    waitpid(laboratory, &told.status, 0);
    return told;
}

}  // namespace

/// The program lives on, and opens the table again.  EVERY_MESSAGE=1 takes all (two seconds each).
TEST(OfficeDeath, BeforeAnyMessageIsAFailureAndNeverTheEndOfTheProgram) {
    if (!SpreadsheetOffice::available()) GTEST_SKIP() << "built without LibreOffice";
    const test::TempFolder folder;
    const auto table = folder.path() / "table.xls";
    test::writeWorkbook(table, {{{"A1", "1"}, {"A2", "=[.A1]*2"}}});
    const Life whole = live(0, table);
    EXPECT_EQ(whole.status, W_EXITCODE(3, 0));
    const int all = whole.messages;
    std::vector<int> deaths = {1, 2, 3, all / 4, all / 2, all - 1, all};
    if (std::getenv("EVERY_MESSAGE") != nullptr) {
        deaths.resize(static_cast<std::size_t>(all));
        std::iota(deaths.begin(), deaths.end(), 1);
    }
    int failed = 0;
    for (const int n : deaths) {
        const Life life = live(n, table);
        EXPECT_TRUE(WIFEXITED(life.status)) << "message " << n << ": signal " << WTERMSIG(life.status);
        const int worked = WEXITSTATUS(life.status);
        EXPECT_TRUE(worked == 1 || worked == 2 || worked == 3) << n;
        failed += worked != 3;
    }
    EXPECT_GE(failed, 3);
}

}  // namespace tarvex
