#include "batch/worker.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <utility>

#include "batch/plan_batch.h"
#include "core/data_tree.h"
#include "core/failure.h"
#include "forms/laboratory.h"
#include "script/player.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr const char* troubleNote = "trouble";  ///< file of a passing tree: what went wrong

/// The screen of a worker: prints nothing, keeps what went wrong, sends its progress up a pipe.
class WorkerScreen final : public ScriptScreen {
public:
    WorkerScreen(std::ostream& out, int pipe) : ScriptScreen(out), pipe_(pipe) {}
    void message(const Message& told) override {
        // an outer handler would tell its own text of the same trouble
        if (trouble.empty()) trouble = told.text + (told.cause.empty() ? "" : " (" + told.cause + ")");
        throw Failure(told.text);
    }
    void progress(Form&, double share) override {
        const auto percent = static_cast<unsigned char>(std::clamp(share, 0.0, 1.0) * 100);
        if (percent == last_) return;
        last_ = percent;
        [[maybe_unused]] const auto sent = write(pipe_, &percent, 1);
    }

    std::string trouble;  ///< the first message

private:
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

/// The life of a worker process: exit status 0, or 1 with the failure left in the tree.
int work(const BatchOptions& options, const Task& task, const fs::path& tree, int pipe) {
    std::ostringstream printed;
    std::string trouble;
    WorkerScreen screen(printed, pipe);
    try {
        Laboratory lab(screen, tree);
        Player(screen, lab.desk, lab.names).play(experimentScript(options, task.planet, task.experiment));
        if (!fs::is_regular_file(lab.tree.at(files::runRecord(options.plan, task.planet, task.experiment))))
            trouble = "эксперимент не записал файла";
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
