#pragma once
// The desk holds the loaded forms.  A form is made at the first reference to it, stays beside the others
// until it is unloaded, and outlives the handler in which it was unloaded.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "runtime/desk_observer.h"
#include "runtime/form.h"
#include "runtime/screen.h"

namespace tarvex {

class Desk {
public:
    using Maker = std::function<std::unique_ptr<Form>()>;

    explicit Desk(Screen& screen) : screen_(screen) {}
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    Screen& screen() const { return screen_; }
    void message(const std::string& text, const std::string& title) { tell({text, title}); }
    /// Shows a message; the cause of an error also stands in the status line of the form in which the user
    /// acts.
    void tell(Message told);
    /// Causes name the files of this folder (with a slash at its end) without it.
    void nameFilesFrom(std::string folder) { folder_ = std::move(folder); }
    std::string shortened(std::string cause) const;
    /// A text that is no number was read from this field: the next message of the handler points at it.
    void suspect(const Control& field);
    /// A question to the user; true for yes.
    bool ask(const std::string& question, const std::string& title);
    /// Gives way to the user; the floating-point flags of the calculation are kept.
    void yield();
    /// The same for some time.
    void pause(int milliseconds);

    // --- calculations that go on while the user acts
    /// Told by Form::Running.
    void calculationBegins(const Form& form) { calculations_.push_back(&form); }
    void calculationEnds(const Form& form);
    /// True while a calculation (of any form, or of this) has given way and will go on.
    bool calculating() const { return givingWay_ && !calculations_.empty(); }
    bool calculating(const std::string& formName) const;
    /// Whether such a command of the form would disturb one of them.
    bool disturbs(const Form& form, Disturbs what) const;
    /// Asks, where the screen is a window, whether this command is to be done although a calculation goes on.
    bool confirmDisturbing(const std::string& command);
    /// Held while a command runs that disturbs the calculations, and is meant to.
    class Disturbing {
    public:
        explicit Disturbing(Desk& desk) : desk_(desk), before_(desk.disturbing_) { desk.disturbing_ = true; }
        ~Disturbing() { desk_.disturbing_ = before_; }
        Disturbing(const Disturbing&) = delete;
        Disturbing& operator=(const Disturbing&) = delete;

    private:
        Desk& desk_;
        bool before_;
    };
    /// What a form's load and activation write must not reach a calculation that goes on.  The keeper is
    /// called before them; what it returns is called after them and puts back what the calculation reads.
    void keepForCalculations(std::function<std::function<void()>()> keeper) { keeper_ = std::move(keeper); }

    /// Makes a form known under its name; forms are counted in the order they are added.
    void add(const std::string& name, Maker maker);
    bool knows(const std::string& name) const { return makers_.contains(name); }
    const std::vector<std::string>& names() const { return order_; }

    bool isLoaded(const std::string& name) const { return loaded_.contains(name); }
    bool anyLoaded() const { return !loaded_.empty(); }
    /// The form, loaded at the first reference.  Throws Failure for an unknown name.
    Form& form(const std::string& name);
    /// The form by its type, which names it; screens know each other by forms/screens.h instead.
    template <class F>
    F& get() {
        return static_cast<F&>(form(F::formName));
    }
    /// A form just made, neither loaded nor shown, for what its controls tell of themselves.
    std::unique_ptr<Form> describe(const std::string& name) const;
    /// Loads the form without showing it and unloads it at once, for what its load writes into the state.
    void loadAndUnload(const std::string& name);

    /// Opens the form's window without blocking and turns to it.
    void show(const std::string& name);
    /// The user or a script now works on this form: its activation runs if another form was active before.
    void turnTo(Form& form);
    void unload(const std::string& name);
    /// Unloads the form `first` and then all others in their order; the program ends with the last.
    void unloadAll(const std::string& first);

    /// Held while a handler runs.
    class InHandler {
    public:
        explicit InHandler(Desk& desk) : desk_(desk) { ++desk_.depth_; }
        ~InHandler() { desk_.leaveHandler(); }
        InHandler(const InHandler&) = delete;
        InHandler& operator=(const InHandler&) = delete;

    private:
        Desk& desk_;
    };
    /// Held while a handler of the form runs: the outermost of them is where the user acts.
    class Acting {
    public:
        Acting(Desk& desk, Form& form) : desk_(desk), outer_(desk.acting_) {
            if (outer_ == nullptr) desk_.acting_ = &form;
        }
        ~Acting() { desk_.acting_ = outer_; }
        Acting(const Acting&) = delete;
        Acting& operator=(const Acting&) = delete;

    private:
        Desk& desk_;
        Form* outer_;
    };
    /// True while some handler is running (a calculation that has given way, for instance).
    bool busy() const { return depth_ > 0; }

    /// Called after everything that the user does, and before a calculation gives way, with the name of the
    /// form that has acted.
    void onActed(std::function<void(const std::string& form)> listener) { acted_ = std::move(listener); }
    /// A handler of this form is about to run.
    void acts(const Form& form);
    /// Tells the loaded forms that what the user did last is done, unless it is still being done.
    void settle();

    // --- who watches what is done
    /// An observer hears of all that is done until unwatch(); it must not throw.
    void watch(DeskObserver& observer);
    void unwatch(DeskObserver& observer);

    /// Held while a deed is done, or a form loads or turns active: what happens inside is the program's
    /// doing.
    class Doing {
    public:
        explicit Doing(const Desk& desk) : desk_(desk) { ++desk_.doing_; }
        Doing(Desk& desk, const Deed& deed);
        ~Doing();
        Doing(const Doing&) = delete;
        Doing& operator=(const Doing&) = delete;

    private:
        const Desk& desk_;
        Desk* told_ = nullptr;  ///< the desk whose observers have heard of the deed
        Deed deed_;
    };
    /// False where the user, or a line of a script, acts himself: also in the middle of a calculation that
    /// gives way.
    bool programActs() const { return doing_ > 0; }

private:
    class GivingWay;
    class Opening;
    void leaveHandler();
    template <class Event>
    void tellObservers(Event event);

    Screen& screen_;
    std::vector<std::string> order_;
    std::map<std::string, Maker> makers_;
    std::map<std::string, std::unique_ptr<Form>> loaded_;
    std::vector<std::unique_ptr<Form>> leaving_;  ///< unloaded in a handler that still runs
    Form* acting_ = nullptr;
    std::string folder_;
    std::string active_, actor_;
    std::function<void(const std::string&)> acted_ = [](const std::string&) {};
    std::string suspectForm_, suspectField_;  ///< by name: the form may go before the message comes
    int depth_ = 0;
    int base_ = 0;  ///< depth at which the user acts: of the innermost handler that has given way
    std::vector<const Form*> calculations_;
    bool givingWay_ = false, disturbing_ = false, settling_ = false;
    int opening_ = 0;  ///< loads and activations that run: what they press is their own doing
    std::function<std::function<void()>()> keeper_;
    std::string heldBack_;   ///< form whose activation was put back: it is repeated after the calculation
    mutable int doing_ = 0;  ///< deeds within each other since the user acted last
    std::vector<DeskObserver*> observers_;
};

}  // namespace tarvex
