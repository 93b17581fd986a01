#pragma once
// The map of the laboratory: every form by group, number and purpose, found by number or by words, and the
// roads that a newcomer may take.

#include <string>
#include <vector>

namespace tarvex {

class Desk;

class FormMap {
public:
    struct Entry {
        int number = 0;
        std::string form;     ///< "Form16"
        std::string group;    ///< "Небо"
        std::string purpose;  ///< one line
    };
    struct Hit {
        const Entry* entry = nullptr;
        std::string why;  ///< the hint in which the words were found; empty for a number or a purpose
    };

    /// Describes every form of the desk; loads none.
    explicit FormMap(const Desk& desk);

    /// By groups, and by numbers within them.
    const std::vector<Entry>& entries() const { return entries_; }
    /// The forms that fit, the best first: the exact number, purposes, titles, then those with most hints
    /// that hold all words.  All of them where nothing is sought.
    std::vector<Hit> find(const std::string& wanted) const;

private:
    struct Words {
        std::string title;
        std::vector<std::string> hints;  ///< with captions
    };
    std::vector<Entry> entries_;
    std::vector<Words> words_;  ///< of each entry
};

/// A way into the laboratory and the examples on it.
struct Road {
    struct Example {
        std::string file;   ///< in the folder of the examples: "main_road.tvx"
        std::string title;  ///< what it shows
    };
    std::string title, about;
    int form = 0;  ///< on which it begins
    std::vector<Example> examples;
};
const std::vector<Road>& roads();

}  // namespace tarvex
