#pragma once
// Sequential text files of the laboratory: lines end with CR LF, numbers are items between blanks.
// A rewrite replaces the whole file or leaves the old one; an append is flushed line by line.

#include <cstddef>
#include <filesystem>
#include <fstream>
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

    std::ifstream file_;
    std::string name_;
    std::vector<char> block_;  ///< a piece of the file
    std::size_t blockAt_ = 0, blockEnd_ = 0;
    std::string current_;  ///< the line being read, undecoded
    std::size_t at_ = 0;   ///< first unread byte of current_
    bool open_ = false;    ///< current_ holds a line that is not used up
};

/// Writes a text file that replaces the target as a whole on commit(); until then, and after any failure, the
/// old file stands untouched.
class TextWriter {
public:
    /// Throws OpenFailure when the folder is missing or the target cannot be written.
    explicit TextWriter(std::filesystem::path target);
    ~TextWriter();
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    void line(std::string_view text);
    /// One line of number items.
    template <class... Numbers>
    void items(Numbers... values) {
        std::string text;
        (text.append(fileItem(static_cast<double>(values))), ...);
        line(text);
    }
    /// Flushes, and renames over the target.  Throws FileFailure when anything could not be written.
    void commit();

private:
    std::filesystem::path target_, temporary_;
    std::ofstream file_;
};

/// Gives a finished file of the same file system the name of the target, which it replaces as a whole: after
/// a power cut the target is the old file or the new one.  Throws FileFailure.
void putInPlace(const std::filesystem::path& finished, const std::filesystem::path& target);

/// Appends one line and flushes it.  Throws OpenFailure or FileFailure.
void appendLine(const std::filesystem::path& path, std::string_view text);

/// UTF-8 text of bytes that are UTF-8 or Windows-1251.
std::string decoded(std::string_view bytes);

}  // namespace tarvex
