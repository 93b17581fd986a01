#include "core/text_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <system_error>

#include "core/failure.h"
#include "core/file_trouble.h"
#include "core/file_watch.h"
#include "core/leftovers.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestLine = 1 << 20;  ///< a longer line is no text file of ours
constexpr std::size_t blockSize = 1 << 16;    ///< bytes read at a time
constexpr mode_t newFileMode = 0666;          ///< what the user's mask leaves of it

bool isUtf8(std::string_view s) {
    for (std::size_t i = 0; i < s.size();) {
        const auto c = static_cast<unsigned char>(s[i]);
        const int more = c < 0x80 ? 0 : (c >> 5) == 6 ? 1 : (c >> 4) == 14 ? 2 : (c >> 3) == 30 ? 3 : -1;
        if (more < 0 || i + more >= s.size() + (more == 0)) return false;
        for (int k = 1; k <= more; ++k)
            if ((static_cast<unsigned char>(s[i + k]) >> 6) != 2) return false;
        i += more + 1;
    }
    return true;
}

/// Code points of Windows-1251 for the bytes 0x80..0xBF; 0xC0..0xFF are the Cyrillic letters in a row.
constexpr std::array<std::uint16_t, 64> upper1251 = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409, 0x2039, 0x040A,
    0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0xFFFD, 0x2122,
    0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6,
    0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407, 0x00B0, 0x00B1, 0x0406, 0x0456,
    0x0491, 0x00B5, 0x00B6, 0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457};

void appendUtf8(std::string& out, unsigned code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

void writeAll(int fd, std::string_view bytes, const fs::path& target) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throw FileFailure(fileTrouble(target, errno, FileUse::Write));
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// The data must be on the disk before the name points to them, or a power cut could leave an empty file.
void renameWritten(const fs::path& finished, const fs::path& target) {
    const int fd = ::open(finished.c_str(), O_RDONLY | O_CLOEXEC);
    const bool synced = fd >= 0 && ::fsync(fd) == 0;
    std::error_code error(errno, std::generic_category());
    if (fd >= 0) ::close(fd);
    if (synced) fs::rename(finished, target, error);
    if (!synced || error) throw FileFailure(fileTrouble(target, error.value(), FileUse::Write));
}

/// @return  false when there is nothing under this name; throws OpenFailure for what is no file.
bool needFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status) || fs::is_regular_file(status)) return fs::exists(status);
    throw OpenFailure((fs::is_directory(status) ? "на месте файла папка: " : "это не файл: ") +
                      path.string());
}

/// True when the file holds these bytes and nothing else.
bool holds(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    if (fs::file_size(path, error) != bytes.size() || error) return false;
    std::ifstream file(path, std::ios::binary);
    return std::equal(bytes.begin(), bytes.end(), std::istreambuf_iterator<char>(file), {});
}

/// True for a file of more lines; also for one that is no text of ours.
bool hasMoreLines(const fs::path& path, int lines) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return false;
    try {
        TextReader file(path);
        std::string line;
        for (int i = 0; i <= lines; ++i)
            if (!file.line(line)) return false;
        return true;
    } catch (const FileFailure&) {
        return true;
    }
}

bool separates(char c) { return c == ' ' || c == ',' || c == '\t' || c == '\r' || c == '\n' || c == '\0'; }

}  // namespace

std::string decoded(std::string_view bytes) {
    if (isUtf8(bytes)) return std::string(bytes);
    std::string out;
    for (const char ch : bytes) {
        const auto c = static_cast<unsigned char>(ch);
        appendUtf8(out, c < 0x80 ? c : c < 0xC0 ? upper1251[c - 0x80] : 0x0410 + (c - 0xC0));
    }
    return out;
}

TextReader::TextReader(const fs::path& path) : name_(path.string()) {
    needFile(path);
    file_.rdbuf()->pubsetbuf(nullptr, 0);  // blocks are ours
    errno = ENOENT;
    file_.open(path, std::ios::binary);
    if (!file_) throw OpenFailure(fileTrouble(path, errno, FileUse::Read));
    FileWatch::tell(FileTouch::Read, path);
    block_.resize(blockSize);
    if (fill() && current_.starts_with("\xEF\xBB\xBF")) at_ = 3;
}

/// Reads the next line of the file into current_; false at its end.
bool TextReader::fill() {
    current_.clear();
    at_ = 0;
    open_ = false;
    bool any = false;
    for (bool ended = false; !ended;) {
        if (blockAt_ == blockEnd_) {
            file_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
            blockAt_ = 0;
            blockEnd_ = static_cast<std::size_t>(file_.gcount());
            if (blockEnd_ == 0) break;
        }
        any = true;
        const char* from = block_.data() + blockAt_;
        const auto* end = static_cast<const char*>(std::memchr(from, '\n', blockEnd_ - blockAt_));
        ended = end != nullptr;
        const auto length = ended ? static_cast<std::size_t>(end - from) : blockEnd_ - blockAt_;
        current_.append(from, length);
        blockAt_ += length + (ended ? 1 : 0);
        if (current_.size() > longestLine) throw FileFailure("слишком длинная строка " + where());
    }
    if (!current_.empty() && current_.back() == '\r') current_.pop_back();
    open_ = any;
    if (any) ++lineNumber_;
    return any;
}

std::string TextReader::where() const {
    return "в файле " + name_ + ", строка " + std::to_string(lineNumber_);
}

bool TextReader::lineUsedUp() {
    while (open_ && at_ < current_.size() && separates(current_[at_])) ++at_;
    return !open_ || at_ >= current_.size();
}

