#include "core/tree_listing.h"

#include <algorithm>
#include <numeric>

namespace tarvex {

namespace fs = std::filesystem;

namespace {

bool isHidden(const std::string& name) { return name.starts_with(".") || name.ends_with("~"); }

/// Tarvex2 before Tarvex10: runs of digits are compared as numbers.
bool naturallyBefore(const std::string& a, const std::string& b) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            const auto ni = std::find_if_not(a.begin() + i, a.end(), isDigit) - a.begin();
            const auto nj = std::find_if_not(b.begin() + j, b.end(), isDigit) - b.begin();
            const std::string x = a.substr(i, ni - i), y = b.substr(j, nj - j);
            if (x != y) return x.size() != y.size() ? x.size() < y.size() : x < y;
            i = ni;
            j = nj;
        } else if (a[i] != b[j]) {
            return a[i] < b[j];
        } else {
            ++i;
            ++j;
        }
    }
    return a.size() - i < b.size() - j;
}

}  // namespace

int FolderListing::count() const {
    return std::accumulate(folders.begin(), folders.end(), static_cast<int>(files.size()),
                           [](int sum, const FolderListing& f) { return sum + f.count(); });
}

std::uintmax_t FolderListing::bytes() const {
    std::uintmax_t sum = 0;
    for (const File& file : files) sum += file.bytes;
    for (const FolderListing& folder : folders) sum += folder.bytes();
    return sum;
}

FolderListing listFolder(const fs::path& folder, int depth) {
    FolderListing listing;
    listing.name = folder.filename().string();
    std::error_code error;
    fs::directory_iterator at(folder, error);
    listing.readable = !error;
    for (; !error && at != fs::directory_iterator(); at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (isHidden(name)) continue;
        std::error_code entryError;
        if (at->is_symlink(entryError) && at->is_directory(entryError)) continue;
        if (at->is_directory(entryError)) {
            if (depth > 0) listing.folders.push_back(listFolder(at->path(), depth - 1));
        } else {
            const std::uintmax_t bytes = at->file_size(entryError);
            listing.files.push_back({name, entryError ? 0 : bytes});
        }
    }
    const auto byName = [](const auto& a, const auto& b) { return naturallyBefore(a.name, b.name); };
    std::sort(listing.files.begin(), listing.files.end(), byName);
    std::sort(listing.folders.begin(), listing.folders.end(), byName);
    return listing;
}

}  // namespace tarvex
