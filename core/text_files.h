#pragma once
// Sequential text files of the laboratory: lines end with CR LF, numbers are items between blanks.
// A rewrite replaces the whole file or leaves the old one; an append is flushed line by line.

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/numbers.h"

namespace tarvex {

/// Reads a text file as a stream, line by line or item by item; blanks, commas and line ends separate items.
/// Lines are UTF-8, or Windows-1251 where the bytes are not valid UTF-8; LF and CR LF end a line alike.
class TextReader {
public:
    /// Throws OpenFailure when the path is no readable file.
    explicit TextReader(const std::filesystem::path& path);

    /// Next number.  Throws FileFailure at the end of the file or when the item is no number.
    double number();
    /// Next number as a 16-bit (32-bit) integer; throws FileFailure also when it does not fit.
    std::int16_t int16();
    std::int32_t int32();
    /// The same for an item that a number with a sign may follow without a blank ("01-29067"): what starts
    /// with the sign is the next item.
    std::int32_t int32BeforeSign();

    /// The rest of the current line, decoded, without its end.  Throws FileFailure at the end of the file.
    std::string line();
    /// The same without an exception: false at the end of the file.
    bool line(std::string& text);

    /// True when no item (nothing but blanks, commas and line ends) is left.
    bool noMoreItems();
    /// True when the current line holds no further item.
    bool lineUsedUp();

private:
    bool fill();
    std::string_view item();
    double numberIn(std::string_view item);
    std::string where() const;

    std::ifstream file_;
    std::string name_;
    std::vector<char> block_;  ///< a piece of the file
    std::size_t blockAt_ = 0, blockEnd_ = 0;
    std::string current_;  ///< the line being read, undecoded
    std::size_t at_ = 0;   ///< first unread byte of current_
    std::int64_t lineNumber_ = 0;
    bool open_ = false;  ///< current_ holds a line that is not used up
};

/// A file that is to replace the target as a whole.  It grows beside the target under a passing name; until
/// put(), and after any failure, the old file stands untouched.  A target that is a symbolic link stays one:
/// the file that it names is replaced.
class Replacement {
public:
    /// Throws OpenFailure when the folder is missing or the target cannot be written.
    explicit Replacement(const std::filesystem::path& target);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    /// Throws FileFailure.
    void write(std::string_view bytes);
    /// What was written, on the disk and under the name of the target.  Throws FileFailure.
    void put();
    const std::filesystem::path& target() const { return target_; }

private:
    std::filesystem::path target_, passing_;
    int file_ = -1;
};

/// Writes a text file that replaces the target as a whole on commit(); until then, and after any failure, the
/// old file stands untouched.  What it replaces is kept beside it as "<name>.old", one generation, when it
/// differs and holds more than its head.
class TextWriter {
public:
    /// @param headLines  lines before the records that later calls append: a file with no more is not kept
    /// Throws OpenFailure when the folder is missing or the target cannot be written.
    explicit TextWriter(const std::filesystem::path& target, int headLines = 0);
    static constexpr int noCopy = std::numeric_limits<int>::max();  ///< headLines of what is never kept

    void line(std::string_view text) { text_.append(text).append("\r\n"); }
    /// One line of number items.
    template <class... Numbers>
    void items(Numbers... values) {
        std::string text;
        (text.append(fileItem(static_cast<double>(values))), ...);
        line(text);
    }
    /// Keeps the old file and puts the new one in its place.  Throws FileFailure when anything could not be
    /// written.
    void commit();

private:
    Replacement file_;
    int headLines_;
    std::string text_;
};

/// Writes the bytes as a whole file, or leaves the old one.  Throws OpenFailure or FileFailure.
void writeWhole(const std::filesystem::path& target, std::string_view bytes);

/// Keeps the file as "<name>.old" beside it, whose older content goes; the file itself stays, so at no moment
/// its content is without a name.  Nothing happens when there is no file, or one of no more than `headLines`
/// lines.  Throws FileFailure.
void keepOld(const std::filesystem::path& path, int headLines = 0);

/// The file that the path names in the end: symbolic links of its last part are followed, also where the last
/// one names nothing yet.
std::filesystem::path linkTarget(std::filesystem::path path);

/// Gives a finished file of the same file system the name of the target, which it replaces as a whole: after
/// a power cut the target is the old file or the new one.  Throws FileFailure.
void putInPlace(const std::filesystem::path& finished, const std::filesystem::path& target);

/// Appends one line and flushes it.  Throws OpenFailure or FileFailure.
void appendLine(const std::filesystem::path& path, std::string_view text);

/// UTF-8 text of bytes that are UTF-8 or Windows-1251.
std::string decoded(std::string_view bytes);

}  // namespace tarvex