bool TextReader::noMoreItems() {
    while (lineUsedUp())
        if (!fill()) return true;
    return false;
}

/// The next item, which is used up by that.
std::string_view TextReader::item() {
    if (noMoreItems()) throw FileFailure("данные кончились раньше времени " + where());
    const std::size_t from = at_;
    while (at_ < current_.size() && !separates(current_[at_])) ++at_;
    return std::string_view(current_).substr(from, at_ - from);
}

double TextReader::numberIn(std::string_view item) {
    try {
        return toNumber(item);
    } catch (const OverflowFailure&) {
        throw FileFailure("слишком большое число " + quote(decoded(item)) + " " + where());
    } catch (const Failure&) {
        throw FileFailure("не число " + quote(decoded(item)) + " " + where());
    }
}

double TextReader::number() { return numberIn(item()); }

std::int16_t TextReader::int16() {
    try {
        return toInt16(number());
    } catch (const OverflowFailure& failure) {
        throw FileFailure(failure.what() + (" " + where()));
    }
}

std::int32_t TextReader::int32() {
    try {
        return toInt32(number());
    } catch (const OverflowFailure& failure) {
        throw FileFailure(failure.what() + (" " + where()));
    }
}

std::int32_t TextReader::int32BeforeSign() {
    std::string_view whole = item();
    const std::size_t sign = std::min(whole.find_first_of("+-", 1), whole.size());
    at_ -= whole.size() - sign;
    const double v = numberIn(whole.substr(0, sign));
    try {
        return toInt32(v);
    } catch (const OverflowFailure& failure) {
        throw FileFailure(failure.what() + (" " + where()));
    }
}

bool TextReader::line(std::string& text) {
    if (!open_ && !fill()) return false;
    text = decoded(std::string_view(current_).substr(at_));
    open_ = false;
    return true;
}

std::string TextReader::line() {
    std::string text;
    if (!line(text)) throw FileFailure("данные кончились раньше времени " + where());
    return text;
}

fs::path linkTarget(fs::path path) {
    constexpr int mostLinks = 40;
    std::error_code error;
    for (int i = 0; i < mostLinks && fs::is_symlink(path, error); ++i) {
        const fs::path next = fs::read_symlink(path, error);
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path;
}

Replacement::Replacement(const fs::path& target) : target_(linkTarget(target)) {
    if (needFile(target_) && access(target_.c_str(), W_OK) != 0)
        throw OpenFailure(fileTrouble(target_, errno, FileUse::Write));
    passing_ = passingName(target_);
    file_ = ::open(passing_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, newFileMode);
    if (file_ < 0) throw OpenFailure(fileTrouble(target_, errno, FileUse::Write));
}

Replacement::~Replacement() {
    if (file_ >= 0) ::close(file_);
    std::error_code error;
    if (!passing_.empty()) fs::remove(passing_, error);
}

void Replacement::write(std::string_view bytes) { writeAll(file_, bytes, target_); }

void Replacement::put() {
    const int failed = ::close(std::exchange(file_, -1));
    if (failed != 0) throw FileFailure(fileTrouble(target_, errno, FileUse::Write));
    putInPlace(passing_, target_);
    passing_.clear();
    FileWatch::tell(FileTouch::Written, target_);
}

TextWriter::TextWriter(const fs::path& target, int headLines) : file_(target), headLines_(headLines) {}

void TextWriter::commit() {
    file_.write(text_);
    if (headLines_ != noCopy && !holds(file_.target(), text_)) keepOld(file_.target(), headLines_);
    file_.put();
}

void writeWhole(const fs::path& target, std::string_view bytes) {
    Replacement file(target);
    file.write(bytes);
    file.put();
}

void keepOld(const fs::path& path, int headLines) {
    const fs::path target = linkTarget(path);
    if (!hasMoreLines(target, headLines)) return;
    fs::path old = target;
    old += ".old";
    const fs::path passing = passingName(old);
    std::error_code error;
    fs::remove(passing, error);
    // A second name for the same file costs nothing; where the disk knows none, a copy does.
    fs::create_hard_link(target, passing, error);
    if (error) fs::copy_file(target, passing, error);
    std::error_code ignored;
    try {
        if (error) throw FileFailure(fileTrouble(old, error.value(), FileUse::Write));
        renameWritten(passing, old);
    } catch (const FileFailure&) {
        fs::remove(passing, ignored);
        throw;
    }
    fs::remove(passing, ignored);  // a rename onto the same file leaves both names
}

void putInPlace(const fs::path& finished, const fs::path& target) {
    renameWritten(finished, linkTarget(target));
}

void appendLine(const fs::path& path, std::string_view text) {
    needFile(path);
    const int fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, newFileMode);
    if (fd < 0) throw OpenFailure(fileTrouble(path, errno, FileUse::Write));
    const off_t before = ::lseek(fd, 0, SEEK_END);
    std::string whole(text);
    whole += "\r\n";
    try {
        writeAll(fd, whole, path);  // one write: a line is whole or absent
    } catch (const FileFailure&) {
        // a full disk takes a part of the line: the next one must not be glued to it
        [[maybe_unused]] const int cut = ::ftruncate(fd, before);
        ::close(fd);
        throw;
    }
    if (::close(fd) != 0) throw FileFailure(fileTrouble(path, errno, FileUse::Write));
    FileWatch::tell(FileTouch::Appended, path);
}

}  // namespace tarvex
