// The shared variables of the motion by their names, and the clearing of what a failure left.

#include <cmath>

#include "core/name_table.h"
#include "core/numbers.h"
#include "numeric/motion.h"

namespace tarvex {

// every array of one value a pair, for the names and for clearing
// clang-format off
#define TARVEX_PAIR_ARRAYS(EACH) \
    EACH(DXp) EACH(DYp) EACH(DZp) EACH(Rik) EACH(Fik) EACH(FXik) EACH(FYik) EACH(FZik) EACH(VX1zap) \
    EACH(VY1zap) EACH(VZ1zap) EACH(V1zap) EACH(VX0zap) EACH(VY0zap) EACH(VZ0zap) EACH(dVX1) \
    EACH(dVY1) EACH(dVZ1) EACH(dV1) EACH(dVX2) EACH(dVY2) EACH(dVZ2) EACH(dV2) EACH(dR) EACH(d2R) \
    EACH(dV1old) EACH(dV2old) EACH(AV1) EACH(AV2) EACH(AV1old) EACH(AV2old) EACH(BV1) EACH(BV2) \
    EACH(AX1zap) EACH(AY1zap) EACH(AZ1zap) EACH(A1zap) EACH(AX0zap) EACH(AY0zap) EACH(AZ0zap) \
    EACH(Ve) EACH(Rf)
// clang-format on
#define TARVEX_BODY_ARRAYS(EACH) \
    EACH(AX) EACH(AY) EACH(AZ) EACH(AXold) EACH(AYold) EACH(AZold) EACH(JX) EACH(JY) EACH(JZ)

void dropNonNumbers(Motion& motion) {
    formPairs(motion);
    const auto drop = [](auto& values) {
        for (double& v : values)
            if (!std::isfinite(v)) v = 0;
    };
    drop(motion.dU);
    drop(motion.Phi);
#define DROP_BODY(name) drop(motion.name);
#define DROP_PAIR(name) \
    for (auto& row : motion.name) drop(row);
    TARVEX_BODY_ARRAYS(DROP_BODY)
    TARVEX_PAIR_ARRAYS(DROP_PAIR)
#undef DROP_BODY
#undef DROP_PAIR
}

namespace {

/// A value for one pair of bodies by its two indices; 0 for a body with itself.
template <class Value>
void addPair(NameTable& table, const char* name, Value value) {
    table.addComputed(name, [value](const std::vector<int>& index) {
        if (index.size() != 2) throw SubscriptFailure("у пары тел два номера");
        for (const int i : index)
            if (i < 0 || i >= bodies) throw SubscriptFailure("номер вне границ");
        return toFullText(index[0] == index[1] ? 0.0 : value(index[0], index[1]));
    });
}

template <class Value>
void addBody(NameTable& table, const char* name, Value value) {
    table.addComputed(name, [value](const std::vector<int>& index) {
        if (index.size() != 1 || index[0] < 0 || index[0] >= bodies)
            throw SubscriptFailure("номер вне границ");
        return toFullText(value(index[0]));
    });
}

void addTrace(NameTable& table, const char* name, const Trace& trace) {
    table.addComputed(name, [&trace](const std::vector<int>& index) {
        if (index.size() != 2 || index[0] < 0 || index[0] >= trace.size() || index[1] < 0 ||
            index[1] >= bodies)
            throw SubscriptFailure("номер вне границ");
        return toFullText(trace.at(index[0], index[1]));
    });
}

/// Angles of velocities and of the lines between bodies, rad.  They are not kept: the equations go by
/// direction cosines.
void addAngles(NameTable& table, const Motion* m) {
    const auto vx = [m](int i) { return m->U[33 + i]; };
    const auto vy = [m](int i) { return m->U[44 + i]; };
    const auto vz = [m](int i) { return m->U[55 + i]; };
    addBody(table, "AlfaVX", [vx](int i) { return AlfaVX(vx(i)); });
    addBody(table, "AlfaVY", [vy](int i) { return AlfaVY(vy(i)); });
    addBody(table, "BettaVZ", [vz](int i) { return BettaVZ(vz(i)); });
    addPair(table, "Rxy",
            [m](int i, int j) { return formPairs(*m), std::hypot(m->DXp[i][j], m->DYp[i][j]); });
    addPair(table, "Tik",
            [m](int i, int j) { return formPairs(*m), m->Vgr == 0 ? 0 : m->Rik[i][j] / m->Vgr; });
    addPair(table, "AlfaIK", [m](int i, int j) { return AlfaIK(*m, i, j); });
    addPair(table, "BettaIK", [m](int i, int j) { return BettaIK(*m, i, j); });
    addPair(table, "dAlfaVX1", [=](int i, int j) { return wrapped(AlfaVX(vx(i)) - AlfaIK(*m, i, j)); });
    addPair(table, "dAlfaVY1", [=](int i, int j) { return wrapped(AlfaVY(vy(i)) - AlfaIK(*m, i, j)); });
    addPair(table, "dBettaVZ1", [=](int i, int j) { return BettaVZ(vz(i)) - BettaIK(*m, i, j); });
    addPair(table, "dAlfaVX2", [=](int i, int j) { return wrapped(AlfaVX(vx(j)) - AlfaIK(*m, i, j)); });
    addPair(table, "dAlfaVY2", [=](int i, int j) { return wrapped(AlfaVY(vy(j)) - AlfaIK(*m, i, j)); });
    addPair(table, "dBettaVZ2", [=](int i, int j) { return BettaVZ(vz(j)) - BettaIK(*m, i, j); });
}

}  // namespace

void addNames(NameTable& table, const Motion& motion) {
    const Motion* m = &motion;
#define NAME(variable) table.add(#variable, motion.variable)
    NAME(U);
    NAME(dU);
    NAME(kodVgr);
    NAME(kodOTO);
    NAME(kodDX);
    NAME(kodPgr);
    NAME(kodSun);
    NAME(kodDiffurV);
    NAME(kodAA);
    NAME(kodRelativity);
    NAME(kodLVsimple);
    NAME(kodEpot);
    NAME(kodXcm);
    NAME(kodCMnow);
    NAME(kPgr1);
    NAME(kPgr2);
    NAME(Vgr);
    NAME(nR);
    NAME(Vsv2);
    NAME(Phi);
    NAME(DtOld);
    NAME(NDiffur);
    NAME(dTstage);
    NAME(NSled);
    NAME(Tsled);
    NAME(N1);
    NAME(N2);
#undef NAME
#define NAME_BODY(name) addBody(table, #name, [m](int i) { return m->name[i]; });
#define NAME_PAIR(name) addPair(table, #name, [m](int i, int j) { return formPairs(*m), m->name[i][j]; });
    TARVEX_BODY_ARRAYS(NAME_BODY)
    TARVEX_PAIR_ARRAYS(NAME_PAIR)
#undef NAME_BODY
#undef NAME_PAIR
    addTrace(table, "SledX", motion.SledX);
    addTrace(table, "SledY", motion.SledY);
    addTrace(table, "SledZ", motion.SledZ);
    addTrace(table, "SledXsave", motion.SledXsave);
    addTrace(table, "SledYsave", motion.SledYsave);
    addTrace(table, "SledZsave", motion.SledZsave);

    addAngles(table, m);
}

}  // namespace tarvex
