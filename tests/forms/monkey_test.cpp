// Bad input of any kind ends in a message with nothing lost.  A monkey tries it from fixed seeds on every
// form: it types rubbish, ticks, drags, clicks and presses whatever is enabled, also in the middle of a
// calculation, on files that may be damaged.  After each act it looks for nan and inf on the screen, in files
// and in the shared state. MONKEY_SEEDS=FROM-TO takes other seeds, MONKEY_ACTS another number of acts each.

#include <fmt/format.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <regex>

#include "forms/laboratory.h"
#include "runtime/form.h"
#include "tests/support/ephemeris_files.h"

namespace tarvex::test {

namespace {

namespace fs = std::filesystem;
using Kind = Control::Kind;

const std::vector<std::string> rubbish = {
    "",       "  ",         "abc",         "-1",         "0",     "1e308",
    "-1e308", "1e-320",     "99999999999", "3000000000", "1,5",   "1.5",
    "1E+",    "1e5",        "infinity",    "-4713",      "99999", "13",
    "32",     "2147483647", "32767",       "1e15",       "1e200", "1e-9",
    "-32768", "1 000",      "0x10",        "-0",         "-1e5",  std::string(70000, '9')};

/// nan or inf as a word of its own, "-inf" and "nan(" too.
bool holdsNoNumber(const std::string& text) {
    static const std::regex word("(^|[^a-zA-Z0-9_])(nan|inf|NaN|NAN|INF|1\\.#)($|[^a-zA-Z0-9_])");
    const bool possible = text.find("nan") != text.npos || text.find("inf") != text.npos ||
                          text.find('N') != text.npos || text.find(".#") != text.npos;
    return possible && std::regex_search(text, word);
}

class Monkey final : private Screen {
public:
    Monkey(unsigned seed, std::vector<std::string> forms, fs::path folder)
        : random_(seed), forms_(std::move(forms)), folder_(std::move(folder)), lab_(*this, folder_) {
        share_ = oneOf(std::vector{0.02, 0.1, 0.3});
        favourite_ = oneOf(rubbish);
    }

    void damageFiles(int count);
    void play(int acts);

    std::string fault;   ///< the first thing that went wrong
    std::string script;  ///< all that was done, as a script that does it again (but the damage)

private:
    class Paper;
    struct WatchedEnough {};  ///< thrown through the guards: the calculation is left as it stands

    // what it does
    void act();
    void use(Control& control);
    void doLine(const std::string& line, const std::function<void()>& action);
    std::string someText(const TextField& field);
    bool chance(double share) { return std::uniform_real_distribution<>(0, 1)(random_) < share; }
    int upTo(std::size_t most) { return std::uniform_int_distribution<>(0, static_cast<int>(most))(random_); }
    template <class T>
    const T& oneOf(const std::vector<T>& list) {
        return list[upTo(list.size() - 1)];
    }

    // what it looks at
    void wrong(const std::string& what) { fault = fault.empty() ? what : fault; }
    void look(const std::string& text, const std::string& where) {
        if (holdsNoNumber(text)) wrong(where + " shows " + text.substr(0, 60));
    }
    void lookAtFiles();
    bool lookAtVariable(const std::string& name, const std::string& indices, int count);

    // what it is to the laboratory
    void message(const Message& told) override {
        look(told.text + told.title + told.cause, "message");
        // a cause is told in the user's words
        if (told.cause.find("внутренняя") != std::string::npos ||
            (!told.cause.empty() && told.cause.find('\xD0') == std::string::npos))
            wrong("cause: " + told.cause);
    }
    bool ask(const std::string& question, const std::string& title) override;
    void notify(const std::string& text) override { look(text, "notice"); }
    void progress(Form&, double) override {}
    void yield() override;
    void pause(int) override {}
    void post(std::function<void()> action) override { posted_.push_back(std::move(action)); }
    void formShown(Form&) override {}
    void formUnloaded(Form&) override {}
    void controlChanged(Control& control) override;
    std::unique_ptr<Canvas> makeCanvas(Picture& picture) override;

