#include "runtime/report.h"

#include <algorithm>
#include <string_view>

#include "runtime/control_lines.h"
#include "runtime/desk.h"
#include "runtime/form.h"

namespace tarvex {

namespace {

using Kind = Layout::Kind;
using Block = ReportBlock;

bool isBlank(const std::string& text) { return text.find_first_not_of(" \r\n\t") == std::string::npos; }

/// Titles and hints are padded with blanks.
std::string trimmed(const std::string& text) {
    std::string words;
    for (const char c : text)
        if (c != '\r' && (c != ' ' || (!words.empty() && words.back() != ' '))) words += c;
    while (!words.empty() && (words.back() == ' ' || words.back() == '\n')) words.pop_back();
    return words;
}

bool isChoice(const Control& control) {
    return control.kind() == Control::Kind::Check || control.kind() == Control::Kind::Option;
}

/// A field without a caption is called by what its hint begins with.
std::string nameOf(const Control& control) {
    if (!isBlank(control.caption())) return trimmed(control.caption());
    const std::string& hint = control.hint();
    const auto end = std::min({hint.find(';'), hint.find(". "), hint.find(" (")});
    return isBlank(hint) ? control.name() : trimmed(hint.substr(0, end));
}

/// A value of the form, not a word of its layout.
bool holdsValue(const Layout& layout) {
    if (layout.kind == Kind::Item)
        return layout.control->kind() == Control::Kind::Text && layout.control->visible() &&
               !isBlank(valueOf(*layout.control));
    return std::any_of(layout.children.begin(), layout.children.end(), holdsValue);
}
bool holdsChoice(const Layout& layout) {
    if (layout.kind == Kind::Item) return isChoice(*layout.control);
    return std::any_of(layout.children.begin(), layout.children.end(), holdsChoice);
}
bool isChosen(const Layout& layout) {
    if (layout.kind == Kind::Item) return isChoice(*layout.control) && valueOf(*layout.control) == "on";
    return std::any_of(layout.children.begin(), layout.children.end(), isChosen);
}

/// What stands in a cell of a table.
std::string cellText(const Layout& layout) {
    if (layout.kind == Kind::Item) {
        const Control& control = *layout.control;
        if (!control.visible()) return "";
        if (isChoice(control))
            return (valueOf(control) == "on" ? "\u2611 " : "\u2610 ") + trimmed(control.caption());
        return trimmed(valueOf(control));
    }
    std::string all = trimmed(layout.text);
    for (const Layout& child : layout.children) {
        const std::string one = cellText(child);
        if (!one.empty()) all += (all.empty() ? "" : " ") + one;
    }
    return all;
}

/// Takes away the columns in which nothing stands.
void dropEmptyColumns(std::vector<std::vector<std::string>>& rows) {
    for (std::size_t column = rows.front().size(); column-- > 0;) {
        if (!std::all_of(rows.begin(), rows.end(), [&](const auto& row) { return isBlank(row[column]); }))
            continue;
        for (auto& row : rows) row.erase(row.begin() + static_cast<std::ptrdiff_t>(column));
    }
}

/// Turns the layout of a form into blocks.
class Reader {
public:
    Reader(std::vector<Block>& blocks, const std::function<bool(Picture&)>& isDrawn)
        : blocks_(blocks), isDrawn_(isDrawn) {}

    void part(const Layout& layout) {
        switch (layout.kind) {
            case Kind::Item:
                return item(*layout.control, "");
            case Kind::Text:
                if (!isBlank(layout.text)) text(layout.text);
                return;
            case Kind::Table:
                return table(layout);
            case Kind::Frame:
                return frame(layout);
            case Kind::Row:
            case Kind::Fields:
                return row(layout);
            default:
                for (const Layout& child : layout.children) part(child);
        }
    }

private:
    /// A frame with nothing to tell has no heading either.
    void frame(const Layout& layout) {
        const std::size_t before = blocks_.size();
        blocks_.push_back(
            {depth_ == 0 ? Block::Kind::Heading : Block::Kind::Subheading, trimmed(layout.text)});
        depth_ += isBlank(layout.text) ? 0 : 1;
        for (const Layout& child : layout.children) part(child);
        depth_ -= isBlank(layout.text) ? 0 : 1;
        if (blocks_.size() == before + 1 || isBlank(layout.text))
            blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(before));
    }

