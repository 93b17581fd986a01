#include "tests/support/declared_names.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "tests/support/temp_folder.h"

namespace tarvex::test {

std::vector<std::string> declaredNames(const std::filesystem::path& header, const std::string& structure) {
    std::string text = readBytes(std::filesystem::path(TARVEX_SOURCE_DIR) / header);
    const auto begin = text.find("struct " + structure + " ");
    if (begin == std::string::npos) ADD_FAILURE() << structure << " is not in " << header;
    text = text.substr(begin, text.find("\n};", begin) - begin);
    text = std::regex_replace(text, std::regex("//[^\n]*"), "");
    text = std::regex_replace(text, std::regex("\\{[^{}]*\\}"), "");  // lists of initial values
    text = std::regex_replace(text, std::regex("=[^,;]*"), "");       // and single ones
    const std::regex declaration(
        "(?:Rows|double|std::int\\d+_t|std::string|Row2<[^;]*?>|std::array<[^;]*?>)\\s+([A-Za-z_0-9, \n]+);");
    std::vector<std::string> names;
    for (std::sregex_iterator it(text.begin(), text.end(), declaration), end; it != end; ++it) {
        std::stringstream list((*it)[1]);
        for (std::string name; std::getline(list, name, ',');)
            names.push_back(std::regex_replace(name, std::regex("\\s"), ""));
    }
    return names;
}

}  // namespace tarvex::test