    std::mt19937 random_;
    double share_;           ///< of rubbish among the typed texts
    std::string favourite_;  ///< half of the rubbish: the same bad value in many places gets further
    std::vector<std::string> forms_;
    fs::path folder_;
    std::map<std::string, std::string> firstText_;  ///< of fields, as their form brings them
    std::deque<std::function<void()>> posted_;
    std::map<fs::path, fs::file_time_type> seen_;
    std::set<fs::path> damaged_;
    std::string before_;  ///< answers and acts in the middle of the present line
    int yields_ = 0, depth_ = 0;
    Laboratory lab_;
};

/// Keeps nothing of what is drawn.
class Monkey::Paper final : public Canvas {
public:
    Paper(Monkey& monkey, Picture& picture) : monkey_(monkey), picture_(picture) {}
    double width() const override { return picture_.width(); }
    double height() const override { return picture_.height(); }
    void clear(Color) override {}
    void line(double x1, double y1, double x2, double y2, Color) override { check({x1, y1, x2, y2}); }
    void circle(double x, double y, double radius, Color, bool) override { check({x, y, radius}); }
    void text(double x, double y, const std::string& text, Color, double size) override {
        check({x, y, size});
        monkey_.look(text, picture_.name());
    }
    void save(const fs::path& path) const override { TextWriter(path).commit(); }

private:
    void check(std::initializer_list<double> values) const {
        for (const double v : values)
            if (!(std::abs(v) < 1e6)) monkey_.wrong(fmt::format("{} draws at {}", picture_.name(), v));
    }
    Monkey& monkey_;
    Picture& picture_;
};

void Monkey::damageFiles(int count) {
    std::vector<fs::path> paths;
    for (const auto& entry : fs::recursive_directory_iterator(folder_))
        if (entry.is_regular_file() && entry.path().filename() != ".gitkeep") paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    for (; count > 0; --count) {
        const fs::path& path = oneOf(paths);
        if (!damaged_.insert(path).second) continue;
        std::string bytes = readBytes(path);
        const int kind = upTo(4);
        script += fmt::format("# damage {} to {}\n", kind, fs::relative(path, folder_).string());
        if (kind == 0) bytes.resize(upTo(bytes.size()));
        if (kind == 1) bytes += bytes;
        if (kind == 2)
            std::generate(bytes.begin(), bytes.end(), [this] { return static_cast<char>(upTo(255)); });
        if (const auto at = bytes.find_first_of("123456789", upTo(bytes.size()));
            kind == 3 && at != bytes.npos)
            bytes.replace(at, 1, oneOf(rubbish).substr(0, 60));
        fs::remove(path);
        if (kind == 4) fs::create_directory(path);
        if (kind < 4) writeBytes(path, bytes);
    }
}

void Monkey::play(int acts) {
    try {
        lookAtFiles();
        lab_.desk.show("Form1");
        for (int n = 0; n < acts && fault.empty() && lab_.desk.anyLoaded(); ++n) act();
    } catch (const WatchedEnough&) {
    } catch (const std::exception& failure) {
        wrong(std::string("uncaught: ") + failure.what());
    }
    for (const std::string& name : lab_.names.names()) lookAtVariable(name, "", 0);
}

void Monkey::act() {
    const std::string name = oneOf(forms_);
    if (!lab_.desk.isLoaded(name)) return doLine("show " + name, [&] { lab_.desk.show(name); });
    if (chance(0.01)) return doLine("close " + name, [&] { lab_.desk.unload(name); });
    const bool pressing = chance(0.4);
    std::vector<Control*> usable;
    for (Control* control : lab_.desk.form(name).controls()) {
        const Kind kind = control->kind();
        if (kind == Kind::Text)
            firstText_.try_emplace(name + control->name(), static_cast<TextField*>(control)->text());
        const bool shown =
            control->visible() || (kind == Kind::Text && chance(0.1));  // hidden ones are triggers
        if (control->enabled() && shown && (kind == Kind::Command || kind == Kind::Picture) == pressing)
            usable.push_back(control);
    }
    if (!usable.empty()) use(*oneOf(usable));
}

std::string Monkey::someText(const TextField& field) {
    if (chance(share_)) return chance(0.5) ? favourite_ : oneOf(rubbish);
    if (chance(0.7)) return firstText_[field.form().name() + field.name()];
    if (chance(0.5)) return std::to_string(upTo(12));
    return std::to_string(upTo(3000));
}

void Monkey::use(Control& control) {
    const std::string name = control.form().name() + "." + control.name();
    if (auto* field = dynamic_cast<TextField*>(&control); field != nullptr && !field->readOnly()) {
        const std::string text = someText(*field);
        doLine(name + " = " + text, [&] { field->setText(text); });
    } else if (auto* box = dynamic_cast<CheckBox*>(&control)) {
        const bool on = !box->on();
        doLine(name + (on ? " = on" : " = off"), [&] { box->set(on); });
    } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
        doLine(name + " = on", [&] { option->choose(); });
    } else if (auto* bar = dynamic_cast<ScrollBar*>(&control)) {
        const int value = bar->min() + upTo(bar->max() - bar->min());
        doLine(name + " = " + std::to_string(value), [&] { bar->setValue(value); });
    } else if (auto* command = dynamic_cast<CommandButton*>(&control)) {
        if (command->caption() != "Выход" || chance(0.1)) doLine(name, [&] { command->press(); });
    } else if (auto* picture = dynamic_cast<Picture*>(&control);
               picture != nullptr && picture->hasMouseMeaning()) {
        const double x = picture->toUserX(upTo(100) / 100.), y = picture->toUserY(upTo(100) / 100.);
        const bool click = chance(0.5), left = chance(0.7);
        const auto button = left ? Picture::Button::Left : Picture::Button::Right;
        doLine(
            fmt::format("{} {} {},{} {}", name, click ? "click" : "release", x, y, left ? "left" : "right"),
            [&] { click ? picture->click(x, y, button) : picture->release(x, y, button); });
    }
}

/// Does one act and looks at what it left.  Answers and acts in its middle stand before its line in the
/// script.
void Monkey::doLine(const std::string& line, const std::function<void()>& action) {
    const bool outermost = depth_ == 0;
    if (outermost) before_.clear(), yields_ = 0;
    if (!outermost) before_ += fmt::format("at yield {} {}\n", yields_, line);
    const auto done = [&](Monkey* monkey) {
        if (--monkey->depth_ == 0) monkey->script += monkey->before_ + line + "\n";
    };
    ++depth_;
    {
        const std::unique_ptr<Monkey, decltype(done)> depth(this,
                                                            done);  // also when it is left by WatchedEnough
        const Desk::InHandler alive(lab_.desk);                     // its form may be closed meanwhile
        if (const auto form = line.substr(0, line.find('.')); lab_.desk.isLoaded(form))
            lab_.desk.turnTo(lab_.desk.form(form));
        action();
        for (; outermost && !posted_.empty(); posted_.pop_front())
            if (lab_.desk.anyLoaded()) posted_.front()();
    }
    if (outermost) lookAtFiles();
}

bool Monkey::ask(const std::string& question, const std::string& title) {
    look(question + title, "question");
    const bool yes = chance(0.5);
    before_ += yes ? "answer yes\n" : "answer no\n";
    return yes;
}

void Monkey::yield() {
    constexpr int patience = 25, deepest = 3;
    if (++yields_ > 2 * patience) wrong("cannot be stopped");
    if (!fault.empty()) throw WatchedEnough{};
    if (yields_ <= patience) {
        if (depth_ <= deepest && chance(0.1)) act();
        return;
    }
    for (const std::string& name : lab_.desk.names())
        if (lab_.desk.isLoaded(name))
            for (Control* control : lab_.desk.form(name).controls())
                if (control->caption() == "Остановить" || control->caption() == "Stop") use(*control);
}

void Monkey::controlChanged(Control& control) {
    look(control.caption(), control.name());
    if (auto* field = dynamic_cast<TextField*>(&control))
        look(field->text(), control.form().name() + "." + control.name());
}

std::unique_ptr<Canvas> Monkey::makeCanvas(Picture& picture) {
    return std::make_unique<Paper>(*this, picture);
}

/// Every file written since the last look.
void Monkey::lookAtFiles() {
    const bool first = seen_.empty();
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
        if (!entry.is_regular_file()) continue;
        const auto time = entry.last_write_time();
        const bool kept = entry.path().extension() == ".old";  // what a save has replaced
        if (std::exchange(seen_[entry.path()], time) == time || first ||
            damaged_.contains(kept ? fs::path(entry.path()).replace_extension() : entry.path()))
            continue;
        const std::string name = fs::relative(entry.path(), folder_).string();
        if (name.ends_with("~")) wrong("left behind: " + name);
        if (holdsNoNumber(readBytes(entry.path()))) wrong("no number in " + name);
    }
}