    /// A word before a field without a caption is its name, another one behind a field its unit.
    void row(const Layout& layout) {
        std::string word;
        bool behindField = false;
        const auto tell = [&] {
            if (behindField && !isBlank(word))
                blocks_.back().rows.back()[1] += " " + trimmed(word);
            else if (!isBlank(word))
                text(word);
            word.clear();
        };
        for (const Layout& child : layout.children) {
            const bool field = child.kind == Kind::Item && holdsValue(child);
            if (!(field && isBlank(child.control->caption()))) tell();
            if (child.kind == Kind::Text) {
                word = child.text;
                continue;
            }
            child.kind == Kind::Item ? item(*child.control, word) : part(child);
            word.clear();
            behindField = field;
        }
        tell();
    }

    void item(const Control& control, const std::string& word) {
        if (control.kind() == Control::Kind::Picture) {
            // looking at a picture changes nothing of it
            auto& picture = const_cast<Picture&>(static_cast<const Picture&>(control));
            if (isDrawn_(picture))
                blocks_.push_back(
                    {.kind = Block::Kind::Picture, .text = trimmed(control.hint()), .picture = &picture});
            return;
        }
        if (!control.visible()) return;
        const std::string value = trimmed(valueOf(control));
        if (control.kind() == Control::Kind::Text) {
            if (value.empty()) return;
            const bool bare = isBlank(control.caption()) && !isBlank(word);
            return field(bare ? trimmed(word) : nameOf(control), value);
        }
        if (isChoice(control)) {
            if (value == "on" && !isBlank(control.caption())) field(trimmed(control.caption()), "да");
        } else if (control.kind() == Control::Kind::Label && !value.empty()) {
            text(value);
        }
    }

    void field(std::string name, std::string value) {
        if (blocks_.back().kind != Block::Kind::Fields) blocks_.push_back({Block::Kind::Fields});
        blocks_.back().rows.push_back({std::move(name), std::move(value)});
    }
    void text(const std::string& words) { blocks_.push_back({Block::Kind::Text, trimmed(words)}); }

    void table(const Layout& layout) {
        if (!holdsValue(layout)) return;
        Block block{Block::Kind::Table};
        const std::size_t columns = static_cast<std::size_t>(std::max(layout.columns, 1));
        for (std::size_t from = 0; from < layout.children.size(); from += columns) {
            const auto first = layout.children.begin() + static_cast<std::ptrdiff_t>(from);
            const auto end =
                first + static_cast<std::ptrdiff_t>(std::min(columns, layout.children.size() - from));
            const bool values = std::any_of(first, end, holdsValue);
            const bool names = from == 0 && !values && std::none_of(first, end, holdsChoice);
            if (!names && !values && std::none_of(first, end, isChosen)) continue;
            std::vector<std::string> row(columns);
            std::transform(first, end, row.begin(),
                           [&](const Layout& cell) { return cellOf(cell, values || names); });
            if (std::all_of(row.begin(), row.end(), isBlank)) continue;
            block.named |= names;
            block.rows.push_back(std::move(row));
        }
        if (block.rows.size() == static_cast<std::size_t>(block.named)) return;
        dropEmptyColumns(block.rows);
        blocks_.push_back(std::move(block));
    }
    /// In a row of ticks alone only those that are on are told.
    static std::string cellOf(const Layout& cell, bool all) {
        return all || !holdsChoice(cell) || isChosen(cell) ? cellText(cell) : "";
    }

