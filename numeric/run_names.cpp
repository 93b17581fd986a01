#include "core/name_table.h"
#include "numeric/run_state.h"

namespace tarvex {

void addNames(NameTable& table, const RunState& run) {
    addNames(table, static_cast<const Energy&>(run));
#define NAME(variable) table.add(#variable, run.variable)
    NAME(U0);
    NAME(K1);
    NAME(K2);
    NAME(K3);
    NAME(K4);
    NAME(A1);
    NAME(A2);
    NAME(A3);
    NAME(A4);
    NAME(Tstage);
    NAME(Tsec);
    NAME(Tmod);
    NAME(TimerStart);
    NAME(kodTime);
    NAME(kodModel);
    NAME(kodJPL2);
    NAME(kodTest);
    NAME(GodEnd);
    NAME(kmTest2);
    NAME(kmTest5);
    NAME(Vpl);
    NAME(LonOld);
    NAME(Rold);
    NAME(ZOldSel);
    NAME(AlfaP);
    NAME(AlfaU);
    NAME(Betta);
    NAME(Eks);
    NAME(Rmin);
    NAME(Rmax);
    NAME(Period);
    NAME(Tper0);
    NAME(NZamer);
    NAME(kodApsis);
    NAME(kodPeri);
    NAME(kodUzel);
    NAME(dAlfa);
    NAME(PeriHi);
    NAME(PeriLo);
    NAME(AfelHi);
    NAME(AfelLo);
    NAME(UzelHi);
    NAME(UzelLo);
    NAME(Uzel2Hi);
    NAME(Uzel2Lo);
    NAME(AlfaPnach);
    NAME(AlfaUnach);
    NAME(BettaNach);
    NAME(EksNach);
    NAME(RsrNach);
    NAME(PeriodNach);
    NAME(MdAlfa);
    NAME(MT);
    NAME(MxPlot);
    NAME(dYplot);
    NAME(MxView);
    NAME(NPlanStart);
    NAME(ModelName);
    NAME(FileRas);
    NAME(FileXYZ);
    NAME(NP1max);
#undef NAME
}

}  // namespace tarvex
