#include "batch/worker.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <functional>
#include <optional>
#include <sstream>
#include <utility>

#include "batch/plan_batch.h"
#include "core/data_tree.h"
#include "core/failure.h"
#include "experiment/lane_runs.h"
#include "forms/laboratory.h"
#include "forms/screens.h"
#include "script/player.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr const char* troubleNote = "trouble";  ///< file of a passing tree: what went wrong

std::string troubleText(const std::string& text, const std::string& cause) {
    return text + (cause.empty() ? "" : " (" + cause + ")");
}

/// The screen of a worker prints nothing and keeps what went wrong.
class WorkerScreen final : public ScriptScreen {
public:
    using ScriptScreen::ScriptScreen;
    void message(const Message& told) override {
        // an outer handler would tell its own text of the same trouble
        if (trouble.empty()) trouble = troubleText(told.text, told.cause);
        throw Failure(told.text);
    }

    std::string trouble;  ///< the first message
};

/// What a worker sends up its pipe: the number of one of its experiments, and how far that is.
struct News {
    unsigned char part, what;
    static constexpr unsigned char done = 101, failed = 102;  ///< else percents
};

void send(int pipe, News news) { [[maybe_unused]] const auto sent = write(pipe, &news, sizeof news); }

/// Sends the progress of a run.
class WorkerPort final : public ExperimentPort {
public:
    WorkerPort(const Experiment& e, int pipe, unsigned char part) : e_(e), pipe_(pipe), part_(part) {}
    void showDate() override {
        const auto percent = static_cast<unsigned char>(shareDone(e_) * 100);
        if (percent == last_) return;
        last_ = percent;
        send(pipe_, {part_, percent});
    }

private:
    const Experiment& e_;
    int pipe_;
    unsigned char part_, last_ = 255;
};

/// Everything of the real tree but the plan's folder is looked at in place.
void makePassingTree(const fs::path& tree, const fs::path& root, int plan, const Task& task) {
    const DataTree real(root), own(tree);
    fs::create_directories(own.at(files::runRecord(plan, task.planet, task.experiment)).parent_path());
    fs::copy_file(real.at(files::plan(plan)), own.at(files::plan(plan)));
    for (const char* folder : {"Dat", "JPL", "NEW", "Ser"})
        if (fs::is_directory(root / folder))
            fs::create_directory_symlink(fs::absolute(root / folder), tree / folder);
}

/// An experiment in the process of the worker: a laboratory of its own, on a passing tree of its own.
class TaskRun {
public:
    TaskRun(const BatchOptions& options, const Task& task, const fs::path& tree, int pipe, unsigned char part)
        : options_(options), task_(task), tree_(tree), pipe_(pipe), part_(part) {}

    /// The settings into the screens.
    /// @return  false when that failed
    bool prepare() {
        tryOut([&] {
            lab_.emplace(screen_, tree_);
            Player(screen_, lab_->desk, lab_->names).play(settingsScript(options_, task_.planet));
        });
        return trouble().empty();
    }

    /// The experiment, with the settings that the screens hold.
    void run(StepSeat& seat) {
        tryOut([&] {
            Experiment e = lab_->experiment();
            e.seat = &seat;
            PlanSettings plan;
            stage("Ошибка при выполнение плана", "",
                  [&] { plan = screenOf<PlanScreen>(lab_->desk).takePlan(); });
            lab_->desk.show(RunScreen::formName);
            const RunSettings settings = screenOf<RunScreen>(lab_->desk).settings();
            WorkerPort port(e, pipe_, part_);
            stage("Задайте правильно данные", "",
                  [&] { runPlanExperiment(e, lab_->plan, task_.experiment, plan, settings, port); });
            const auto record = files::runRecord(options_.plan, task_.planet, task_.experiment);
            if (!fs::is_regular_file(lab_->tree.at(record))) trouble_ = "эксперимент не записал файла";
        });
    }

    /// Leaves what went wrong in the tree and sends the end.
    void tellEnd() const {
        if (trouble().empty()) {
            send(pipe_, {part_, News::done});
            return;
        }
        if (FILE* note = std::fopen((tree_ / troubleNote).c_str(), "w")) {
            std::fputs(trouble().c_str(), note);
            std::fclose(note);
        }
        send(pipe_, {part_, News::failed});
    }

private:
    const std::string& trouble() const { return screen_.trouble.empty() ? trouble_ : screen_.trouble; }

