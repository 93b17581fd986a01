#include "batch/plan_batch.h"

#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <deque>
#include <memory>
#include <sstream>
#include <thread>

#include "core/data_home.h"
#include "core/data_tree.h"
#include "core/failure.h"
#include "core/leftovers.h"
#include "core/numbers.h"
#include "core/text_files.h"
#include "forms/laboratory.h"
#include "script/player.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto tellEvery = std::chrono::seconds(2);
constexpr int pollMilliseconds = 200;

volatile sig_atomic_t interrupted = 0;
void interrupt(int) { interrupted = 1; }

struct Task {
    int planet = 0, experiment = 0;
};

/// The screen of a worker: prints nothing, keeps what went wrong, sends its progress up a pipe.
class WorkerScreen final : public ScriptScreen {
public:
    WorkerScreen(std::ostream& out, int pipe) : ScriptScreen(out), pipe_(pipe) {}
    void message(const std::string& text, const std::string&) override {
        if (trouble.empty()) trouble = text;  // an outer handler would tell its own text of the same trouble
        throw Failure(text);
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

/// A worker process and its passing data tree.
struct Worker {
    Task task;
    pid_t pid = -1;
    int pipe = -1;
    double share = 0;
    fs::path tree;
};

/// Everything of the real tree but the plan's folder is looked at in place.
fs::path passingTree(const fs::path& root, int plan, const Task& task) {
    fs::path tree =
        fs::temp_directory_path() / ("tarvex-plan-" + std::to_string(getpid()) + "-" +
                                     std::to_string(task.planet) + "-" + std::to_string(task.experiment));
    const DataTree real(root), own(tree);
    fs::create_directories(own.at(files::runRecord(plan, task.planet, task.experiment)).parent_path());
    fs::copy_file(real.at(files::plan(plan)), own.at(files::plan(plan)));
    for (const char* folder : {"Dat", "JPL", "NEW", "Ser"})
        if (fs::is_directory(root / folder))
            fs::create_directory_symlink(fs::absolute(root / folder), tree / folder);
    return tree;
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
        trouble = failure.what();
    }
    if (!screen.trouble.empty()) trouble = screen.trouble;
    if (trouble.empty()) return 0;
    if (FILE* note = std::fopen((tree / "trouble").c_str(), "w")) {
        std::fputs(trouble.c_str(), note);
        std::fclose(note);
    }
    return 1;
}

fs::path dataTree(const BatchOptions& options) {
    try {
        return findDataTree(options.data);
    } catch (const OpenFailure&) {
        throw Failure("нет каталога данных" + (options.data ? " " + options.data->string() : ""));
    }
}

class Batch {
public:
    Batch(const BatchOptions& options, std::ostream& out, std::ostream& err)
        : options_(options), out_(out), err_(err), root_(dataTree(options)), real_(root_) {
        if (!fs::is_regular_file(real_.at(files::plan(options.plan))))
            throw Failure("Не могу найти файл " + files::plan(options.plan));
        for (const int planet : options.planets) {
            if (!fs::is_directory(target({planet, 1}).parent_path()))
                throw Failure("Не могу найти папку " + target({planet, 1}).parent_path().string());
            for (int e = options.first; e <= options.last; ++e) waiting_.push_back({planet, e});
        }
        total_ = waiting_.size();
        if (options.resume)
            std::erase_if(waiting_, [&](const Task& task) { return fs::is_regular_file(target(task)); });
        skipped_ = total_ - waiting_.size();
    }

    ~Batch() {
        for (Worker& worker : running_) {
            kill(worker.pid, SIGKILL);
            waitpid(worker.pid, nullptr, 0);
            tidy(worker);
        }
    }

    int run() {
        const std::size_t jobs =
            options_.jobs > 0 ? options_.jobs : std::max(1u, std::thread::hardware_concurrency());
        begun_ = Clock::now();
        while (interrupted == 0 && (!waiting_.empty() || !running_.empty())) {
            while (running_.size() < jobs && !waiting_.empty()) {
                if (!start(waiting_.front())) {
                    if (running_.empty()) throw Failure("нет места для процессов");
                    break;  // as many at once as the machine gives
                }
                waiting_.pop_front();
            }
            listen();
            collect();
            if (Clock::now() - told_ > tellEvery) tell();
        }
        tell();
        if (interrupted != 0) err_ << "прервано; с --resume продолжится отсюда\n";
        return interrupted == 0 && failed_ == 0 ? 0 : 2;
    }

private:
    fs::path target(const Task& task) const {
        return real_.at(files::runRecord(options_.plan, task.planet, task.experiment));
    }

    /// A process for the experiment; false when the machine has none to give.
    bool start(const Task& task) {
        Worker worker;
        worker.task = task;
        worker.tree = passingTree(root_, options_.plan, task);
        int ends[2];
        if (pipe(ends) != 0) {
            dropTree(worker);
            return false;
        }
        out_.flush();
        err_.flush();
        worker.pid = fork();
        if (worker.pid < 0) {
            close(ends[0]);
            close(ends[1]);
            dropTree(worker);
            return false;
        }
        if (worker.pid == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);  // a worker never outlives the batch
            close(ends[0]);
            _exit(work(options_, task, worker.tree, ends[1]));
        }
        close(ends[1]);
        worker.pipe = ends[0];
        running_.push_back(worker);
        return true;
    }