/// The variable with all indices that it takes; false when these are none of it.
bool Monkey::lookAtVariable(const std::string& name, const std::string& indices, int count) {
    const std::string whole = count == 0 ? name : name + "(" + indices + ")";
    try {
        look(lab_.names.value(whole), "state." + whole);
        return true;
    } catch (const SubscriptFailure&) {
        int i = 0;
        while (count < 3 &&
               lookAtVariable(name, (count == 0 ? "" : indices + ",") + std::to_string(i), count + 1))
            ++i;
        return i > 0;
    }
}

struct Round {
    const char* name;
    unsigned seed;  ///< the first of two
    std::vector<std::string> forms;
};

/// The delivered tree, its ephemeris by links.  No workbook: an office would have to be started.
void copyTree(const fs::path& to) {
    const fs::path from = ephemerisFolder().parent_path();
    for (const char* name : {"Dat", "NEW", "Ser", "Obs", "Plan0", "Plan1", "Plan2", "Plan3", "Risunki"})
        fs::copy(from / name, to / name, fs::copy_options::recursive);
    fs::create_directory(to / "Tab");
    fs::create_directory(to / "JPL");
    for (const auto& file : fs::directory_iterator(ephemerisFolder()))
        if (file.path().extension() == ".405")
            fs::create_symlink(file.path(), to / "JPL" / file.path().filename());
}

