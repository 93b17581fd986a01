#include "forms/word_search.h"

#include <algorithm>
#include <sstream>

namespace tarvex {

namespace {

/// Lower case of Latin and Russian letters in UTF-8.
std::string lowered(const std::string& text) {
    std::string low;
    low.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) {
            low += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        } else if (c == 0xD0 && i + 1 < text.size()) {
            const auto second = static_cast<unsigned char>(text[++i]);
            if (second == 0x81) {  // the letter yo is sought as e
                low += "\xD0\xB5";
            } else if (second >= 0x90 && second <= 0x9F) {
                low += '\xD0';
                low += static_cast<char>(second + 0x20);
            } else if (second >= 0xA0 && second <= 0xAF) {
                low += '\xD1';
                low += static_cast<char>(second - 0x20);
            } else {
                low += text.substr(i - 1, 2);
            }
        } else if (text.compare(i, 2, "\xD1\x91") == 0) {
            low += "\xD0\xB5";
            ++i;
        } else {
            low += text[i];
        }
    }
    return low;
}

/// A long Russian word without its ending, so that it is found in every case and number.
std::string stem(std::string word) {
    constexpr std::size_t letterBytes = 2, endingLetters = 2, shortest = 6;
    const bool russian = std::all_of(word.begin(), word.end(), [](char c) { return (c & 0x80) != 0; });
    if (russian && word.size() >= shortest * letterBytes)
        word.resize(word.size() - endingLetters * letterBytes);
    return word;
}

}  // namespace

std::vector<std::string> searchWords(const std::string& text) {
    std::istringstream in(lowered(text));
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(stem(word));
    return words;
}

bool holdsAll(const std::string& text, const std::vector<std::string>& words) {
    const std::string low = lowered(text);
    return std::all_of(words.begin(), words.end(),
                       [&](const std::string& word) { return low.find(word) != std::string::npos; });
}

}  // namespace tarvex
