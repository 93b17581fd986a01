#include "core/text_files.h"

#include <sys/resource.h>

#include <csignal>

#include "core/data_tree.h"
#include "tests/support/testing.h"

namespace tarvex {

using test::readBytes;
using test::TempFolder;
using test::writeBytes;

TEST(TextFiles, ReadsItemsAcrossLinesAndTextsBetween) {
    const TempFolder folder;
    const auto path = folder.path() / "a.txt";
    writeBytes(path, "\xEF\xBB\xBF 1500 , 1,1801   MK=1 000\r\n\r\nзаголовок\n-0.5D+01 7\r\n");
    TextReader reader(path);
    EXPECT_EQ(reader.number(), 1500);
    EXPECT_EQ(reader.int32(), 1);
    EXPECT_EQ(reader.int16(), 1801);
    EXPECT_EQ(reader.line(), "   MK=1 000");
    EXPECT_EQ(reader.line(), "");
    EXPECT_EQ(reader.line(), "заголовок");
    EXPECT_EQ(reader.number(), -5);
    EXPECT_FALSE(reader.noMoreItems());
    EXPECT_EQ(reader.number(), 7);
    EXPECT_TRUE(reader.noMoreItems());
    EXPECT_THROW(reader.number(), FileFailure);
    EXPECT_THROW(reader.line(), FileFailure);
}

TEST(TextFiles, OldCodePageIsRead) {
    const TempFolder folder;
    const auto path = folder.path() / "old.txt";
    writeBytes(path, "\xCC\xE5\xF0\xEA\xF3\xF0\xE8\xE9 \xB9 5\r\n");
    EXPECT_EQ(TextReader(path).line(), "Меркурий № 5");
    EXPECT_EQ(decoded("Ёж"), "Ёж");
    EXPECT_EQ(decoded("\xA8"), "Ё");
    EXPECT_EQ(decoded("\xD0"), "Р");  // a lone lead byte is no UTF-8
}

TEST(TextFiles, DamagedInputIsAFailureNotACrash) {
    const TempFolder folder;
    const auto path = folder.path() / "b.txt";
    EXPECT_THROW(TextReader(folder.path() / "none.txt"), OpenFailure);
    EXPECT_THROW(TextReader(folder.path()), OpenFailure);
    writeBytes(path, "12 слово 40000");
    TextReader words(path);
    EXPECT_EQ(words.number(), 12);
    EXPECT_THROW(words.number(), FileFailure);
    EXPECT_THROW(words.int16(), FileFailure);
    writeBytes(path, std::string(3 << 20, 'x'));
    EXPECT_THROW(TextReader(path).number(), FileFailure);
    writeBytes(path, std::string("\x01\xFF\0\x90", 4));
    EXPECT_THROW(TextReader(path).number(), FileFailure);
}

TEST(TextFiles, RewriteIsWholeOrNotAtAll) {
    const TempFolder folder;
    const auto path = folder.path() / "c.txt";
    writeBytes(path, "old");
    {
        TextWriter abandoned(path);
        abandoned.line("new");
    }
    EXPECT_EQ(readBytes(path), "old");
    TextWriter writer(path);
    writer.line("Привет");
    writer.items(1, -2.5, 1e14);
    EXPECT_EQ(readBytes(path), "old");
    writer.commit();
    EXPECT_EQ(readBytes(path), "Привет\r\n 1 -2.5  100000000000000 \r\n");
    EXPECT_EQ(readBytes(folder.path() / "c.txt.old"), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
    // killed between the copy and the new file: both names lead to one file, and the next save parts them
    std::filesystem::remove(folder.path() / "c.txt.old");
    std::filesystem::create_hard_link(path, folder.path() / "c.txt.old");
    const std::string before = readBytes(path);
    TextWriter(path).commit();
    EXPECT_EQ(readBytes(folder.path() / "c.txt.old"), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
    // through links, also one to nothing yet, to the file that they name
    const auto link = folder.path() / "link", second = folder.path() / "link2";
    std::filesystem::create_symlink("link", second);
    for (const char* named : {"c.txt", "new.txt"}) {
        std::filesystem::remove(link);
        std::filesystem::create_symlink(named, link);
        TextWriter through(second);
        through.line(named);
        through.commit();
        EXPECT_TRUE(std::filesystem::is_symlink(link) && std::filesystem::is_symlink(second));
        EXPECT_EQ(readBytes(folder.path() / named), named + std::string("\r\n"));
    }
    EXPECT_THROW(TextWriter(folder.path() / "none" / "c.txt"), OpenFailure);
    EXPECT_THROW(TextWriter(folder.path()), OpenFailure);
    appendLine(path, "хвост");
    EXPECT_TRUE(readBytes(path).ends_with("хвост\r\n"));
    EXPECT_EQ(TextReader(folder.path() / "c.txt").line(), "c.txt");
    EXPECT_THROW(appendLine(folder.path() / "none" / "c.txt", ""), OpenFailure);
}

TEST(TextFiles, AFullDiskLeavesNoHalfOfALine) {
    const test::TempFolder folder;
    const auto path = folder.path() / "records.txt";
    appendLine(path, " 1  2 ");
    const std::string before = test::readBytes(path);
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit full{before.size() + 5,
                      usual.rlim_max};  // as if the disk ended in the middle of the next line
    const auto old = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_THROW(appendLine(path, " 3.14159  2.71828 "), FileFailure);
    TextWriter writer(path);
    writer.line(std::string(100, 'x'));
    EXPECT_THROW(writer.commit(), FileFailure);
    setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, old);
    EXPECT_EQ(test::readBytes(path), before);
}

TEST(DataTree, TypedNamesStayInTheirFolder) {
    const test::TempFolder folder, outside;
    folder.makeFolder("Risunki/inner");
    const auto in = folder.path() / "Risunki";
    std::filesystem::create_symlink(outside.path(), in / "out");
    std::filesystem::create_symlink(outside.path() / "new.png", in / "l.png");
    std::filesystem::create_symlink("inner", in / "in");
    const DataTree tree(folder.path());
    const std::pair<const char*, bool> names[] = {
        {"a.png", true},       {"inner\\a.png", true}, {"in/a.png", true},  {"..a.png", true},
        {"/etc/a.png", false}, {"\\a.png", false},     {"../a.png", false}, {"inner\\..\\..\\a.png", false},
        {"..", false},         {"out/a.png", false},   {"l.png", false},    {"in/../a.png", false},
        {"", false},
    };
    for (const auto& [name, stays] : names) {
        bool refused = false;
        try {
            tree.typed(std::string("\\Risunki\\") + name);
        } catch (const OpenFailure&) {
            refused = true;
        }
        EXPECT_NE(refused, stays) << name;
    }
    EXPECT_EQ(tree.at("\\Risunki\\out\\a.png"), in / "out" / "a.png");  // a numbered file may be anywhere
    EXPECT_THROW(tree.at("\\Obs\\..\\..\\x1_G_1.txt"), OpenFailure);
}

}  // namespace tarvex
