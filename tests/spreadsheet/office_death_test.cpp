// The office dies under the laboratory: at every message that goes to it, and at the end.
#include <signal.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <iostream>

#include "spreadsheet/spreadsheet.h"
#include "tests/support/test_workbook.h"
#include "tests/support/testing.h"

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
    } catch (const Failure& failure) {
        std::cerr << failure.what() << '\n';  // one of the two is expected
        return false;
    }
}

/// One life of a laboratory whose office dies before message n.  Status: 2 for a first use that was good, 1
/// for a second.
[[noreturn]] void life(int n, const std::filesystem::path& table) {
    deadly = n;
    bool first = false, second = false;
    {
        SpreadsheetOffice office;
        first = works(office, table);
        second = works(office, table);
    }
    std::exit((first ? 2 : 0) + (second ? 1 : 0));  // with the end of the office's libraries
}

/// Messages before which the office dies: at the first ones of a connection, amid its work, at its end (there
/// are about fifty in one use), and never.  EVERY_MESSAGE=1 takes all of two uses, two seconds each.
std::vector<int> deaths() {
    if (std::getenv("EVERY_MESSAGE") == nullptr) return {0, 1, 3, 30, 52};
    std::vector<int> all(120);
    std::iota(all.begin(), all.end(), 0);
    return all;
}

struct OfficeDeath : ::testing::TestWithParam<int> {};

}  // namespace

/// The program lives on, and opens the table again.
TEST_P(OfficeDeath, IsAFailureAndNeverTheEndOfTheProgram) {
    if (!SpreadsheetOffice::available()) GTEST_SKIP() << "built without LibreOffice";
    const test::TempFolder folder;
    const auto table = folder.path() / "table.xls";
    test::writeWorkbook(table, {{{"A1", "1"}, {"A2", "=[.A1]*2"}}});
    const int n = GetParam();
    const pid_t laboratory = fork();
    if (laboratory == 0) life(n, table);
    int status = 0;
    waitpid(laboratory, &status, 0);
    ASSERT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
    const int uses = WEXITSTATUS(status);
    if (n == 0)
        EXPECT_EQ(uses, 3);
    else if (n <= 30)
        EXPECT_EQ(uses, 1) << "the first one fails";
    else
        EXPECT_TRUE(uses == 1 || uses == 2 || uses == 3) << uses;
}

INSTANTIATE_TEST_SUITE_P(Before, OfficeDeath, ::testing::ValuesIn(deaths()));

}  // namespace tarvex
