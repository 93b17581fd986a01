#pragma once
// The bench of two bodies, Form7: test of the speed of gravity between two bodies, one iteration at a time.

#include "forms/gravity_bench_controls.h"
#include "forms/laboratory.h"
#include "numeric/gravity_bench.h"

namespace tarvex {

class GravityBenchForm final : public GravityBenchControls {
public:
    static constexpr const char* formName = "Form7";
    explicit GravityBenchForm(Laboratory& lab);

    void load() override;

private:
    /// What the bench counts with in the place of the run's own: the law and the accelerations.
    struct Law {
        double Vgr = 0, kPgr1 = 0, kPgr2 = 0;
        BodyArray AX{}, AY{}, AZ{};
    };
    class LawInUse;

    GravityBench chosenPair();
    void takeRun(const GravityBench& b);
    void takeFields(const GravityBench& b);
    void addSpeedOfSystem(const GravityBench& b);
    void place();
    void iterate();
    void showPresent();
    void showAction();
    void draw();
    void printTrace();
    void clearPicture();

    Laboratory& lab;
    GravityBench bench_;
    Law law_;
    bool placed_ = false;
};

}  // namespace tarvex
