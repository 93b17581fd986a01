#pragma once
// What can go wrong.  Nothing in the laboratory returns an error code: a routine throws one of these, and the
// guard around a form's handler shows the fixed message of that form and, in the status line, the cause.

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace tarvex {

/// Any failure of the laboratory.  what() is a short text for the user, in Russian: what failed and on what
/// (file, value, meaning of the field).
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

/// What the user is told in a box that waits for him.
struct Message {
    std::string text, title;
    std::string cause = "";  ///< of an error: what failed and on what; empty where the text says all
    bool error = false;
};

/// What a failure tells the user of its cause; the exceptions of the standard library are put into words
/// here. Empty for a Refusal whose message says all.
std::string causeOf(const std::exception& failure);
/// The same for the exception that is being handled; empty when there is none.
std::string causeInHand();

/// A piece of the user's text or of a file in quotation marks: short, in UTF-8, and with nothing that a
/// terminal would obey.
std::string quote(std::string_view piece);

/// A failure that already carries the text and title that the user is to see.  Thrown while another failure
/// is handled, it keeps that one's cause.
struct Refusal : Failure {
    Refusal(std::string text_, std::string title_)
        : Refusal(std::move(text_), std::move(title_), causeInHand()) {}
    Refusal(std::string text_, std::string title_, std::string cause_)
        : Failure(text_), text(std::move(text_)), title(std::move(title_)), cause(std::move(cause_)) {}
    std::string text, title, cause;
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
