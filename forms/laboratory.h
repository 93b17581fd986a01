#pragma once
// The whole laboratory: the one program-wide state, the data tree and the forms that work on them.

#include <filesystem>

#include "core/data_tree.h"
#include "core/model_state.h"
#include "core/name_table.h"
#include "forms/pulsar_extras.h"
#include "numeric/motion.h"
#include "numeric/orbit_check.h"
#include "numeric/run_loop.h"
#include "numeric/run_state.h"
#include "numeric/two_body.h"
#include "reduction/reduction_state.h"
#include "runtime/desk.h"
#include "runtime/session_tools.h"
#include "spreadsheet/spreadsheet.h"
#include "stats/drift_results.h"
#include "stats/plan_block.h"
#include "stats/series.h"
#include "stats/shifts.h"
#include "theories/ephemeris.h"

namespace tarvex {

struct Laboratory {
    /// @param screen    where the forms are shown; must outlive the laboratory
    /// @param dataRoot  folder of the data tree
    Laboratory(Screen& screen, std::filesystem::path dataRoot);
    ~Laboratory();
    Laboratory(const Laboratory&) = delete;
    Laboratory& operator=(const Laboratory&) = delete;

    /// What a run of the numerical model works on.
    Experiment experiment() { return {s, motion, run, ephemeris, tree}; }

    ModelState s;
    PlanBlock plan;       ///< the plan of a multifactor experiment
    Motion motion;        ///< what the equations of motion work on
    RunState run;         ///< the experiment and the orbit it measures
    SeriesData series;    ///< the loaded series of orbit elements
    ShiftTables shifts;   ///< secular shifts, observed and calculated
    DriftResults answer;  ///< what the last solution by drifts left behind
    Ephemeris ephemeris{tree};
    OrbitCheck orbitCheck;     ///< the orbit check of Form1 or Form20, whichever was begun last
    TwoBody twoBody;           ///< the two-body run of Form25
    PulsarExtras pulsar;       ///< and what Form26 adds to it
    SpreadsheetOffice office;  ///< outlives the workbook of the reduction
    ReductionState reduction;  ///< theory against observations
    DataTree tree;
    NameTable names;       ///< every shared variable by its name
    Desk desk;             ///< the forms go before the state they work on
    SessionTools session;  ///< watches the desk
};

/// Makes every form of the laboratory known to its desk (all_forms.cpp).
void addForms(Laboratory& lab);

}  // namespace tarvex
