#include "fuzz/target.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

#include "core/private_folder.h"
#include "script/line_failure.h"

namespace tarvex::fuzz {

namespace fs = std::filesystem;

namespace {

std::map<std::string, Reader>& readers() {
    static std::map<std::string, Reader> all;
    return all;
}

}  // namespace

void finding(const std::string& text) {
    std::fprintf(stderr, "finding: %s\n", text.c_str());
    std::abort();
}

Target::Target(const char* name, Reader reader) { readers()[name] = reader; }

Reader readerOf(const std::string& name) {
    const auto found = readers().find(name);
    return found == readers().end() ? nullptr : found->second;
}

void feed(Reader reader, std::string_view input) {
    try {
        reader(input);
    } catch (const Failure&) {
    } catch (const LineFailure&) {
    }
}

const DataTree& tree() {
    static const PrivateFolder folder("fuzz");
    static const DataTree made = [] {
        for (const char* name : {"Dat", "JPL", "NEW", "Ser", "Obs/Plan1", "Plan1/Txt1"})
            fs::create_directories(folder.path() / name);
        return DataTree(folder.path());
    }();
    return made;
}

void put(const std::string& name, std::string_view bytes) {
    std::ofstream file(tree().at(name), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) finding("the input could not be put into " + name);
}

std::string fetch(const std::string& name) {
    std::ifstream file(tree().at(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void expectFinite(double value, const char* what) {
    if (!std::isfinite(value)) finding(std::string(what) + " is not finite");
}

void expectNumbers(std::string_view written, const char* what) {
    for (const std::string_view word : {" nan", "-nan", " inf", "-inf"})
        if (written.find(word) != std::string_view::npos)
            finding(std::string(what) + " holds" + std::string(word));
}

}  // namespace tarvex::fuzz
