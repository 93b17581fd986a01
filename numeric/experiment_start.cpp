#include "numeric/experiment_start.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "numeric/integrator.h"
#include "numeric/records.h"
#include "theories/geometry.h"
#include "theories/passages.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

/// The codes of the run from the options and boxes.
void takeCodes(const Experiment& e, const RunSettings& set) {
    RunState& run = e.run;
    e.s.kodStop = 0;
    run.kodUzel = 0;
    run.kodPeri = 0;
    run.kodApsis = codeOf(ApseSearch::Found);
    run.kodModel = set.model ? 1 : 0;
    if (!set.model) e.motion.kodSun = 0;
    e.motion.kodOTO = set.relativistic ? 1 : 0;
    run.kodJPL2 = set.boxes.theory == Imitator::JPL2 ? 1 : 0;
    run.kodTime = set.forward ? 1 : -1;
    e.motion.kodVgr = set.finiteGravitySpeed ? 1 : 0;
    run.kodTest = set.test ? 1 : 0;
    run.NPlanStart = e.s.NPlan;
    run.boxes = set.boxes;
    run.stepper = set.model ? set.stepper : Stepper::RungeKutta4;
    run.measuring = run.stepper == Stepper::Order8 ? Measuring::ExactPassages : set.measuring;
    run.watch = {};
}

/// The step of order 8 knows only laws whose accelerations follow from the state of the moment.
void checkStepper(const RunState& run, const Motion& motion) {
    if (run.stepper == Stepper::Order8 && motion.kodVgr == 1 && motion.kodOTO == 0)
        throw Refusal("Высокий порядок - для Классики без Vgr и для ОТО", "Tarvex7");
}

void takeGravitySpeed(const Experiment& e, const RunSettings& set) {
    Motion& motion = e.motion;
    motion.Vgr = finite(set.gravitySpeed.take("скорость гравитации") * Vsv);
    motion.nR = set.distanceExponent.take("степень nR");
    motion.Vsv2 = Vsv * Vsv;
    if (motion.Vgr == 0 && motion.kodVgr == 1)
        throw Refusal("Надо задать скорость гравитации отличную от нуля", "Tarvex7mmm");
    if (motion.Vgr == 0 && motion.kodOTO == 1)
        throw Refusal("Скорость гравитации в ОТО не может быть равна нулю", "Tarvex7mmm");
}

/// The settings that Continue reads too.
void takeScales(const Experiment& e, const RunSettings& set) {
    e.run.MdAlfa = set.angleScale.take("MdAlfa");
    e.run.MT = set.timeScale.take("MT");
    e.run.MxPlot = set.plotScale.take("Mx");
    e.s.NFile = set.experiment.take("эксперимент №");
    // a run that does not go on would never end, neither a new one nor one that these settings interrupt:
    // back in time goes by kodTime, never by the step's sign
    const double Dt = set.step.take("шаг решения");
    if (!(Dt > 0)) throw ArithmeticFailure("шаг решения " + toText(Dt) + " сек, нужен больше нуля");
    e.s.Dt = Dt;
    e.s.NC0 = set.stepsPerDisplay.take("вывод через, шагов");
    const std::int16_t kDt = set.stepDivider.take("уменьшение шага");
    if (kDt < 0) throw ArithmeticFailure("делитель шага меньше нуля: " + toText(kDt));
    e.s.kDt = kDt;
    e.run.dYplot = set.plotShift.take("dY");
    e.s.NC = 0;
}

void takeClock(const Experiment& e, const RunSettings& set) {
    ModelState& s = e.s;
    RunState& run = e.run;
    s.DtCur = s.Dt;
    e.motion.DtOld = s.Dt;
    run.NZamer = 0;
    s.JD = s.JDstart;
    e.ephemeris.JDjpl = s.JDstart;
    DateFromJD(s, s.JD);
    s.God0 = s.GodR;
    s.Mes0 = s.MesR;
    s.Den0 = s.DenR;
    run.GodEnd = set.lastYear.take("последний год");
    run.Tper0 = run.Tsec = run.Tmod = e.motion.Tsled = 0;
}

