#pragma once
// What can go wrong.  Nothing in the laboratory returns an error code: a routine throws one of these, and the
// guard around a form's handler shows the fixed message of that form.

#include <stdexcept>
#include <string>
#include <utility>

namespace tarvex {

/// Any failure of the laboratory; what() names the value or file that was wrong (for tests and developers).
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ConversionFailure : Failure {
    using Failure::Failure;
};  ///< a text that is no number
struct OverflowFailure : Failure {
    using Failure::Failure;
};  ///< a value outside 16 or 32 bits
struct SubscriptFailure : Failure {
    using Failure::Failure;
};  ///< an index outside its array
struct ArithmeticFailure : Failure {
    using Failure::Failure;
};  ///< division by zero, root of a negative ...
struct FileFailure : Failure {
    using Failure::Failure;
};  ///< a file that cannot be opened, read or written
/// A file that cannot be opened at all (missing, a folder, no rights): forms tell it from a bad content.
struct OpenFailure : FileFailure {
    using FileFailure::FileFailure;
};

/// A failure that already carries the text and title that the user is to see.
struct Refusal : Failure {
    Refusal(std::string text_, std::string title_)
        : Failure(text_), text(std::move(text_)), title(std::move(title_)) {}
    std::string text, title;
};

/// Runs one stage of a command: whatever fails inside is shown with this text and title.
/// A Refusal from inside passes unchanged, so the innermost stage names the cause.
template <class Body>
decltype(auto) stage(const std::string& text, const std::string& title, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const Refusal&) {
        throw;
    } catch (const std::exception&) {
        throw Refusal(text, title);
    }
}

}  // namespace tarvex
