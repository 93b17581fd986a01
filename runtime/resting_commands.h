#pragma once
// Commands that can do nothing at times.

namespace tarvex {

class Control;

/// A form of which some commands rest while they can do nothing: the windows show them grey.  A line of a
/// script may press them all the same, and what they write then is as always.
class RestingCommands {
public:
    virtual bool rests(const Control& command) const = 0;

protected:
    ~RestingCommands() = default;
};

/// What a user can take in hand now: neither disabled nor resting.
bool isOffered(const Control& control);

}  // namespace tarvex