    std::vector<Block>& blocks_;
    const std::function<bool(Picture&)>& isDrawn_;
    int depth_ = 0;  ///< of titled frames
};

std::string escaped(const std::string& text) {
    static constexpr std::pair<char, std::string_view> words[] = {
        {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\n', "<br>"}};
    std::string safe;
    for (const char c : text) {
        const auto* word =
            std::find_if(std::begin(words), std::end(words), [c](const auto& one) { return one.first == c; });
        if (word == std::end(words))
            safe += c;
        else
            safe += word->second;
    }
    return safe;
}

std::string tableOf(const Block& block) {
    std::string html = "<div class=\"wide\"><table class=\"cells\">\n";
    for (std::size_t i = 0; i < block.rows.size(); ++i) {
        html += "<tr>";
        for (const std::string& cell : block.rows[i]) {
            if (i == 0 && block.named)
                html += "<th>" + escaped(cell) + "</th>";
            else
                html += (isFigure(cell) ? "<td class=\"figure\">" : "<td>") + escaped(cell) + "</td>";
        }
        html += "</tr>\n";
    }
    return html + "</table></div>\n";
}

std::string fieldsOf(const Block& block) {
    std::string html = "<table class=\"fields\">\n";
    for (const auto& row : block.rows)
        html += "<tr><td>" + escaped(row[0]) + "</td><td><b>" + escaped(row[1]) + "</b></td></tr>\n";
    return html + "</table>\n";
}

constexpr double tall = 1.3;  ///< height to width of a picture that takes the whole width

/// Numbers stay whole, a wide table scrolls in its own frame and a wide picture takes the width of the page.
constexpr std::string_view style =
    "body { font-family: 'DejaVu Sans', Verdana, sans-serif; font-size: 10pt; max-width: 1100px; margin: 1em "
    "auto; padding: 0 1em; color: #111; background: #fff; }\n"
    "h1 { font-size: 17pt; } h2 { font-size: 14pt; border-bottom: 1px solid #999; margin-top: 1.6em; }\n"
    "h3 { font-size: 11.5pt; margin-bottom: 0.4em; } h4 { font-size: 10pt; margin: 0.6em 0 0.3em 0; }\n"
    "p.text { margin: 0.3em 0; }\n"
    "table { border-collapse: collapse; margin: 0.3em 0; } td, th { padding: 2px 8px; vertical-align: top; "
    "}\n"
    "table.fields td { padding: 1px 14px 1px 0; } div.wide { overflow-x: auto; }\n"
    "table.cells td, table.cells th { border: 1px solid #aaa; } table.cells th { background: #eee; }\n"
    "table.cells td { white-space: nowrap; } td.figure { text-align: right; }\n"
    "img { max-width: 100%; height: auto; } figure.tall img { width: 100%; } figure { margin: 1em 0; } "
    "figcaption { font-style: italic; }\n"
    "@media print { h2, h3, h4 { break-after: avoid; } figure, tr { break-inside: avoid; }\n"
    "div.wide { overflow: visible; } table.cells { font-size: 7pt; } }\n";

}  // namespace

bool isFigure(const std::string& text) {
    const auto digit = text.find_first_of("0123456789");
    return digit != std::string::npos && text.find_first_not_of("+-±<>=~. ") == digit;
}

std::vector<ReportBlock> reportBlocks(const std::vector<const Form*>& forms,
                                      const std::function<bool(Picture&)>& isDrawn) {
    std::vector<ReportBlock> blocks;
    for (const Form* form : forms) {
        blocks.push_back({ReportBlock::Kind::Form, trimmed(form->title())});
        Reader reader(blocks, isDrawn);
        if (form->layout().kind != Kind::Empty) {
            reader.part(form->layout());
        } else {
            for (Control* control : form->controls()) reader.part(*control);
        }
    }
    return blocks;
}

std::string reportDate(const ReportHead& head) { return head.date + ", версия " + head.version; }

std::string reportPage(const ReportHead& head, const std::vector<ReportBlock>& blocks,
                       const std::function<std::string(Picture&)>& image) {
    std::string page = "<!DOCTYPE html>\n<html lang=\"ru\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
                       escaped(head.title) + "</title>\n<style>\n" + std::string(style) +
                       "</style>\n</head>\n<body>\n<h1>" + escaped(head.title) + "</h1>\n<p>" +
                       escaped(reportDate(head)) + "</p>\n";
    if (!isBlank(head.given)) page += "<h2>Что задано</h2>\n<p>" + escaped(head.given) + "</p>\n";
    for (const ReportBlock& block : blocks) {
        const std::string text = escaped(block.text);
        switch (block.kind) {
            case Block::Kind::Form:
                page += "<h2>" + text + "</h2>\n";
                break;
            case Block::Kind::Heading:
                page += "<h3>" + text + "</h3>\n";
                break;
            case Block::Kind::Subheading:
                page += "<h4>" + text + "</h4>\n";
                break;
            case Block::Kind::Text:
                page += "<p class=\"text\">" + text + "</p>\n";
                break;
            case Block::Kind::Fields:
                page += fieldsOf(block);
                break;
            case Block::Kind::Table:
                page += tableOf(block);
                break;
            case Block::Kind::Picture:
                page += block.picture->height() > tall * block.picture->width() ? "<figure class=\"tall\">"
                                                                                : "<figure>";
                page.append("<img alt=\"").append(text).append("\" src=\"").append(image(*block.picture));
                page.append("\"><figcaption>").append(text).append("</figcaption></figure>\n");
        }
    }
    return page + "</body>\n</html>\n";
}

std::string givenOn(Desk& desk) {
    std::string all;
    for (const std::string& name : desk.names()) {
        const Control* given = desk.isLoaded(name) ? desk.form(name).find("Given") : nullptr;
        if (given == nullptr || isBlank(valueOf(*given))) continue;
        const std::string text = valueOf(*given);
        if (all.find(text) == std::string::npos) all += (all.empty() ? "" : "\n") + text;
    }
    return all;
}

}  // namespace tarvex