/// Masses, name and limits of the imitator of a secular theory.
void prepareTheory(const Experiment& e, Imitator theory) {
    ModelState& s = e.s;
    if (s.kodMoon == 1 || s.IplSel == rowSun || s.IplSel == rowXena)
        throw Refusal(
            "     В имитаторах New0 и JPL0 не может быть номер объекта 0 или 10\r\n"
            "и не может быть задано на форме 1 отдельно движение Луны и Земли",
            "Tarvex7");
    if (theory == Imitator::New0) {
        InitMassesNew0(s);
        e.run.ModelName = "NEW_0";
    } else {
        e.run.ModelName = "JPL_0";
    }
}

void prepareEphemeris(const Experiment& e) {
    ModelState& s = e.s;
    if (s.kodMoon == 0 && s.IplSel == rowXena)
        throw Refusal(
            "     В имитаторе JPL2 объектом 10 может быть только Луна\r\n"
            "(если надо то задайте на форме 1 отдельно движение Луны и Земли)",
            "Tarvex7");
    e.run.ModelName = "JPL_DE405 ";
    DEClose(e.ephemeris);
    DEOpen(s, e.ephemeris);
}

void prepareImitator(const Experiment& e) {
    ModelState& s = e.s;
    if (e.run.boxes.energy && s.kodMoon == 1)
        throw Refusal(
            "В имитаторах энергия системы считается только для Луны вместе с Землей\r\n"
            "      (если надо то задайте на форме 1 движение Луны и Земли совместное)",
            "Tarvex7.0");
    InitMassesJPL0(s);
    if (e.run.kodJPL2 == 1) {
        prepareEphemeris(e);
    } else {
        prepareTheory(e, e.run.boxes.theory);
    }
}

/// By the law and the source that was loaded, whatever is chosen since.
std::string modelName(bool relativistic, Source source) {
    static constexpr const char* sources[] = {" New0", " JPL0", " Ser0", " JPL2", " File", " Screen"};
    return std::string(relativistic ? "OTO  " : "Классика ") + sources[static_cast<int>(source)];
}

/// Differences and distances of every pair as the run begins; an imitator leaves them so.
void takePairs(const ModelState& s, Motion& motion) {
    formPairs(motion);  // the forces of the run before stay
    for (int i = 0; i < bodies; ++i)
        for (int j = 0; j < bodies; ++j) {
            if (i == j) continue;
            const double dx = s.X[j] - s.X[i], dy = s.Y[j] - s.Y[i], dz = s.Z[j] - s.Z[i];
            motion.Rik[i][j] = finite(std::sqrt(dx * dx + dy * dy + dz * dz));
            motion.DXp[i][j] = dx;
            motion.DYp[i][j] = dy;
            motion.DZp[i][j] = dz;
        }
}

/// Present state of bodies 0..10 from the initial data and the velocity of the system.
void takeInitialState(const Experiment& e) {
    ModelState& s = e.s;
    const int sign = e.run.kodTime;
    for (int i = 0; i < bodies; ++i) {
        s.X[i] = s.X0[i];
        s.Y[i] = s.Y0[i];
        s.Z[i] = s.Z0[i];
        s.VX[i] = finite(1000 * s.VXsys + s.VX0[i]) * sign;
        s.VY[i] = finite(1000 * s.VYsys + s.VY0[i]) * sign;
        s.VZ[i] = finite(1000 * s.VZsys + s.VZ0[i]) * sign;
    }
    packState(s, e.motion);
    takePairs(s, e.motion);
    e.motion.dV1old = {};
    e.motion.dV2old = {};
    e.motion.AV1 = {};
    e.motion.AV2 = {};
}

/// Origin, distance and longitude before the first step.
void takeFirstPosition(const Experiment& e) {
    ModelState& s = e.s;
    RunState& run = e.run;
    s.Icentr = originRow(run.boxes);
    run.ZOldSel = s.Z[s.IplSel] - s.Z[s.Icentr];
    run.Period = s.Tsid[fileBody(s)];
    run.PeriodNach = run.Period;
    if (run.boxes.measure) {
        PairGeometry(s, s.Icentr, s.IplSel);
        run.Rold = s.Rcur;
    }
    run.NP1max = recordCount(s, run);
}

