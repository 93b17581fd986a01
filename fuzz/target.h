#pragma once
// What the fuzz targets share: their register, a data tree of their own, and the check of what came out.

#include <cmath>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "core/data_tree.h"
#include "core/failure.h"
#include "core/model_state.h"

namespace tarvex::fuzz {

/// One reader under damaged input.  It must end in a value or in an exception of the laboratory.
using Reader = void (*)(std::string_view input);

/// Enters a reader under the name of its folder of seeds.
struct Target {
    Target(const char* name, Reader reader);
};

/// The reader of that name, null when there is none.
Reader readerOf(const std::string& name);

/// Gives the input to the reader.  What the laboratory refuses is no finding; anything else that is thrown
/// is.
void feed(Reader reader, std::string_view input);

/// The data tree of this process: empty, in a private folder, with the folders that files of the tree need.
const DataTree& tree();
/// Writes a file of that tree, named as the tree names it.
void put(const std::string& name, std::string_view bytes);
std::string fetch(const std::string& name);

/// Ends the process: a finding.
[[noreturn]] void finding(const std::string& text);
/// What the laboratory has written it reads again.
template <class Read>
void expectReadable(const char* what, Read&& read) {
    try {
        read();
    } catch (const Failure& failure) {
        finding(std::string(what) + " is written so that it cannot be read: " + failure.what());
    }
}
/// A number that is not finite ends the process: a finding.
void expectFinite(double value, const char* what);
template <class Values>
void expectAllFinite(const Values& values, const char* what) {
    for (const auto& value : values)
        if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>)
            expectFinite(static_cast<double>(value), what);
        else
            expectAllFinite(value, what);
}
/// No nan and no inf as an item of a written file.
void expectNumbers(std::string_view written, const char* what);

}  // namespace tarvex::fuzz
