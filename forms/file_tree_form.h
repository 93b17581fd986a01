#pragma once
// The screen of files, Form9: the data tree as it stands on the disk.

#include "forms/file_tree_controls.h"
#include "forms/laboratory.h"

namespace tarvex {

class FileTreeForm final : public FileTreeControls {
public:
    static constexpr const char* formName = "Form9";
    explicit FileTreeForm(Laboratory& lab);

    void load() override;
    void activate() override;

private:
    void refresh();

    const DataTree& tree_;
};

}  // namespace tarvex
