#pragma once
// The words of a command line, as the programs of this folder read them alike.

#include <optional>
#include <string>
#include <vector>

#include "batch/batch_options.h"

namespace tarvex {

/// Walks over the words.
class OptionWords {
public:
    OptionWords(const std::vector<std::string>& arguments, const std::string& usage)
        : arguments_(arguments), usage_(usage) {}

    /// The next word; false at the end.
    bool next(std::string& word);
    /// What stands after the word.  Throws Failure where there is nothing.
    const std::string& value();

private:
    const std::vector<std::string>& arguments_;
    const std::string& usage_;
    std::size_t at_ = 0;
};

/// Numbers of a list, each once.  @param word  the option that the failure names
std::vector<int> numbersWithoutRepeats(const std::string& word, const std::string& text);

/// "Text38=3600" is a control of Form2, "Form15.Check6=on" of another form.
/// @return  nothing for a word that is no setting.  Throws Failure for one that no script could hold.
std::optional<BatchSetting> settingOf(const std::string& word);

/// Where the data tree lies.  Throws Failure naming the folder when there is none.
std::filesystem::path dataTree(const std::optional<std::filesystem::path>& given);

}  // namespace tarvex
