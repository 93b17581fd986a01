#include "numeric/lane_steps.h"

#include <cfenv>
#include <limits>
#include <span>

#include "numeric/lane_formulas.h"

namespace tarvex {
namespace kernel {

TARVEX_KERNEL void stepOfFour(LaneBlock<Four>& b, LaneLaw law) { laneStep<PlainArithmetic, Four>(b, law); }
TARVEX_KERNEL void speedsOfFour(LaneBlock<Four>& b) { laneSpeeds<PlainArithmetic, Four>(b); }

TARVEX_WIDE_KERNEL void stepOfEight(LaneBlock<Eight>& b, LaneLaw law) {
    laneStep<FusedArithmetic, Eight>(b, law);
}
TARVEX_WIDE_KERNEL void speedsOfEight(LaneBlock<Eight>& b) { laneSpeeds<FusedArithmetic, Eight>(b); }

namespace {

inline void makeStep(LaneBlock<Four>& b, LaneLaw law) { stepOfFour(b, law); }
inline void makeSpeeds(LaneBlock<Four>& b) { speedsOfFour(b); }
inline void makeStep(LaneBlock<Eight>& b, LaneLaw law) { stepOfEight(b, law); }
inline void makeSpeeds(LaneBlock<Eight>& b) { speedsOfEight(b); }

LaneLaw lawOf(const Motion& m) {
    if (m.kodPgr == codeOf(Pressure::None)) return LaneLaw::None;
    return m.kodLVsimple == 1 ? LaneLaw::LienardShort : LaneLaw::Lienard;
}

/// Calls visit(cells of one way, body that acts, body acted on) for every pair both ways.
template <class Cells, class Visit>
void eachWay(Cells& cells, Visit visit) {
    for (std::size_t q = 0; q < pairCount; ++q) {
        visit(cells[q][0], pairTable.first[q], pairTable.second[q]);
        visit(cells[q][1], pairTable.second[q], pairTable.first[q]);
    }
}

}  // namespace

template <class V>
class LaneStepsOf final : public LaneSteps {
public:
    int width() const override { return LaneBlock<V>::width; }
    int leastExperiments() const override { return LaneBlock<V>::width == 4 ? 2 : 3; }

    void load(int lane, const Experiment& e) override {
        const Motion& m = e.motion;
        LaneCells<V>& c = block_.cells;
        c.perVgr[lane] = 1 / m.Vgr;
        c.square[lane] = m.Vgr * m.Vgr;
        c.k1[lane] = m.kPgr1;
        c.k2[lane] = m.kPgr2;
        c.hOld[lane] = m.DtOld;
        for (std::size_t i = 0; i < bodies; ++i) c.perMass[i][lane] = m.weights.perMass[i];
        takeAccelerations(c.A, lane, m.AX, m.AY, m.AZ);
        SpeedMemory<V>& memory = c.memory[block_.now];
        takeAccelerations(memory.A, lane, m.AXold, m.AYold, m.AZold);
        takeAccelerations(memory.jerk, lane, m.JX, m.JY, m.JZ);
        eachWay(c.action, [&](ActionLanes<V>& act, int i, int j) { takeAction(act, lane, m, i, j); });
        eachWay(memory.rates, [&](RateLanes<V>& r, int i, int j) {
            r.speed[lane] = m.dV1old[i][j];
            r.rate[lane] = m.AV1[i][j];
            r.rateBefore[lane] = m.AV1old[i][j];
            r.rateOfRate[lane] = m.BV1[i][j];
        });
        fresh_[lane] = false;
        law_ = lawOf(m);
        changed_ = true;
    }

    void store(int lane, const Experiment& e) const override {
        Motion& m = e.motion;
        if (m.kodPgr == codeOf(Pressure::None)) return;
        const LaneCells<V>& c = block_.cells;
        const SpeedMemory<V>& memory = c.memory[block_.now];
        m.DtOld = c.hOld[lane];
        giveAccelerations(memory.A, lane, m.AXold, m.AYold, m.AZold);
        giveAccelerations(memory.jerk, lane, m.JX, m.JY, m.JZ);
        eachWay(c.action, [&](const ActionLanes<V>& act, int i, int j) { giveAction(act, lane, m, i, j); });
        eachWay(memory.rates, [&](const RateLanes<V>& r, int i, int j) {
            m.dV1old[i][j] = r.speed[lane];
            m.AV1[i][j] = r.rate[lane];
            m.AV1old[i][j] = r.rateBefore[lane];
            m.BV1[i][j] = r.rateOfRate[lane];
        });
    }

