#include "experiment/lane_runs.h"

#include <algorithm>
#include <boost/context/fiber.hpp>
#include <boost/context/protected_fixedsize_stack.hpp>
#include <deque>
#include <exception>
#include <memory>
#include <span>
#include <utility>

#include "core/arithmetic.h"
#include "numeric/integrator.h"
#include "numeric/lane_steps.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace tarvex {

namespace {

/// The address sanitizer wants to know on which stack the program goes on.
struct StackBounds {
    const void* bottom = nullptr;
    std::size_t size = 0;
};
void beginSwitch([[maybe_unused]] void** kept, [[maybe_unused]] const StackBounds& to) {
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_start_switch_fiber(kept, to.bottom, to.size);
#endif
}
void endSwitch([[maybe_unused]] void* kept, [[maybe_unused]] StackBounds* from) {
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_finish_switch_fiber(kept, from == nullptr ? nullptr : &from->bottom,
                                    from == nullptr ? nullptr : &from->size);
#endif
}

/// Work with a stack of its own, which it may leave in the middle.  The switch keeps the floating-point flags
/// of either side.
class Context {
public:
    template <class Work>
    explicit Context(Work work) {
        boost::context::protected_fixedsize_stack stacks(stackSize);
        const auto stack = stacks.allocate();
        inner_ = {static_cast<const char*>(stack.sp) - stack.size, stack.size};
        own_ = fiber(std::allocator_arg, boost::context::preallocated(stack.sp, stack.size, stack), stacks,
                     [this, work](fiber&& outer) {
                         endSwitch(nullptr, &outer_);
                         caller_ = std::move(outer);
                         work();
                         beginSwitch(nullptr, outer_);
                         return std::move(caller_);
                     });
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    /// Begins the work, or goes on where it has left.
    void enter() {
        void* kept = nullptr;
        beginSwitch(&kept, inner_);
        own_ = std::move(own_).resume();
        endSwitch(kept, nullptr);
    }
    /// Of the work: gives way until it is entered again.
    void leave() {
        void* kept = nullptr;
        beginSwitch(&kept, outer_);
        caller_ = std::move(caller_).resume();
        endSwitch(kept, &outer_);
    }
    bool ended() const { return !own_; }

private:
    using fiber = boost::context::fiber;
    static constexpr std::size_t stackSize = std::size_t{4} << 20;
    fiber own_, caller_;
    StackBounds inner_, outer_;
};

enum class Wanted { Nothing, Step, Speeds };

/// A run in its context.
class Seat final : public StepSeat {
public:
    Seat(LaneSteps& steps, int lane, const std::function<void(StepSeat&)>& run)
        : steps_(steps), lane_(lane), context_([this, &run] {
              try {
                  run(*this);
              } catch (...) {
                  trouble_ = std::current_exception();
              }
          }) {}

    void take(const Experiment& e) override {
        e_ = LaneSteps::fits(e) ? &e : nullptr;
        alone_ = &e;
    }
    void leave() override {
        comeOut();
        e_ = nullptr;
    }
    void step() override {
        if (waitFor(Wanted::Step)) return;
        comeOut();
        rungeKuttaStep(alone_->s, alone_->motion, alone_->run);
    }
    void speeds() override {
        if (waitFor(Wanted::Speeds)) return;
        comeOut();
        SpeedUpdate(alone_->s, alone_->motion);
    }
    void show() override {
        if (!inside_) return;
        steps_.store(lane_, *e_);
        steps_.storeStages(lane_, e_->run);
    }

    // --- for whom the runs belong to
    void goOn() { context_.enter(); }
    bool ended() const { return context_.ended(); }
    Wanted wanted() const { return wanted_; }
    const Experiment* experiment() const { return e_; }
    std::exception_ptr trouble() const { return trouble_; }
    void comeIn() {
        if (!inside_) steps_.load(lane_, *e_);
        inside_ = true;
    }
    /// @param made  it has been done in the lanes; otherwise the run does it itself
    void answer(bool made) {
        wanted_ = Wanted::Nothing;
        made_ = made;
    }

