#pragma once
// A report of forms as a page of HTML: what is set, results, tables, pictures.

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

/// The page.  Of each form: the frames of its layout with fields, chosen options and ticks that are on, the
/// tables, the captions, and the pictures on which something is drawn.  Empty fields and tables are left out.
/// @param image  a drawn picture as the source of an image element; empty where nothing is drawn
std::string reportPage(const ReportHead& head, const std::vector<const Form*>& forms,
                       const std::function<std::string(Picture&)>& image);

/// What the forms that are loaded say of what is given; empty where none says it.
std::string givenOn(Desk& desk);

}  // namespace tarvex