    void storeStages(int lane, RunState& run) const override {
        const LaneCells<V>& c = block_.cells;
        std::array<double, equations>* const K[] = {&run.K1, &run.K2, &run.K3, &run.K4};
        std::array<double, equations>* const A[] = {&run.A1, &run.A2, &run.A3, &run.A4};
        for (std::size_t stage = 0; stage < 4; ++stage)
            for (std::size_t k = 0; k < equations; ++k) {
                const double slope = c.slope[stage][k][lane];
                (*K[stage])[k] = c.h[lane] * slope;
                if (k >= axes) (*A[stage])[k] = slope;
            }
        for (std::size_t k = 0; k < equations; ++k) run.U0[k] = c.U0[k][lane];
    }

    bool step(const Lanes& all) override {
        settle(all);
        block_.linesReady = true;
        for (int lane = 0; lane < width(); ++lane) {
            const Experiment& e = whoseValues(all, lane);
            block_.linesReady &= fresh_[lane];
            if (!fresh_[lane]) takeState(lane, e);
            block_.cells.h[lane] = e.s.DtCur;
            fresh_[lane] = false;
        }
        if (!went(all, [&] { makeStep(block_, law_); })) return false;
        block_.cells.A = block_.cells.mean;
        for (int lane = 0; lane < width(); ++lane)
            if (all[lane] != nullptr) giveStep(lane, *all[lane]);
        return true;
    }

    bool speeds(const Lanes& all) override {
        settle(all);
        for (int lane = 0; lane < width(); ++lane) takeState(lane, whoseValues(all, lane));
        if (!went(all, [&] { makeSpeeds(block_); })) return false;
        block_.now = 1 - block_.now;
        block_.cells.hOld = block_.cells.h;
        for (int lane = 0; lane < width(); ++lane) {
            fresh_[lane] = true;
            if (all[lane] != nullptr) all[lane]->motion.DtOld = all[lane]->s.DtCur;
        }
        return true;
    }

private:
    using Axes = std::array<V, axes>;

    static void takeAccelerations(Axes& to, int lane, const BodyArray& x, const BodyArray& y,
                                  const BodyArray& z) {
        for (std::size_t i = 0; i < bodies; ++i) {
            to[i][lane] = x[i];
            to[i + bodies][lane] = y[i];
            to[i + 2 * bodies][lane] = z[i];
        }
    }
    static void giveAccelerations(const Axes& from, int lane, BodyArray& x, BodyArray& y, BodyArray& z) {
        for (std::size_t i = 0; i < bodies; ++i) {
            x[i] = from[i][lane];
            y[i] = from[i + bodies][lane];
            z[i] = from[i + 2 * bodies][lane];
        }
    }
    static void takeAction(ActionLanes<V>& act, int lane, const Motion& m, int i, int j) {
        act.minusForce[lane] = -m.weights.force[i][j];
        act.dV1[lane] = m.dV1[i][j];
        act.vx[lane] = m.VX1zap[i][j];
        act.vy[lane] = m.VY1zap[i][j];
        act.vz[lane] = m.VZ1zap[i][j];
        act.ax[lane] = m.AX1zap[i][j];
        act.ay[lane] = m.AY1zap[i][j];
        act.az[lane] = m.AZ1zap[i][j];
        act.alongLine[lane] = m.A1zap[i][j];
        act.velocity2[lane] = m.V1zap[i][j] * m.V1zap[i][j];
    }
    static void giveAction(const ActionLanes<V>& act, int lane, Motion& m, int i, int j) {
        m.dV1[i][j] = act.dV1[lane];
        m.VX1zap[i][j] = act.vx[lane];
        m.VY1zap[i][j] = act.vy[lane];
        m.VZ1zap[i][j] = act.vz[lane];
        m.AX1zap[i][j] = act.ax[lane];
        m.AY1zap[i][j] = act.ay[lane];
        m.AZ1zap[i][j] = act.az[lane];
        m.A1zap[i][j] = act.alongLine[lane];
        m.V1zap[i][j] = std::sqrt(act.velocity2[lane]);  // the square of a rounded number has it for its root
    }