    /// Everything is in the experiment again.
    void comeOut() {
        if (inside_) steps_.store(lane_, *e_);
        inside_ = false;
    }

private:
    bool waitFor(Wanted wanted) {
        if (e_ == nullptr) return false;
        wanted_ = wanted;
        context_.leave();
        return made_;
    }
    LaneSteps& steps_;
    int lane_;
    Context context_;
    const Experiment *e_ = nullptr, *alone_ = nullptr;  ///< e_: its steps are made in the lanes
    Wanted wanted_ = Wanted::Nothing;
    bool made_ = false, inside_ = false;
    std::exception_ptr trouble_;
};

/// Runs of one group of lanes.
class Group {
public:
    explicit Group(std::span<const std::function<void(StepSeat&)>> runs)
        : steps_(LaneSteps::make(static_cast<int>(runs.size()))) {
        for (const auto& run : runs) seats_.emplace_back(*steps_, static_cast<int>(seats_.size()), run);
    }

    /// @return  steps made together
    std::size_t run() {
        const ArithmeticGuard flags;  // clear between the runs
        while (letGo()) meet();
        return made_;
    }
    std::exception_ptr trouble() const {
        for (const Seat& seat : seats_)
            if (seat.trouble()) return seat.trouble();
        return nullptr;
    }

private:
    /// @return  false when all have ended
    bool letGo() {
        bool waits = false;
        for (Seat& seat : seats_) {
            if (!seat.ended() && seat.wanted() == Wanted::Nothing) seat.goOn();
            waits |= !seat.ended();
        }
        return waits;
    }

    /// Everybody who has not ended wants something.  Who wants the same as the first by the same law gets it
    /// together with him.
    void meet() {
        LaneSteps::Lanes all{};
        const Seat* first = nullptr;
        int count = 0;
        for (std::size_t lane = 0; lane < seats_.size(); ++lane) {
            Seat& seat = seats_[lane];
            if (seat.ended()) continue;
            if (first == nullptr) first = &seat;
            if (seat.wanted() == first->wanted() &&
                LaneSteps::alike(*seat.experiment(), *first->experiment())) {
                all[lane] = seat.experiment();
                ++count;
            } else {
                seat.comeOut();
            }
        }
        const bool made = count >= steps_->leastExperiments() && make(all, first->wanted());
        for (std::size_t lane = 0; lane < seats_.size(); ++lane)
            if (!seats_[lane].ended()) seats_[lane].answer(made && all[lane] != nullptr);
    }

    bool make(const LaneSteps::Lanes& all, Wanted wanted) {
        for (std::size_t lane = 0; lane < seats_.size(); ++lane)
            if (all[lane] != nullptr) seats_[lane].comeIn();
        if (wanted == Wanted::Speeds) return steps_->speeds(all);
        const bool made = steps_->step(all);
        made_ += made ? 1 : 0;
        return made;
    }

    std::size_t made_ = 0;
    std::unique_ptr<LaneSteps> steps_;
    std::deque<Seat> seats_;
};

}  // namespace

int lanesAbreast() { return LaneSteps::abreast(); }

std::size_t runInLanes(const std::vector<std::function<void(StepSeat&)>>& runs) {
    std::exception_ptr trouble;
    std::size_t made = 0;
    const std::span all(runs);
    const auto abreast = static_cast<std::size_t>(LaneSteps::abreast());
    for (std::size_t begin = 0; begin < all.size(); begin += abreast) {
        Group group(all.subspan(begin, std::min(abreast, all.size() - begin)));
        made += group.run();
        if (!trouble) trouble = group.trouble();
    }
    if (trouble) std::rethrow_exception(trouble);
    return made;
}

}  // namespace tarvex
