#pragma once
// The screen of the system's velocity, Form4: the velocity of the Solar System as a whole, summed from the
// known velocities of nested systems.

#include "forms/laboratory.h"
#include "forms/system_velocity_controls.h"

namespace tarvex {

class SystemVelocityForm final : public SystemVelocityControls {
public:
    static constexpr const char* formName = "Form4";
    explicit SystemVelocityForm(Laboratory& lab);

    void load() override;
    void activate() override;

private:
    /// One reference system: its tick, fields, sign and colour.
    struct Row {
        CheckBox& tick;
        TextField &V, &Alfa, &Betta;
        TextField &VX, &VY, &VZ;
        OptionButton &plus, &minus;
        Color color;
    };
    std::array<Row, 5> rows();
    void clearPicture();
    void drawVelocity(double VX, double VY, double VZ, double MV, Color color);
    void resolveAndSum();
    void giveToSystem();

    Laboratory& lab;
};

}  // namespace tarvex
