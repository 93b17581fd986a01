#include "forms/system_velocity_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "forms/plot_grid.h"
#include "forms/screens.h"
#include "initial/system_velocity.h"

namespace tarvex {

namespace {

constexpr double xzLevel = 5, xyLevel = -5;  // middle lines of the two views
constexpr Color black{0, 0, 0}, grey{200, 200, 200};

}  // namespace

std::array<SystemVelocityForm::Row, 5> SystemVelocityForm::rows() {
    return {{{addSun,
              sunSpeed,
              sunLongitude,
              sunLatitude,
              sunVx,
              sunVy,
              sunVz,
              sunForward,
              sunReversed,
              {200, 0, 0}},
             {addStars,
              starsSpeed,
              starsLongitude,
              starsLatitude,
              starsVx,
              starsVy,
              starsVz,
              starsForward,
              starsReversed,
              {250, 0, 0}},
             {addGalaxy,
              galaxySpeed,
              galaxyLongitude,
              galaxyLatitude,
              galaxyVx,
              galaxyVy,
              galaxyVz,
              galaxyForward,
              galaxyReversed,
              {0, 0, 250}},
             {addGroup,
              groupSpeed,
              groupLongitude,
              groupLatitude,
              groupVx,
              groupVy,
              groupVz,
              groupForward,
              groupReversed,
              {255, 0, 250}},
             {addBackground,
              backgroundSpeed,
              backgroundLongitude,
              backgroundLatitude,
              backgroundVx,
              backgroundVy,
              backgroundVz,
              backgroundForward,
              backgroundReversed,
              {0, 230, 0}}}};
}

SystemVelocityForm::SystemVelocityForm(Laboratory& lab_)
    : SystemVelocityControls(lab_.desk, formName, "Скорости Солнечной системы       Tarvex7m    -  форма 4"),
      lab(lab_) {
    const Shown bad = orShow("Введите правильно данные", "Tarvex7");
    sumVelocities.onPress([this] { resolveAndSum(); }, bad);
    setSystemVelocity.onPress([this] { giveToSystem(); }, bad);
    clearLines.onPress([this] { clearPicture(); });
    closeForm.onPress([this] { close(); });

    std::vector<Layout> speeds;
    for (Row& r : rows())
        speeds.push_back(column(
            {r.tick, row({fields(3, {r.V, r.Alfa, r.Betta, r.VX, r.VY, r.VZ}), column({r.plus, r.minus})})}));
    layout_ = row({column({frame("Составляющие скорости", column(std::move(speeds))),
                           row({frame("Сумма, км/с", fields(1, {sumVx, sumVy, sumVz})),
                                frame("Скорость системы, км/с", fields(1, {systemVx, systemVy, systemVz}))}),
                           sumVelocities, table(3, {setSystemVelocity, clearLines, closeForm})}),
                   column({velocityPicture, row({stretch(), fields(1, {velocityScale})})})});
}

void SystemVelocityForm::load() {
    // a number too large to be cut is shown whole: opening a form has no message to end in
    const auto shown = [](double v) { return std::isfinite(cut6(v)) ? cut6(v) : v; };
    systemVx.show(shown(lab.s.VXsys));
    systemVy.show(shown(lab.s.VYsys));
    systemVz.show(shown(lab.s.VZsys));
    clearPicture();
}

void SystemVelocityForm::activate() { clearPicture(); }

void SystemVelocityForm::clearPicture() {
    drawGrid(velocityPicture,
             {.top = 10, .cell = grey, .axis = {160, 160, 160}, .axesY = {xzLevel, xyLevel}});
}

void SystemVelocityForm::drawVelocity(double VX, double VY, double VZ, double MV, Color color) {
    velocityPicture.line(0, xyLevel, ratio(VX, MV), ratio(VY, MV) + xyLevel, color);
    velocityPicture.line(0, xzLevel, ratio(VX, MV), ratio(VZ, MV) + xzLevel, color);
}

void SystemVelocityForm::resolveAndSum() {
    ModelState& s = lab.s;
    const double MV = velocityScale.number();
    s.kodStop = 1;
    double sumX = 0, sumY = 0, sumZ = 0;
    s.VX[rowSun] = s.VY[rowSun] = s.VZ[rowSun] = 0;
    for (Row& r : rows()) {
        if (!r.tick.on()) continue;
        const double V = r.V.number(), Alfa = r.Alfa.number(), Betta = r.Betta.number();
        s.kodStop = r.minus.on() ? -1 : 1;  // the stop flag carries the sign and keeps it, as scripts see
        resolveVelocity(s, V, Alfa, Betta, s.kodStop);
        sumX += s.VX[rowSun];
        sumY += s.VY[rowSun];
        sumZ += s.VZ[rowSun];
        r.VX.show(cut6(s.VX[rowSun]));
        r.VY.show(cut6(s.VY[rowSun]));
        r.VZ.show(cut6(s.VZ[rowSun]));
        drawVelocity(s.VX[rowSun], s.VY[rowSun], s.VZ[rowSun], MV, r.color);
    }
    sumVx.show(cut6(sumX));
    sumVy.show(cut6(sumY));
    sumVz.show(cut6(sumZ));
    drawVelocity(sumX, sumY, sumZ, MV, black);

    resolveVelocity(s, 370, 171, -11.4, 1);  // the Sun against the background radiation, for reference
    drawVelocity(s.VX[rowSun], s.VY[rowSun], s.VZ[rowSun], MV, grey);
    const auto thousandths = [](double v) { return toText(Fix(1000 * v) / 1000); };
    velocityPicture.text(-9.6, -8.2, "справочно   Vsol=370      Alfa=171      Betta=-11,4   (серые линии)");
    velocityPicture.text(-9.6, -9.2,
                         "VX = " + thousandths(s.VX[rowSun]) + "      VY = " + thousandths(s.VY[rowSun]) +
                             "      VZ = " + thousandths(s.VZ[rowSun]));
}

void SystemVelocityForm::giveToSystem() {
    ModelState& s = lab.s;
    auto& elements =
        screenOf<ElementsScreen>(desk());  // first: where it was closed, its load puts the system at rest
    s.VXsys = systemVx.number();
    s.VYsys = systemVy.number();
    s.VZsys = systemVz.number();
    s.provenance.handOver(s, {Given::SystemVelocity}, "", 4);
    addSystemVelocity(s);
    elements.showStates();
}

}  // namespace tarvex
