#include "runtime/report.h"

#include <algorithm>
#include <array>

#include "runtime/control_lines.h"
#include "runtime/desk.h"
#include "runtime/form.h"

namespace tarvex {

namespace {

using Kind = Layout::Kind;

std::string escaped(const std::string& text) {
    std::string safe;
    for (const char c : text) {
        if (c == '&')
            safe += "&amp;";
        else if (c == '<')
            safe += "&lt;";
        else if (c == '>')
            safe += "&gt;";
        else if (c == '"')
            safe += "&quot;";
        else if (c == '\n')
            safe += "<br>";
        else if (c != '\r')
            safe += c;
    }
    return safe;
}

bool isBlank(const std::string& text) { return text.find_first_not_of(" \r\n\t") == std::string::npos; }

/// The body of a form's part of the page.
class Writer {
public:
    explicit Writer(const std::function<std::string(Picture&)>& image) : image_(image) {}

    void part(const Layout& layout) {
        switch (layout.kind) {
            case Kind::Item:
                return item(*layout.control);
            case Kind::Text:
                return isBlank(layout.text) ? void() : row(escaped(layout.text), "");
            case Kind::Table:
                return table(layout);
            case Kind::Frame:
                return frame(layout);
            default:
                for (const Layout& child : layout.children) part(child);
        }
    }
    std::string take() {
        closeRows();
        return std::move(html_);
    }

private:
    /// A frame with nothing to tell has no heading either.
    void frame(const Layout& layout) {
        closeRows();
        const std::size_t before = html_.size();
        for (const Layout& child : layout.children) part(child);
        closeRows();
        if (html_.size() > before && !isBlank(layout.text))
            html_.insert(before, "<h3>" + escaped(layout.text) + "</h3>\n");
    }

    void item(const Control& control) {
        if (!control.visible() && control.kind() != Control::Kind::Picture) return;
        const std::string value = valueOf(control);
        switch (control.kind()) {
            case Control::Kind::Text: {
                const std::string& name = control.caption().empty() ? control.name() : control.caption();
                return isBlank(value) ? void() : row(escaped(name), escaped(value));
            }
            case Control::Kind::Check:
            case Control::Kind::Option:
                return value == "on" && !isBlank(control.caption()) ? row(escaped(control.caption()), "да")
                                                                    : void();
            case Control::Kind::Label:
                return isBlank(value) ? void() : row(escaped(value), "");
            case Control::Kind::Picture:
                return picture(control);
            default:
                return;
        }
    }

    void picture(const Control& control) {
        closeRows();
        // looking at a picture changes nothing of it
        const std::string source = image_(const_cast<Picture&>(static_cast<const Picture&>(control)));
        if (source.empty()) return;
        html_ +=
            "<p><img width=\"640\" src=\"" + source + "\"><br><i>" + escaped(control.hint()) + "</i></p>\n";
    }

    void row(const std::string& name, const std::string& value) {
        if (!open_) html_ += "<table cellpadding=\"3\">\n";
        open_ = true;
        html_ += value.empty() ? "<tr><td colspan=\"2\">" + name + "</td></tr>\n"
                               : "<tr><td>" + name + "</td><td><b>" + value + "</b></td></tr>\n";
    }
    void closeRows() {
        if (open_) html_ += "</table>\n";
        open_ = false;
    }

    static std::string cell(const Layout& layout) {
        if (layout.kind == Kind::Item) {
            const Control& control = *layout.control;
            const bool choice =
                control.kind() == Control::Kind::Check || control.kind() == Control::Kind::Option;
            if (choice) return valueOf(control) == "on" ? "+ " + control.caption() : "";
            return control.kind() == Control::Kind::Command ? "" : valueOf(control);
        }
        std::string all = layout.text;
        for (const Layout& child : layout.children) {
            const std::string one = cell(child);
            if (!one.empty()) all += (all.empty() ? "" : " ") + one;
        }
        return all;
    }
    /// A value of the form, not a word of its layout.
    static bool holdsValue(const Layout& layout) {
        if (layout.kind == Kind::Item)
            return layout.control->kind() == Control::Kind::Text && !isBlank(cell(layout));
        return std::any_of(layout.children.begin(), layout.children.end(), holdsValue);
    }

    void table(const Layout& layout) {
        if (!holdsValue(layout)) return;
        closeRows();
        html_ += "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n";
        const std::size_t columns = static_cast<std::size_t>(std::max(layout.columns, 1));
        for (std::size_t from = 0; from < layout.children.size(); from += columns) {
            const std::size_t end = std::min(from + columns, layout.children.size());
            const auto first = layout.children.begin();
            const bool heading =
                from == 0 && std::none_of(first, first + static_cast<std::ptrdiff_t>(end), holdsValue);
            html_ += "<tr>";
            for (std::size_t i = from; i < end; ++i) {
                const std::string text = escaped(cell(layout.children[i]));
                html_ += heading ? "<th>" + text + "</th>" : "<td align=\"right\">" + text + "</td>";
            }
            html_ += "</tr>\n";
        }
        html_ += "</table>\n";
    }

    const std::function<std::string(Picture&)>& image_;
    std::string html_;
    bool open_ = false;  ///< a table of names and values
};

std::string contentsOf(const Form& form, const std::function<std::string(Picture&)>& image) {
    Writer writer(image);
    if (form.layout().kind != Kind::Empty) {
        writer.part(form.layout());
    } else {
        for (Control* control : form.controls()) writer.part(*control);
    }
    return writer.take();
}

}  // namespace

std::string reportPage(const ReportHead& head, const std::vector<const Form*>& forms,
                       const std::function<std::string(Picture&)>& image) {
    std::string page =
        "<!DOCTYPE html>\n<html lang=\"ru\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
        escaped(head.title) +
        "</title>\n<style>body { font-family: sans-serif; font-size: 10pt; } h1 { font-size: 16pt; } "
        "h2 { font-size: 13pt; } h3 { font-size: 11pt; }</style>\n</head>\n<body>\n<h1>" +
        escaped(head.title) + "</h1>\n<p>" + escaped(head.date) + ", версия " + escaped(head.version) +
        "</p>\n";
    if (!isBlank(head.given)) page += "<h2>Что задано</h2>\n<p>" + escaped(head.given) + "</p>\n";
    for (const Form* form : forms)
        page += "<h2>" + escaped(form->title()) + "</h2>\n" + contentsOf(*form, image);
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
