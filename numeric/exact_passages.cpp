#include "numeric/exact_passages.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/calendar.h"
#include "numeric/advance.h"
#include "numeric/measurement.h"
#include "numeric/records.h"
#include "theories/passages.h"

namespace tarvex {

namespace {

// ------------------------------------------------------------------ the motion inside a step

/// The step of the model, from what its integrator knows of it.
class ModelTrack final : public Track {
public:
    ModelTrack(const Experiment& e, const OrbitPoint& before) : e_(e), before_(before) {}

    OrbitPoint at(double share) override {
        if (!arc_) arc_ = StepInside(e_).arc(before_);
        return arc_->at(share);
    }

private:
    const Experiment& e_;
    OrbitPoint before_;
    std::optional<Arc> arc_;
};

/// The body as an imitator has just put it; its velocity runs the way of the run.
OrbitPoint imitated(const Experiment& e) {
    const ModelState& s = e.s;
    return {fromOrigin(s, e.run, {s.X.data(), s.Y.data(), s.Z.data()}),
            e.run.kodTime * fromOrigin(s, e.run, {s.VX.data(), s.VY.data(), s.VZ.data()})};
}

/// Sets the dates of the run to a time of it; the calendar stays.
void setDates(const Experiment& e, double Tsec) {
    const double days = e.run.kodTime * (Tsec - e.run.Tsec) / sekD;
    e.ephemeris.JDjpl += days;
    e.s.JD = e.ephemeris.JDjpl;
}

/// The way of an imitator: the theory at the moment asked for.  Date and rows are taken back in the end.
class ImitatorTrack final : public Track {
public:
    ImitatorTrack(const Experiment& e, double begin, double end)
        : e_(e), begin_(begin), end_(end), JDjpl_(e.ephemeris.JDjpl), JD_(e.s.JD) {}
    ImitatorTrack(const ImitatorTrack&) = delete;
    ImitatorTrack& operator=(const ImitatorTrack&) = delete;
    ~ImitatorTrack() override {
        if (!rows_) return;
        putDates();
        ModelState& s = e_.s;
        s.X = rows_->x, s.Y = rows_->y, s.Z = rows_->z;
        s.VX = rows_->vx, s.VY = rows_->vy, s.VZ = rows_->vz;
    }

    OrbitPoint at(double share) override {
        const ModelState& s = e_.s;
        if (!rows_) rows_ = {s.X, s.Y, s.Z, s.VX, s.VY, s.VZ};
        putDates();
        setDates(e_, begin_ + share * (end_ - begin_));
        imitatorStep(e_);
        return imitated(e_);
    }

private:
    struct Kept {
        Rows x, y, z, vx, vy, vz;
    };
    void putDates() {
        e_.ephemeris.JDjpl = JDjpl_;
        e_.s.JD = JD_;
    }

    const Experiment& e_;
    double begin_, end_, JDjpl_, JD_;
    std::optional<Kept> rows_;
};

// ------------------------------------------------------------------ what a passage brings

/// Clock, date and place of the body, given back in the end.
class KeptMoment {
public:
    explicit KeptMoment(const Experiment& e)
        : e_(e),
          Tsec_(e.run.Tsec),
          Tmod_(e.run.Tmod),
          JDjpl_(e.ephemeris.JDjpl),
          JD_(e.s.JD),
          DenR_(e.s.DenR),
          GodR_(e.s.GodR),
          MesR_(e.s.MesR),
          kodErrDate_(e.s.kodErrDate),
          place_{e.s.X[e.s.IplSel], e.s.Y[e.s.IplSel], e.s.Z[e.s.IplSel]} {}
    KeptMoment(const KeptMoment&) = delete;
    KeptMoment& operator=(const KeptMoment&) = delete;
    ~KeptMoment() {
        ModelState& s = e_.s;
        e_.run.Tsec = Tsec_;
        e_.run.Tmod = Tmod_;
        e_.ephemeris.JDjpl = JDjpl_;
        s.JD = JD_;
        s.DenR = DenR_;
        s.GodR = GodR_;
        s.MesR = MesR_;
        s.kodErrDate = kodErrDate_;
        s.X[s.IplSel] = place_.x, s.Y[s.IplSel] = place_.y, s.Z[s.IplSel] = place_.z;
    }

private:
    const Experiment& e_;
    double Tsec_, Tmod_, JDjpl_, JD_;
    decltype(ModelState::DenR) DenR_;
    decltype(ModelState::GodR) GodR_;
    decltype(ModelState::MesR) MesR_;
    std::int16_t kodErrDate_;
    Vec3 place_;
};

/// The moment of a passage: while it lasts, clock, date and place are those of the passage, for the formulas,
/// the record and the screen.
class Moment {
public:
    Moment(const Experiment& e, const Vec3& r, double Tsec) : kept_(e) {
        ModelState& s = e.s;
        setDates(e, Tsec);
        e.run.Tmod += e.run.kodTime * (Tsec - e.run.Tsec);
        e.run.Tsec = Tsec;
        DateFromJD(s, s.JD);
        s.X[s.IplSel] = s.X[s.Icentr] + r.x;
        s.Y[s.IplSel] = s.Y[s.Icentr] + r.y;
        s.Z[s.IplSel] = s.Z[s.Icentr] + r.z;
        look(s);
        e.run.LonOld = s.LonPl[s.IplSel];
    }

private:
    KeptMoment kept_;
};

double latitudeAt(const OrbitPoint& point) { return std::abs(latitudeOf(point.r)); }

/// Measures, tells and records what is passed.
class Teller {
public:
    Teller(const Experiment& e, RunPort& port) : e_(e), watch_(e.run.watch), port_(port) {}