    void takeState(int lane, const Experiment& e) {
        for (std::size_t k = 0; k < equations; ++k) block_.cells.U[k][lane] = e.motion.U[k];
    }
    /// What rungeKuttaStep leaves behind; the stages stay here.
    void giveStep(int lane, const Experiment& e) const {
        const LaneCells<V>& c = block_.cells;
        Motion& m = e.motion;
        for (std::size_t k = 0; k < equations; ++k) m.U[k] = c.U[k][lane];
        for (std::size_t k = 0; k < axes; ++k) m.dU[axes + k] = c.mean[k][lane];
        m.NDiffur = m.kodPgr != codeOf(Pressure::None) ? 4 : 0;
        m.dTstage = e.s.DtCur;
        e.run.Tstage = e.run.Tsec + e.s.DtCur;
    }

    /// An empty lane goes along with the first experiment.
    static const Experiment& whoseValues(const Lanes& all, int lane) {
        return all[lane] != nullptr ? *all[lane] : *all[firstOf(all)];
    }
    static std::size_t firstOf(const Lanes& all) {
        std::size_t lane = 0;
        while (all[lane] == nullptr) ++lane;
        return lane;
    }

    /// The pairs that act in some lane; empty lanes become copies of the first experiment.
    void settle(const Lanes& all) {
        if (!changed_ && all == settled_) return;
        changed_ = false;
        settled_ = all;
        LaneCells<V>& c = block_.cells;
        const std::span rows(reinterpret_cast<V*>(&c), sizeof c / sizeof(V));
        const std::size_t first = firstOf(all);
        for (int lane = 0; lane < width(); ++lane) {
            if (all[lane] != nullptr) continue;
            for (V& row : rows) row[lane] = row[first];
            fresh_[lane] = fresh_[first];
        }
        block_.actingCount = 0;
        for (std::size_t q = 0; q < pairCount; ++q) {
            bool acts = false;
            for (int lane = 0; lane < width(); ++lane)
                acts |= c.action[q][0].minusForce[lane] != 0 || c.action[q][1].minusForce[lane] != 0;
            if (acts) block_.acting[block_.actingCount++] = static_cast<std::uint8_t>(q);
        }
    }

    /// Makes the lanes' work.
    /// @return  true when all of it is numbers between distinct places
    template <class Work>
    bool went(const Lanes& all, Work work) {
        LaneCells<V>& c = block_.cells;
        c.low = V{} + std::numeric_limits<double>::infinity();
        c.bad = V{};
        constexpr int trouble = FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW;
        work();
        bool fine = std::fetestexcept(trouble) == 0;
        if (!fine) std::feclearexcept(trouble);
        for (int lane = 0; lane < width(); ++lane)
            fine &= all[lane] == nullptr || (c.low[lane] > 0 && c.bad[lane] == 0);
        return fine;
    }

    LaneBlock<V> block_;
    std::array<bool, LaneBlock<V>::width> fresh_{};  ///< U is the present state, which its lines are of
    LaneLaw law_ = LaneLaw::None;
    Lanes settled_{};      ///< whom the empty lanes and the list of pairs are for
    bool changed_ = true;  ///< a lane has been loaded since
};

}  // namespace kernel

int LaneSteps::abreast() { return kernel::wideLanes() ? 8 : 4; }

std::unique_ptr<LaneSteps> LaneSteps::make(int experiments) {
    if (experiments > 4) return std::make_unique<kernel::LaneStepsOf<kernel::Eight>>();
    return std::make_unique<kernel::LaneStepsOf<kernel::Four>>();
}

bool LaneSteps::fits(const Experiment& e) {
    const Motion& m = e.motion;
    const bool law = m.kodPgr == codeOf(Pressure::None) ||
                     (m.kodPgr == codeOf(Pressure::LienardWiechert) && m.kodDiffurV == 0);
    return e.run.kodModel == 1 && e.run.stepper == Stepper::RungeKutta4 && m.kodOTO == 0 && m.kodVgr == 1 &&
           m.kodDX == codeOf(Retardation::ByAccelerations) && law && m.nR == 2 && m.Vgr != 0 &&
           m.kodRelativity == 0 && !e.run.boxes.debugText && !e.run.boxes.energy;
}

bool LaneSteps::alike(const Experiment& a, const Experiment& b) {
    return kernel::lawOf(a.motion) == kernel::lawOf(b.motion);
}

}  // namespace tarvex
