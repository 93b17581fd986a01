#include "forms/aberration_form.h"
#include "forms/converter_form.h"
#include "forms/eccentric_form.h"
#include "forms/eclipse_form.h"
#include "forms/elements_form.h"
#include "forms/ephemeris_form.h"
#include "forms/et_ut_form.h"
#include "forms/file_tree_form.h"
#include "forms/gravity_bench_form.h"
#include "forms/help_form.h"
#include "forms/laboratory.h"
#include "forms/laws_form.h"
#include "forms/moon_form.h"
#include "forms/moon_perturbations_form.h"
#include "forms/notation_form.h"
#include "forms/observation_plan_form.h"
#include "forms/observations_form.h"
#include "forms/plan_form.h"
#include "forms/plan_tests_help_form.h"
#include "forms/plan_workshop_form.h"
#include "forms/planet_perturbations_form.h"
#include "forms/pulsar_form.h"
#include "forms/run_form.h"
#include "forms/statistics_form.h"
#include "forms/system_velocity_form.h"
#include "forms/two_bodies_form.h"
#include "forms/weights_form.h"

namespace tarvex {

namespace {

/// The form F under its own name.
template <class F>
void add(Laboratory& lab) {
    lab.desk.add(F::formName, [&lab] { return std::make_unique<F>(lab); });
}

}  // namespace

void addForms(Laboratory& lab) {  // in the order of their numbers, the order in which exit unloads them
    add<ElementsForm>(lab);
    add<RunForm>(lab);
    add<HelpForm>(lab);
    add<SystemVelocityForm>(lab);
    add<NotationForm>(lab);
    add<StatisticsForm>(lab);
    add<GravityBenchForm>(lab);
    add<PlanTestsHelpForm>(lab);
    add<FileTreeForm>(lab);
    add<ObservationsForm>(lab);
    add<AberrationForm>(lab);
    add<ConverterForm>(lab);
    add<ObservationPlanForm>(lab);
    add<EccentricForm>(lab);
    add<PlanForm>(lab);
    add<EclipseForm>(lab);
    add<EtUtForm>(lab);
    add<PlanWorkshopForm>(lab);
    add<WeightsForm>(lab);
    add<MoonForm>(lab);
    add<MoonPerturbationsForm>(lab);
    add<PlanetPerturbationsForm>(lab);
    add<LawsForm>(lab);
    add<EphemerisForm>(lab);
    add<TwoBodiesForm>(lab);
    add<PulsarForm>(lab);
}

}  // namespace tarvex