std::vector<std::string> experimentNotes(const Experiment& e) {
    const ModelState& s = e.s;
    const Motion& motion = e.motion;
    return {e.run.ModelName + "   План №  " + std::to_string(s.NPlan) + "   Эксперимент №  " +
                std::to_string(s.NFile) + "   kodDX=  " + std::to_string(motion.kodDX) + "   kodPgr=  " +
                std::to_string(motion.kodPgr) + "   kodOTO=  " + std::to_string(motion.kodOTO),
            " VXSys = " + toText(Fix(s.VXsys)) + "    VYSys = " + toText(Fix(s.VYsys)) +
                "    VZsys = " + toText(Fix(s.VZsys)) + "  (км/с)   Vgr = " + gravitySpeedText(motion) +
                " (Vsv)" + "  k1= " + toText(motion.kPgr1) + "  k2= " + toText(motion.kPgr2) +
                "   kodSun=  " + std::to_string(motion.kodSun)};
}

std::vector<std::string> energyNotes(const RunState& run) {
    return {"потенциальная энергия измеряется от нулевого уровня и в начале равна нулю",
            "для имитаторов, как и для моделей,",
            "E0sys (Дж)=              " + toText(run.E0sys) + "      X0i и VX0i заданны на форме 1, а",
            "M0sys (кг*м^2/с) =   " + toText(run.MKD0sys) + "      массы планет заданы здесь опять"};
}

}  // namespace

void takeSettings(const Experiment& e, const RunSettings& set) {
    const std::int32_t body = set.body.take("номер объекта");
    if (body < 0 || body > NPlanetMax) throw Refusal("номер объекта должен быть от 0 до 10", "Tarvex7.0");
    e.s.IplSel = body;
    takeCodes(e, set);
    checkStepper(e.run, e.motion);
    takeGravitySpeed(e, set);
    takeScales(e, set);
    takeClock(e, set);
}

StartNotes prepareExperiment(const Experiment& e, const RunSettings& set) {
    ModelState& s = e.s;
    RunState& run = e.run;
    if (run.boxes.measure) {
        if (s.IplSel < 1)
            throw Refusal("Номер планеты для вычисления параметров должен быть от 1 до 10", "Tarvex7");
        run.dAlfa = set.windowDegrees.take("dAlfa");
        startMeasurement(s, run);
    }
    if (run.kodModel == 0) {
        prepareImitator(e);
    } else {
        run.ModelName = modelName(set.relativistic, s.provenance.source);
    }
    if (s.kodMoon == 1) {
        s.m[rowEarthMoon] = s.m[rowEarth];
        s.m[rowXena] = s.m[rowMoon];
    }
    takeInitialState(e);

    StartNotes notes;
    if (e.motion.kodDX == codeOf(Retardation::ByTrace)) {
        fillTrace(s, e.motion);
        notes.trace = "массив для DX3= " + std::to_string(e.motion.NSled);
    }
    startEnergy(s, e.motion, run, run.kodModel == 1 ? NPlanetMax : NPlanetMax - 1);
    if (run.boxes.energy) notes.foot = energyNotes(run);
    takeFirstPosition(e);
    run.FileRas = recordFile(s, run);
    run.FileXYZ = trackFile(s);
    dropRecords(run);
    claimRecords(e.tree, run);
    if (run.boxes.records && run.kodTest == 0) {
        writeRasHead(e.tree, s, e.motion, run, set.today);
        notes.top = experimentNotes(e);
    }
    if (run.boxes.track) writeXYZHead(e.tree, s, e.motion, run, set.today);
    return notes;
}

StartNotes startExperiment(const Experiment& e, const RunSettings& set) {
    takeSettings(e, set);
    return prepareExperiment(e, set);
}

void continueExperiment(const Experiment& e, const RunSettings& set) {
    needSelectedBody(e.s);
    takeScales(e, set);
    e.motion.kodVgr = set.finiteGravitySpeed ? 1 : 0;
    checkStepper(e.run, e.motion);
    e.run.boxes = set.boxes;
    if (!e.run.FileRas.empty()) claimRecords(e.tree, e.run);
    e.s.kodStop = 0;
}

void setDirection(const Experiment& e, std::int16_t kodTime) {
    if (e.run.kodTime == kodTime) return;
    for (int k = 3 * bodies; k < equations; ++k) e.motion.U[k] = -e.motion.U[k];
    e.run.MKD0sys = -e.run.MKD0sys;
    e.run.kodTime = kodTime;
    e.run.watch.interrupt(e.run.NZamer > 0);
}

}  // namespace tarvex
