#include "runtime/saved_files.h"

#include <algorithm>

#include "runtime/desk.h"

namespace tarvex {

namespace {
constexpr std::size_t mostNamed = 3;
}

SavedFiles::SavedFiles(Desk& desk, std::filesystem::path tree)
    : desk_(desk), tree_(std::move(tree)), files_([this](FileTouch use, const std::filesystem::path& file) {
          if (use == FileTouch::Written &&
              std::find(written_.begin(), written_.end(), file) == written_.end())
              written_.push_back(file);
      }) {
    desk_.watch(*this);
}

SavedFiles::~SavedFiles() { desk_.unwatch(*this); }

void SavedFiles::deedBegins(const Deed&) {
    if (depth_++ > 0) return;
    written_.clear();
    calculating_ = false;
}

void SavedFiles::deedEnds(const Deed& deed) {
    if (depth_ == 0 || --depth_ > 0) return;
    Form& form = deed.control->form();
    if (!written_.empty() && !calculating_ && form.status().empty()) form.setStatus(words());
    written_.clear();
}

std::string SavedFiles::words() const {
    std::string all = "Сохранено: ";
    for (std::size_t i = 0; i < std::min(written_.size(), mostNamed); ++i) {
        const std::filesystem::path inside = written_[i].lexically_relative(tree_);
        const bool outside = inside.empty() || *inside.begin() == "..";
        const std::string name = (outside ? written_[i] : inside).string();
        std::error_code none;
        const bool before = std::filesystem::exists(std::filesystem::path(written_[i]) += ".old", none);
        all += (i > 0 ? ", " : "") + name + (before ? " (прежний файл - " + name + ".old)" : "");
    }
    if (written_.size() > mostNamed) all += " и еще " + std::to_string(written_.size() - mostNamed);
    return all;
}

}  // namespace tarvex
