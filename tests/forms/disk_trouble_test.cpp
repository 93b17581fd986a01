// Saves, reads and starts on a disk that does not do its part: the old file stays whole, the fixed message of
// the handler comes, and the status line tells the cause.

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr const char* oldFile = "старое\r\n1\r\n2\r\n3\r\n4\r\n 5  6 \r\n";

/// A command that works on one file of the tree, and its fixed messages.
struct Action {
    const char *form, *command, *file;
    const char *notOpened, *notWritten;
};

/// As if the disk were full after these few bytes.
void onFullDisk(const std::function<void()>& body) {
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit full{5, usual.rlim_max};
    const auto old = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    body();
    setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, old);
}

/// As a user who may write neither the file nor anything beside it; root may do all, so he becomes nobody.
void withoutRights(const fs::path& file, const std::function<void()>& body) {
    constexpr uid_t nobody = 65534;
    const bool root = geteuid() == 0;
    fs::permissions(file, fs::perms::none);
    fs::permissions(file.parent_path(), fs::perms(0555));
    if (root) {
        EXPECT_EQ(seteuid(nobody), 0);
    }
    body();
    if (root) {
        EXPECT_EQ(seteuid(0), 0);
    }
    fs::permissions(file.parent_path(), fs::perms(0755));
    fs::permissions(file, fs::perms(0644));
}

struct DiskTrouble : test::LabTest {
    DiskTrouble() {
        folder.makeFolder("Plan0/Txt1");
        lab.desk.show("Form1");
        press("Form1", "Command1");  // elements for the run
        static_cast<CheckBox&>(*lab.desk.form("Form2").find("Check20")).set(true);
        static_cast<TextField&>(*lab.desk.form("Form15").find("Text4")).setText("0");
        screen.atYield = [this](int) { lab.s.kodStop = 1; };
    }
    void press(const char* form, const char* command) {
        static_cast<CommandButton&>(*lab.desk.form(form).find(command)).press();
    }
};

}  // namespace

TEST_F(DiskTrouble, LeavesTheOldFileAndTellsTheCause) {
    const Action actions[] = {
        {"Form1", "Command4", "Dat/Tarvex1.dat", "Не могу найти файл \\Dat\\Tarvex1.dat",
         "Ошибка записи в файл \\Dat\\Tarvex1.dat"},
        {"Form1", "Command3", "Dat/Tarvex1.dat", "Не могу найти файл \\Dat\\Tarvex1.dat", nullptr},
        {"Form2", "Command1", "Plan0/Txt1/Tarvex1Ras1.txt", "Задайте правильно данные",
         "Задайте правильно данные"},
        {"Form15", "Command12", "Plan0/TarvexPlan0.dat",
         "Ошибка при записи данных в файл \\Plan0 \\TarvexPlan0.dat",
         "Ошибка при записи данных в файл \\Plan0 \\TarvexPlan0.dat"},
    };
    static_cast<OptionButton&>(*lab.desk.form("Form1").find("Option6")).choose();
    for (const Action& action : actions) {
        const char* const form = action.form;
        const char* const name = action.file;
        const fs::path file = folder.path() / name, aside = folder.path() / "aside";
        const std::string folderName = fs::path(name).parent_path().string();
        const bool reads = action.notWritten == nullptr;
        const auto expect = [&](const char* message, const std::string& cause) {
            press(form, action.command);
            EXPECT_EQ(screen.onlyMessage().text, message) << name;
            EXPECT_EQ(lab.desk.form(form).status(), cause);
            EXPECT_EQ(screen.causes.back(), cause);
        };
        test::writeBytes(file, oldFile);
        if (!reads)
            onFullDisk([&] { expect(action.notWritten, std::string("нет места на диске: ") + name); });
        withoutRights(file, [&] {
            expect(action.notOpened,
                   (reads ? "нет права читать: " : "нет права писать: ") + std::string(name));
        });
        EXPECT_EQ(test::readBytes(file), oldFile);
        EXPECT_FALSE(fs::exists(file.string() + ".old"));

        fs::rename(file.parent_path(), aside);
        expect(action.notOpened, "нет папки " + folderName);
        fs::rename(aside, file.parent_path());
        fs::rename(file, aside);
        fs::create_directory(file);
        expect(action.notOpened, std::string("на месте файла папка: ") + name);
        fs::remove(file);
        fs::rename(aside, file);
        for (const auto& entry : fs::directory_iterator(file.parent_path()))
            EXPECT_FALSE(entry.path().string().ends_with("~")) << entry.path();
        fs::remove(file);
    }
}

TEST_F(DiskTrouble, WhatASaveReplacesIsKeptBesideIt) {
    const Action actions[] = {{"Form1", "Command4", "Dat/Tarvex1.dat", nullptr, nullptr},
                              {"Form2", "Command1", "Plan0/Txt1/Tarvex1Ras1.txt", nullptr, nullptr},
                              {"Form15", "Command12", "Plan0/TarvexPlan0.dat", nullptr, nullptr}};
    for (const auto& [form, command, name, unused, none] : actions) {
        const fs::path file = folder.path() / name, kept = file.string() + ".old";
        test::writeBytes(file, oldFile);
        press(form, command);
        EXPECT_EQ(test::readBytes(kept), oldFile) << name;
        press(form, command);  // nothing new: a head without records, or the same bytes
        EXPECT_EQ(test::readBytes(kept), oldFile) << name;
        fs::remove(kept);
        fs::create_directory(kept);  // no place for the copy: nothing is replaced
        test::writeBytes(file, oldFile);
        screen.messages.clear();
        press(form, command);
        EXPECT_EQ(screen.messages.size(), 1u);
        EXPECT_EQ(screen.causes.back(), "на месте файла папка: " + std::string(name) + ".old");
        EXPECT_EQ(test::readBytes(file), oldFile);
    }
}

}  // namespace tarvex