    template <class Work>
    void tryOut(Work work) {
        try {
            work();
        } catch (const Refusal& refusal) {
            trouble_ = troubleText(refusal.text, lab_->desk.shortened(refusal.cause));
        } catch (const LineFailure& failure) {
            trouble_ = failure.text;
        } catch (const std::exception& failure) {
            trouble_ = causeOf(failure);
        }
    }

    const BatchOptions& options_;
    Task task_;
    fs::path tree_;
    int pipe_;
    unsigned char part_;
    std::string trouble_;
    std::ostringstream printed_;
    WorkerScreen screen_{printed_};
    std::optional<Laboratory> lab_;
};

}  // namespace

std::string nameOf(const Task& task) {
    return "планета " + std::to_string(task.planet) + ", эксперимент " + std::to_string(task.experiment);
}

Worker::Worker(const BatchOptions& options, const std::vector<Task>& tasks, const fs::path& folder)
    : options_(options) {
    for (const Task& task : tasks)
        parts_.push_back(
            {.task = task,
             .tree = folder / (std::to_string(task.planet) + "-" + std::to_string(task.experiment))});
}

std::unique_ptr<Worker> Worker::start(const BatchOptions& options, const std::vector<Task>& tasks,
                                      const fs::path& folder, const fs::path& root) {
    std::unique_ptr<Worker> worker(new Worker(options, tasks, folder));
    for (const Part& part : worker->parts_) makePassingTree(part.tree, root, options.plan, part.task);
    int ends[2];
    if (pipe(ends) != 0) return nullptr;
    worker->pipe_ = ends[0];
    worker->pid_ = fork();
    if (worker->pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);  // a worker never outlives the batch
        close(ends[0]);
        _exit(worker->work(ends[1]));
    }
    close(ends[1]);
    return worker->pid_ > 0 ? std::move(worker) : nullptr;
}

/// The life of a worker process.
int Worker::work(int pipe) const {
    std::deque<TaskRun> tasks;
    std::vector<std::function<void(StepSeat&)>> runs;
    for (const Part& part : parts_) {
        const auto number = static_cast<unsigned char>(tasks.size());
        TaskRun& task = tasks.emplace_back(options_, part.task, part.tree, pipe, number);
        if (task.prepare())
            runs.emplace_back([&task](StepSeat& seat) {
                task.run(seat);
                task.tellEnd();
            });
        else
            task.tellEnd();
    }
    runInLanes(runs);
    while (!tasks.empty()) tasks.pop_back();  // whoever came last goes first
    return 0;
}

Worker::~Worker() {
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    if (pipe_ >= 0) close(pipe_);
    std::error_code ignored;
    for (const Part& part : parts_) fs::remove_all(part.tree, ignored);
}

bool Worker::readNews() {
    std::array<News, 128> news;
    const auto got = read(pipe_, news.data(), sizeof news);
    for (std::size_t n = 0; got > 0 && n < static_cast<std::size_t>(got) / sizeof(News); ++n) {
        Part& part = parts_.at(news[n].part);
        if (news[n].what == News::done)
            part.state = State::Done;
        else if (news[n].what == News::failed)
            part.state = State::Failed;
        else
            part.share = news[n].what / 100.0;
    }
    return got > 0;
}

std::size_t Worker::inWork() const {
    return static_cast<std::size_t>(
        std::count_if(parts_.begin(), parts_.end(), [](const Part& p) { return p.state == State::InWork; }));
}

double Worker::share() const {
    double sum = 0;
    for (const Part& part : parts_)
        if (part.state == State::InWork) sum += part.share;
    return sum;
}

bool Worker::ended() {
    if (pid_ < 0) return true;
    if (waitpid(pid_, nullptr, WNOHANG) == 0) return false;
    pid_ = -1;
    while (readNews()) {
    }
    return true;
}

std::vector<Worker::Outcome> Worker::outcomes() {
    std::vector<Outcome> all;
    for (Part& part : parts_) {
        if (part.state == State::Told || (part.state == State::InWork && pid_ > 0)) continue;
        all.push_back(outcomeOf(part));
        part.state = State::Told;
    }
    return all;
}

Worker::Outcome Worker::outcomeOf(const Part& part) const {
    Outcome outcome{.task = part.task,
                    .trouble = "",
                    .record = DataTree(part.tree).at(
                        files::runRecord(options_.plan, part.task.planet, part.task.experiment))};
    if (part.state == State::Done) return outcome;
    outcome.trouble = "процесс прерван";
    if (FILE* note = std::fopen((part.tree / troubleNote).c_str(), "r")) {
        char line[1000] = "";
        if (std::fgets(line, sizeof line, note) != nullptr) outcome.trouble = line;
        std::fclose(note);
    }
    return outcome;
}

}  // namespace tarvex
