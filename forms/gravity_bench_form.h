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
    BenchLaw law_;
    bool placed_ = false;
};

}  // namespace tarvex
