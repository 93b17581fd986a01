#include "batch/plan_batch.h"

#include <poll.h>
#include <signal.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <ostream>
#include <thread>

#include "batch/batch_progress.h"
#include "batch/option_words.h"
#include "batch/plan_journal.h"
#include "batch/worker.h"
#include "core/data_tree.h"
#include "core/failure.h"
#include "core/leftovers.h"
#include "core/private_folder.h"
#include "experiment/lane_runs.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

using Clock = BatchProgress::Clock;
constexpr int pollMilliseconds = 200;

volatile sig_atomic_t interrupted = 0;
void interrupt(int) { interrupted = 1; }

class Batch {
public:
    Batch(const BatchOptions& options, std::ostream& out, std::ostream& err, bool terminal)
        : options_(options),
          out_(out),
          err_(err),
          root_(dataTree(options.data)),
          real_(root_),
          settings_(settingsLine(options, real_)),
          journal_(real_, options.plan),
          progress_(err, terminal, options.plan) {
        if (!fs::is_regular_file(real_.at(files::plan(options.plan))))
            throw Failure("Не могу найти файл " + files::plan(options.plan));
        sweepLeftovers(root_);
        for (const int planet : options.planets) {
            const fs::path folder = journal_.record({planet, 1}).parent_path();
            if (!fs::is_directory(folder)) throw Failure("Не могу найти папку " + folder.string());
            for (int e = options.first; e <= options.last; ++e) waiting_.push_back({planet, e});
        }
        total_ = waiting_.size();
        if (options.resume) std::erase_if(waiting_, [&](const Task& task) { return isFinished(task); });
    }

    int run() {
        const std::size_t jobs =
            options_.jobs > 0 ? options_.jobs : std::max(1u, std::thread::hardware_concurrency());
        const std::size_t lanes = lanesOf(jobs);
        progress_.begin(total_, total_ - waiting_.size(), Clock::now());
        while (interrupted == 0 && (!waiting_.empty() || !running_.empty())) {
            while (running_.size() < jobs && !waiting_.empty()) {
                if (start(std::min(lanes, waiting_.size()))) continue;
                if (running_.empty()) throw Failure("нет места для процессов");
                break;  // as many at once as the machine gives
            }
            listen();
            collect();
            progress_.tell(inWork(), runningShares(), Clock::now());
        }
        progress_.tellNow(inWork(), runningShares(), Clock::now());
        if (interrupted != 0) err_ << "прервано; с --resume продолжится отсюда\n";
        return interrupted == 0 && progress_.allGood() ? 0 : 2;
    }

private:
    /// Throws Failure when it was finished with other settings, unless those are to go.
    bool isFinished(const Task& task) const {
        const auto before = journal_.finishedWith(task);
        if (!before) return false;
        if (*before == settings_) return true;
        if (options_.again) return false;
        throw Failure(nameOf(task) + ": выполнен с другими настройками\n  были:   " + *before +
                      "\n  заданы: " + settings_ + "\nс --again такие эксперименты выполнятся заново");
    }

    /// Experiments of a process: no more than keep every process busy.
    std::size_t lanesOf(std::size_t jobs) const {
        if (options_.lanes > 0) return static_cast<std::size_t>(options_.lanes);
        return std::clamp<std::size_t>((waiting_.size() + jobs - 1) / jobs, 1,
                                       static_cast<std::size_t>(lanesAbreast()));
    }

    /// A process for the next experiments; false when the machine has none to give.
    bool start(std::size_t experiments) {
        out_.flush();
        err_.flush();
        const std::vector<Task> tasks(waiting_.begin(),
                                      waiting_.begin() + static_cast<std::ptrdiff_t>(experiments));
        auto worker = Worker::start(options_, tasks, folder_.path(), root_);
        if (!worker) return false;
        running_.push_back(std::move(worker));
        waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(experiments));
        for (const Task& task : tasks) progress_.began(task);
        return true;
    }

    /// Waits a moment for news of the workers.
    void listen() {
        std::vector<pollfd> ends;
        for (const auto& worker : running_) ends.push_back({worker->news(), POLLIN, 0});
        poll(ends.data(), ends.size(), pollMilliseconds);
        for (std::size_t i = 0; i < ends.size(); ++i)
            if ((ends[i].revents & POLLIN) != 0) running_[i]->readNews();
    }

    void collect() {
        for (auto worker = running_.begin(); worker != running_.end();) {
            const bool last = (*worker)->ended();
            for (const Worker::Outcome& outcome : (*worker)->outcomes()) finish(outcome);
            worker = last ? running_.erase(worker) : worker + 1;
        }
    }

    void finish(const Worker::Outcome& outcome) {
        const Task& task = outcome.task;
        std::string trouble = outcome.trouble;
        if (trouble.empty()) {
            try {
                journal_.handOver(task, outcome.record, settings_);
                progress_.finished(task);
                out_ << journal_.record(task).string() << std::endl;
                return;
            } catch (const std::exception& failure) {
                trouble =
                    "не удалось записать " + journal_.record(task).string() + " (" + causeOf(failure) + ")";
            }
        }
        progress_.failed(task, trouble);
    }

    std::size_t inWork() const {
        std::size_t sum = 0;
        for (const auto& worker : running_) sum += worker->inWork();
        return sum;
    }

    double runningShares() const {
        double sum = 0;
        for (const auto& worker : running_) sum += worker->share();
        return sum;
    }

    const BatchOptions& options_;
    std::ostream& out_;
    std::ostream& err_;
    fs::path root_;
    DataTree real_;
    std::string settings_;
    PlanJournal journal_;
    BatchProgress progress_;
    PrivateFolder folder_{"plan"};
    std::deque<Task> waiting_;
    std::vector<std::unique_ptr<Worker>> running_;  ///< they go before the folder of their trees
    std::size_t total_ = 0;
};

}  // namespace

std::vector<std::string> settingsScript(const BatchOptions& options, int planet) {
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
    script.push_back("Form2.Text13 = " + std::to_string(planet));
    return script;
}

int runBatch(const BatchOptions& options, std::ostream& out, std::ostream& err, bool terminal) {
    interrupted = 0;
    struct sigaction action = {};
    action.sa_handler = interrupt;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    signal(SIGCHLD, SIG_DFL);  // who ignores it is not told how a process has ended
    return Batch(options, out, err, terminal).run();
}

}  // namespace tarvex
