#include "core/name_table.h"
#include "reduction/reduction_state.h"

namespace tarvex {

void addNames(NameTable& table, const ReductionState& r) {
    table.add("GodObs", r.date.GodObs);
    table.add("MesObs", r.date.MesObs);
    table.add("DenObsI", r.date.DenObsI);
    table.add("DenObs", r.date.DenObs);
    table.add("ChasObs", r.date.ChasObs);
    table.add("NomData", r.NomData);
    table.add("GodK", r.GodK);
    table.add("kodKalendTab", r.kodKalendTab);
    table.add("TimeZoneTab", r.TimeZoneTab);
    table.add("PrecTab0", r.table.PrecTab0);
    table.add("Rgeo", r.Rgeo);
    table.add("kodVidim", r.kodVidim);
    table.add("NObs", r.NObs);
    table.add("NPlus", r.NPlus);
    table.add("dRasKrit", r.criterion);
    table.add("kodDLplan", r.kodDLplan);
    table.add("NplDL", r.NplDL);
    table.add("dP11", r.dP11);
    table.add("dU11", r.dU11);
    table.add("PrecSek", r.PrecSek);
    table.add("Precess", r.choices.Precess);
    table.add("dMax", r.choices.dMax);
    table.add("HplMin", r.choices.HplMin);
    table.add("HsolMax", r.choices.HsolMax);
    table.add("Pauza", r.choices.Pauza);
}

}  // namespace tarvex
