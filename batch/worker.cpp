#include "batch/worker.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <sstream>
#include <utility>

#include "batch/plan_batch.h"
#include "core/data_tree.h"
#include "core/failure.h"
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

/// Sends the progress of a run up a pipe, a byte a percent.
class WorkerPort final : public ExperimentPort {
public:
    WorkerPort(const Experiment& e, int pipe) : e_(e), pipe_(pipe) {}
    void showDate() override {
        const auto percent = static_cast<unsigned char>(shareDone(e_) * 100);
        if (percent == last_) return;
        last_ = percent;
        [[maybe_unused]] const auto sent = write(pipe_, &percent, 1);
    }

private:
    const Experiment& e_;
    int pipe_;
    unsigned char last_ = 255;
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

/// The experiment, with the settings that the screens hold.
/// @return  what went wrong, empty when nothing did
std::string runTask(Laboratory& lab, const BatchOptions& options, const Task& task, int pipe) {
    const Experiment e = lab.experiment();
    try {
        PlanSettings plan;
        stage("Ошибка при выполнение плана", "", [&] { plan = screenOf<PlanScreen>(lab.desk).takePlan(); });
        lab.desk.show(RunScreen::formName);
        const RunSettings run = screenOf<RunScreen>(lab.desk).settings();
        WorkerPort port(e, pipe);
        stage("Задайте правильно данные", "",
              [&] { runPlanExperiment(e, lab.plan, task.experiment, plan, run, port); });
    } catch (const Refusal& refusal) {
        return troubleText(refusal.text, lab.desk.shortened(refusal.cause));
    }
    const bool written =
        fs::is_regular_file(lab.tree.at(files::runRecord(options.plan, task.planet, task.experiment)));
    return written ? "" : "эксперимент не записал файла";
}

/// The life of a worker process: exit status 0, or 1 with the failure left in the tree.
int work(const BatchOptions& options, const Task& task, const fs::path& tree, int pipe) {
    std::ostringstream printed;
    std::string trouble;
    WorkerScreen screen(printed);
    try {
        Laboratory lab(screen, tree);
        Player(screen, lab.desk, lab.names).play(settingsScript(options, task.planet));
        trouble = runTask(lab, options, task, pipe);
    } catch (const LineFailure& failure) {
        trouble = failure.text;
    } catch (const std::exception& failure) {
        trouble = causeOf(failure);
    }
    if (!screen.trouble.empty()) trouble = screen.trouble;
    if (trouble.empty()) return 0;
    if (FILE* note = std::fopen((tree / troubleNote).c_str(), "w")) {
        std::fputs(trouble.c_str(), note);
        std::fclose(note);
    }
    return 1;
}

}  // namespace

std::string nameOf(const Task& task) {
    return "планета " + std::to_string(task.planet) + ", эксперимент " + std::to_string(task.experiment);
}

Worker::Worker(const BatchOptions& options, const Task& task, fs::path tree)
    : options_(options), task_(task), tree_(std::move(tree)) {}

std::unique_ptr<Worker> Worker::start(const BatchOptions& options, const Task& task, const fs::path& folder,
                                      const fs::path& root) {
    const fs::path tree = folder / (std::to_string(task.planet) + "-" + std::to_string(task.experiment));
    std::unique_ptr<Worker> worker(new Worker(options, task, tree));
    makePassingTree(tree, root, options.plan, task);
    int ends[2];
    if (pipe(ends) != 0) return nullptr;
    worker->pipe_ = ends[0];
    worker->pid_ = fork();
    if (worker->pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);  // a worker never outlives the batch
        close(ends[0]);
        _exit(work(options, task, tree, ends[1]));
    }
    close(ends[1]);
    return worker->pid_ > 0 ? std::move(worker) : nullptr;
}

Worker::~Worker() {
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    if (pipe_ >= 0) close(pipe_);
    std::error_code ignored;
    fs::remove_all(tree_, ignored);
}

void Worker::readNews() {
    unsigned char percents[256];
    const auto got = read(pipe_, percents, sizeof percents);
    if (got > 0) share_ = percents[got - 1] / 100.0;
}

bool Worker::ended() {
    if (pid_ < 0) return true;
    const pid_t waited = waitpid(pid_, &status_, WNOHANG);
    if (waited == 0) return false;
    if (waited < 0) status_ = W_EXITCODE(1, 0);  // nobody knows how it ended
    pid_ = -1;
    return true;
}

std::string Worker::trouble() const {
    if (WIFEXITED(status_) && WEXITSTATUS(status_) == 0) return "";
    std::string text = "процесс прерван";
    if (FILE* note = std::fopen((tree_ / troubleNote).c_str(), "r")) {
        char line[1000] = "";
        if (std::fgets(line, sizeof line, note) != nullptr) text = line;
        std::fclose(note);
    }
    return text;
}

fs::path Worker::record() const {
    return DataTree(tree_).at(files::runRecord(options_.plan, task_.planet, task_.experiment));
}

}  // namespace tarvex
