#include "core/text_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstring>

#include "core/failure.h"
#include "core/leftovers.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestLine = 1 << 20;  ///< a longer line is no text file of ours
constexpr std::size_t blockSize = 1 << 16;    ///< bytes read at a time

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
    std::error_code error;
    if (!fs::is_regular_file(path, error)) throw OpenFailure("no such file: " + name_);
    file_.rdbuf()->pubsetbuf(nullptr, 0);  // blocks are ours
    file_.open(path, std::ios::binary);
    if (!file_) throw OpenFailure("cannot open " + name_);
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
        if (current_.size() > longestLine) throw FileFailure("line too long in " + name_);
    }
    if (!current_.empty() && current_.back() == '\r') current_.pop_back();
    open_ = any;
    return any;
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

double TextReader::number() {
    if (noMoreItems()) throw FileFailure("unexpected end of " + name_);
    std::size_t end = at_;
    while (end < current_.size() && !separates(current_[end])) ++end;
    const std::string_view item(current_.data() + at_, end - at_);
    at_ = end;
    try {
        return toNumber(item);
    } catch (const Failure&) {
        throw FileFailure("no number where one is expected in " + name_ + ": " +
                          std::string(item.substr(0, 40)));
    }
}

std::int16_t TextReader::int16() {
    try {
        return toInt16(number());
    } catch (const OverflowFailure&) {
        throw FileFailure("number outside 16 bits in " + name_);
    }
}

std::int32_t TextReader::int32() {
    try {
        return toInt32(number());
    } catch (const OverflowFailure&) {
        throw FileFailure("number outside 32 bits in " + name_);
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
    if (!line(text)) throw FileFailure("unexpected end of " + name_);
    return text;
}

TextWriter::TextWriter(fs::path target) : target_(std::move(target)) {
    std::error_code error;
    if (fs::exists(target_, error) &&
        (!fs::is_regular_file(target_, error) || access(target_.c_str(), W_OK) != 0))
        throw OpenFailure("cannot write " + target_.string());
    temporary_ = passingName(target_);
    file_.open(temporary_, std::ios::binary | std::ios::trunc);
    if (!file_) throw OpenFailure("cannot create " + target_.string());
}

TextWriter::~TextWriter() {
    if (temporary_.empty()) return;
    file_.close();
    std::error_code error;
    fs::remove(temporary_, error);
}

void TextWriter::line(std::string_view text) { file_ << text << "\r\n"; }

void TextWriter::commit() {
    file_.flush();
    if (!file_) throw FileFailure("cannot write " + target_.string());
    file_.close();
    putInPlace(temporary_, target_);
    temporary_.clear();
}

void putInPlace(const fs::path& finished, const fs::path& target) {
    // The data must be on the disk before the name points to them, or a power cut could leave an empty file.
    const int fd = ::open(finished.c_str(), O_RDONLY);
    const bool synced = fd >= 0 && ::fsync(fd) == 0;
    if (fd >= 0) ::close(fd);
    std::error_code error;
    if (synced) fs::rename(finished, target, error);
    if (!synced || error) throw FileFailure("cannot write " + target.string());
}

void appendLine(const fs::path& path, std::string_view text) {
    std::error_code error;
    if (fs::exists(path, error) && !fs::is_regular_file(path, error))
        throw OpenFailure("cannot write " + path.string());
    std::ofstream file(path, std::ios::binary | std::ios::app);
    if (!file) throw OpenFailure("cannot open " + path.string());
    const auto before = fs::file_size(path, error);
    std::string whole(text);
    whole += "\r\n";
    file.write(whole.data(),
               static_cast<std::streamsize>(whole.size()));  // one write: a line is whole or absent
    file.flush();
    if (!file) {  // a full disk takes a part of the line: the next one must not be glued to it
        file.close();
        if (!error) fs::resize_file(path, before, error);
        throw FileFailure("cannot write " + path.string());
    }
}

}  // namespace tarvex