    void pass(const FoundPassage& passage, double Tsec) {
        switch (passage.what) {
            case Passing::Latitude:
                e_.run.Betta = std::max(e_.run.Betta, latitudeAt(passage.point));
                break;
            case Passing::Node:
                passNode(passage, Tsec);
                break;
            case Passing::Wrap:
                passWrap(passage, Tsec);
                break;
            case Passing::Apse:
                passTurn(passage, Tsec);
                break;
        }
    }

    /// The turn that waits is an apse: no other can follow in its quarter of the revolution.
    void passApse() {
        RunState& run = e_.run;
        const double AlfaU = run.AlfaU, Betta = run.Betta, Period = run.Period;  // measured since
        const Turn& turn = watch_.turn;
        watch_.waiting = false;
        watch_.due = watch_.perihelion ? PassageWatch::Due::Aphelion : PassageWatch::Due::Perihelion;
        {
            const Moment moment(e_, turn.point.r, turn.Tsec);
            run.AlfaU = turn.AlfaU;
            run.Betta = turn.Betta;
            run.Period = turn.Period;
            run.kodPeri = watch_.perihelion ? 1 : 0;
            (watch_.perihelion ? run.Rmin : run.Rmax) = e_.s.Rcur;
            Passage seen;
            takeApse(e_.s, run, seen);
            tell(seen);
            if (run.boxes.records && run.NZamer > 2) WriteRasRecord(e_.tree, e_.s, run);
            endApse(run);
        }
        run.AlfaU = AlfaU;
        run.Betta = Betta;
        run.Period = Period;
    }

    bool told() const { return told_; }

private:
    void tell(const Passage& seen) {
        port_.passed(seen);
        told_ = true;
    }

    void passNode(const FoundPassage& passage, double Tsec) {
        const Moment moment(e_, passage.point.r, Tsec);
        Passage seen;
        takeNode(e_.s, e_.run, passage.upwards == (e_.run.kodTime == 1), seen);
        tell(seen);
    }

    void passWrap(const FoundPassage& passage, double Tsec) {
        const Moment moment(e_, passage.point.r, Tsec);
        Passage seen;
        const bool counts = watch_.waiting && (watch_.perihelion || e_.run.NZamer == 0);
        takeWrap(e_.run, watch_.wrapped ? e_.run.NZamer + (counts ? 1 : 0) : 0, seen);
        watch_.wrapped = true;
        if (seen.periodRenewed) tell(seen);
    }

    void passTurn(const FoundPassage& passage, double Tsec) {
        RunState& run = e_.run;
        const double latitude = latitudeAt(passage.point);
        const bool perihelion = passage.upwards;
        run.Betta = std::max(run.Betta, latitude);
        double largest = run.Betta;
        if (watch_.waiting) {
            watch_.rivals = true;
            const double r = length(passage.point.r), waits = length(watch_.turn.point.r);
            if (perihelion != watch_.perihelion || (perihelion ? r >= waits : r <= waits)) return;
            largest = std::max(largest, watch_.turn.Betta);
        } else {
            using Due = PassageWatch::Due;
            if (watch_.due == (perihelion ? Due::Aphelion : Due::Perihelion)) return;
            watch_.waiting = true;
            watch_.perihelion = perihelion;
        }
        watch_.turn = {passage.point, Tsec, run.AlfaU, largest, run.Period};
        run.Betta = latitude;
    }

    const Experiment& e_;
    PassageWatch& watch_;
    RunPort& port_;
    bool told_ = false;
};

/// Tells what was passed between two places of the body, begin and end seconds after Start.
bool follow(const Experiment& e, const OrbitPoint& after, const FoundPassages& passages, double begin,
            double end, RunPort& port) {
    Teller teller(e, port);
    for (const FoundPassage& passage : passages) teller.pass(passage, begin + passage.share * (end - begin));
    const PassageWatch& watch = e.run.watch;
    if (watch.waiting && dot(watch.turn.point.r, after.r) <= 0) teller.passApse();
    return teller.told();
}

/// Begins anew when another body is followed, or from another origin.
void recognise(const Experiment& e) {
    PassageWatch& watch = e.run.watch;
    if (watch.body == e.s.IplSel && watch.centre == e.s.Icentr) return;
    watch.interrupt(e.run.NZamer > 0);
    watch.body = e.s.IplSel;
    watch.centre = e.s.Icentr;
}

}  // namespace

bool followModel(const Experiment& e, const OrbitPoint& before, RunPort& port) {
    recognise(e);
    const OrbitPoint after = seenFromOrigin(e);
    FoundPassages passages;
    if (maybePassed(before, after)) {
        ModelTrack track(e, before);
        passages = findPassages(before, after, track);
    } else if (!e.run.watch.waiting) {
        return false;
    }
    return follow(e, after, passages, e.run.Tsec - e.s.DtCur, e.run.Tsec, port);
}

bool followImitator(const Experiment& e, double Tsec, RunPort& port) {
    recognise(e);
    PassageWatch& watch = e.run.watch;
    const OrbitPoint after = imitated(e), before = watch.last;
    const double begin = watch.Tsec;
    const bool begun = watch.begun;
    watch.last = after;
    watch.Tsec = Tsec;
    watch.begun = true;
    if (!begun) return false;
    FoundPassages passages;
    if (maybePassed(before, after)) {
        ImitatorTrack track(e, begin, Tsec);
        passages = findPassages(before, after, track);
    }
    return follow(e, after, passages, begin, Tsec, port);
}

void endPassages(const Experiment& e, RunPort& port) {
    const PassageWatch& watch = e.run.watch;
    if (e.run.boxes.measure && watch.waiting && !watch.rivals) Teller(e, port).passApse();
}

}  // namespace tarvex