const Monkey* playing = nullptr;

/// A crash tells its steps too.
void tellSteps(int signal) {
    std::fputs(playing->script.c_str(), stderr);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

class MonkeyTest : public ::testing::TestWithParam<Round> {};

}  // namespace

TEST_P(MonkeyTest, LosesNothing) {
    unsigned from = GetParam().seed, to = from + 1;
    int acts = 1200;
    if (const char* seeds = std::getenv("MONKEY_SEEDS")) std::sscanf(seeds, "%u-%u", &from, &to);
    if (const char* number = std::getenv("MONKEY_ACTS")) acts = std::atoi(number);
    for (unsigned seed = from; seed <= to && !HasFailure(); ++seed) {
        const TempFolder folder;
        copyTree(folder.path());
        Monkey monkey(seed, GetParam().forms, folder.path());
        if (seed % 2 == 0) monkey.damageFiles(6);
        playing = &monkey;
        const auto old = std::signal(SIGSEGV, tellSteps);
        monkey.play(acts);
        std::signal(SIGSEGV, old);
        EXPECT_EQ(monkey.fault, "") << "seed " << seed << ", done before:\n" << monkey.script;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rounds, MonkeyTest,
    ::testing::Values(Round{"Start", 1, {"Form1", "Form2", "Form4", "Form21", "Form22"}},
                      Round{"Model", 7, {"Form1", "Form2", "Form7", "Form23", "Form24"}},
                      Round{"Fit", 1, {"Form1", "Form2", "Form6", "Form18"}},
                      Round{"Plans", 1, {"Form1", "Form2", "Form15", "Form14", "Form20"}},
                      Round{"Sky", 1, {"Form10", "Form13", "Form16", "Form17"}},
                      Round{"Tools", 1, {"Form8", "Form11", "Form12", "Form19"}},
                      Round{"Others", 1, {"Form25", "Form26", "Form3", "Form5", "Form9"}}),
    [](const auto& round) { return std::string(round.param.name); });

}  // namespace tarvex::test
