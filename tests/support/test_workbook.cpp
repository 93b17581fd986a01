#include "tests/support/test_workbook.h"

#include <cctype>
#include <cstdlib>

#include "tests/support/temp_folder.h"

namespace tarvex::test {

namespace {

std::string escaped(const std::string& text) {
    std::string out;
    for (const char c : text)
        out += c == '&' ? "&amp;" : c == '"' ? "&quot;" : c == '<' ? "&lt;" : std::string(1, c);
    return out;
}

std::string cellXml(const std::string& content) {
    if (content.starts_with("'"))
        return "<table:table-cell office:value-type=\"string\"><text:p>" + escaped(content.substr(1)) +
               "</text:p></table:table-cell>";
    if (content.starts_with("=")) return "<table:table-cell table:formula=\"of:" + escaped(content) + "\"/>";
    return "<table:table-cell office:value-type=\"float\" office:value=\"" + content + "\"/>";
}

std::string sheetXml(int number, const SheetCells& cells) {
    std::map<int, std::map<int, std::string>> rows;
    for (const auto& [name, content] : cells) {
        int at = 0, col = 0;
        while (std::isalpha(static_cast<unsigned char>(name[at]))) col = col * 26 + (name[at++] - 'A' + 1);
        rows[std::atoi(name.c_str() + at)][col] = content;
    }
    std::string xml = "<table:table table:name=\"It's " + std::to_string(number) + "\">";
    int row = 1;
    for (const auto& [r, columns] : rows) {
        for (; row < r; ++row) xml += "<table:table-row><table:table-cell/></table:table-row>";
        xml += "<table:table-row>";
        int col = 1;
        for (const auto& [c, content] : columns) {
            for (; col < c; ++col) xml += "<table:table-cell/>";
            xml += cellXml(content);
            ++col;
        }
        xml += "</table:table-row>";
        ++row;
    }
    return xml + "</table:table>";
}

}  // namespace

void writeWorkbook(const std::filesystem::path& path, const std::vector<SheetCells>& sheets) {
    std::string xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document"
        " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
        " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
        " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
        " xmlns:of=\"urn:oasis:names:tc:opendocument:xmlns:of:1.2\" office:version=\"1.2\""
        " office:mimetype=\"application/"
        "vnd.oasis.opendocument.spreadsheet\"><office:body><office:spreadsheet>";
    int number = 0;
    for (const SheetCells& sheet : sheets) xml += sheetXml(++number, sheet);
    writeBytes(path, xml + "</office:spreadsheet></office:body></office:document>\n");
}

}  // namespace tarvex::test
