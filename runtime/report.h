#pragma once
// A report of forms: what is set, results, tables, pictures, as blocks that go onto a page of HTML or on
// paper.

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tarvex {

class Desk;
class Form;
class Picture;

struct ReportHead {
    std::string title;    ///< "Отчет Tarvex7"
    std::string date;     ///< as it is to be read
    std::string version;  ///< of the program
    std::string given;    ///< what an experiment stands on; may be empty
};

struct ReportBlock {
    enum class Kind {
        Form,     ///< the title of a form
        Heading,  ///< of a frame
        Subheading,
        Text,
        Fields,  ///< rows of a name and its value
        Table,
        Picture  ///< its text is the caption
    };
    Kind kind;
    std::string text = "";
    std::vector<std::vector<std::string>> rows = {};  ///< each as long as the first
    bool named = false;                               ///< the first row of a table names its columns
    Picture* picture = nullptr;
};

/// What the forms tell.  Of each: the frames of its layout with fields, chosen options and ticks that are on,
/// the tables, the captions, and the pictures.  Empty fields, rows and columns are left out.
/// @param isDrawn  whether a picture shows anything
std::vector<ReportBlock> reportBlocks(const std::vector<const Form*>& forms,
                                      const std::function<bool(Picture&)>& isDrawn);

/// The page of HTML, complete in itself.
/// @param image  a picture as the source of an image element
std::string reportPage(const ReportHead& head, const std::vector<ReportBlock>& blocks,
                       const std::function<std::string(Picture&)>& image);

/// "22.11.2026 04:03, версия 1.1"
std::string reportDate(const ReportHead& head);

/// True for a number, with a unit or a sign behind it or without: it is never broken and stands at the right.
bool isFigure(const std::string& text);

/// What the forms that are loaded say of what is given; empty where none says it.
std::string givenOn(Desk& desk);

}  // namespace tarvex