    /// Waits a moment for news of the workers.
    void listen() {
        std::vector<pollfd> ends;
        for (const Worker& worker : running_) ends.push_back({worker.pipe, POLLIN, 0});
        poll(ends.data(), ends.size(), pollMilliseconds);
        for (std::size_t i = 0; i < ends.size(); ++i) {
            unsigned char percents[256];
            if ((ends[i].revents & POLLIN) == 0) continue;
            const auto got = read(running_[i].pipe, percents, sizeof percents);
            if (got > 0) running_[i].share = percents[got - 1] / 100.0;
        }
    }

    void collect() {
        for (std::size_t i = 0; i < running_.size();) {
            int status = 0;
            if (waitpid(running_[i].pid, &status, WNOHANG) == 0) {
                ++i;
                continue;
            }
            finish(running_[i], WIFEXITED(status) && WEXITSTATUS(status) == 0);
            tidy(running_[i]);
            running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }

    /// Puts the records of a finished run where they belong, whole or not at all.
    void handOver(const Worker& worker, const fs::path& goal) const {
        const std::string records =
            files::runRecord(options_.plan, worker.task.planet, worker.task.experiment);
        const fs::path passing = passingName(goal);
        try {
            fs::copy_file(DataTree(worker.tree).at(records), passing, fs::copy_options::overwrite_existing);
            putInPlace(passing, goal);
        } catch (...) {
            std::error_code ignored;
            fs::remove(passing, ignored);
            throw;
        }
    }

    void finish(const Worker& worker, bool good) {
        const fs::path goal = target(worker.task);
        std::string trouble = "процесс прерван";
        if (good) {
            try {
                handOver(worker, goal);
                ++done_;
                out_ << goal.string() << std::endl;
                return;
            } catch (const std::exception&) {
                trouble = "не удалось записать " + goal.string();
            }
        } else if (FILE* note = std::fopen((worker.tree / "trouble").c_str(), "r")) {
            char text[1000] = "";
            if (std::fgets(text, sizeof text, note) != nullptr) trouble = text;
            std::fclose(note);
        }
        ++failed_;
        err_ << "планета " << worker.task.planet << ", эксперимент " << worker.task.experiment << ": "
             << trouble << '\n';
    }

    static void tidy(Worker& worker) {
        close(worker.pipe);
        dropTree(worker);
    }

    static void dropTree(const Worker& worker) {
        std::error_code ignored;
        fs::remove_all(worker.tree, ignored);
    }

    /// One line: how much is done and when the rest will be.
    void tell() {
        told_ = Clock::now();
        double share = static_cast<double>(done_ + failed_);
        for (const Worker& worker : running_) share += worker.share;
        const double seconds = std::chrono::duration<double>(told_ - begun_).count();
        const double all = static_cast<double>(total_ - skipped_);
        err_ << "план " << options_.plan << ": готово " << skipped_ + done_ << " из " << total_
             << ", в работе " << running_.size();
        if (share > 0 && share < all) {
            const auto left = static_cast<long>(seconds / share * (all - share));
            err_ << ", осталось " << left / 3600 << ":" << Format(static_cast<double>(left / 60 % 60), "00")
                 << ":" << Format(static_cast<double>(left % 60), "00");
        }
        if (failed_ > 0) err_ << ", с ошибкой " << failed_;
        err_ << std::endl;
    }

    const BatchOptions& options_;
    std::ostream& out_;
    std::ostream& err_;
    fs::path root_;
    DataTree real_;
    std::deque<Task> waiting_;
    std::vector<Worker> running_;
    std::size_t total_ = 0, skipped_ = 0, done_ = 0, failed_ = 0;
    Clock::time_point begun_, told_{};
};

}  // namespace

std::vector<std::string> experimentScript(const BatchOptions& options, int planet, int experiment) {
    std::vector<std::string> first, last, plan = {"Form15.Text4 = " + std::to_string(options.plan)};
    // what the plan is made of comes before its levels are loaded; Form1 before everything
    for (const BatchSetting& setting : options.settings) {
        const std::string line = setting.control + " = " + setting.value;
        (setting.control.starts_with("Form1.")    ? first
         : setting.control.starts_with("Form15.") ? plan
                                                  : last)
            .push_back(line);
    }
    if (!first.empty()) first.insert(first.end(), {"Form1.Command3", "Form1.Command12"});
    first.emplace_back("Form1.Command1");  // hands the elements over to modelling
    plan.insert(plan.end(), {"Form15.Option6 = on", "Form15.Command5", "Form15.Command14"});
    std::vector<std::string> script = first;
    script.insert(script.end(), plan.begin(), plan.end());
    script.insert(script.end(), last.begin(), last.end());
    const std::string e = std::to_string(experiment);
    script.insert(script.end(), {"Form2.Text13 = " + std::to_string(planet), "Form15.Text5 = " + e,
                                 "Form15.Text6 = " + e, "Form15.Command8"});
    return script;
}

int runBatch(const BatchOptions& options, std::ostream& out, std::ostream& err) {
    interrupted = 0;
    struct sigaction action = {};
    action.sa_handler = interrupt;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    return Batch(options, out, err).run();
}

}  // namespace tarvex
