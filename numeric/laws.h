#pragma once
// The laws by which gravity may act: the codes that files and screens show, by name, and one table of what
// each is, which the screen of laws offers and the help explains.

#include <array>
#include <cstdint>

#include "core/code_of.h"

namespace tarvex {

/// Law of the dynamic pressure of gravity that has a speed, the values of kodPgr.
enum class Pressure : std::int16_t {
    None = 0,
    Weber = 2,
    GerberFirst = 3,
    GerberSecond = 4,
    LienardWiechert = 5,
    Norin = 6,
    Sukhorukov = 7
};

/// Whence a body is pulled by another whose gravity takes its time, the values of kodDX.
enum class Retardation : std::int16_t {
    None = 0,             ///< from where the other is now
    BySpeeds = 1,         ///< from where it was, flown back straight
    ByAccelerations = 2,  ///< and with its acceleration
    ByTrace = 3           ///< from its trace
};

/// One law: F0ik is the pull of i on k by the inverse power of their distance, Vi and Vk their speeds along
/// the line between them, Ve = Vgr + Vi.
struct LawDescription {
    Pressure law;
    const char* name;     ///< Russian, with what is special about it
    const char* formula;  ///< caption of its option
    double k1, k2;        ///< usual coefficients, no dimension
    const char* source;   ///< Russian
};

/// All laws in the order in which they are offered.
inline constexpr std::array<LawDescription, 7> pressureLaws = {{
    {Pressure::None, "Только сила F=G*m*M/R^n", "Не учитывать давление гравитации", 0, 0, "Ньютон, 1687"},
    {Pressure::Weber, "Закон Вебера; обычно k1 = 0,5 и k2 = 1",
     "Вебер   Fik = F0ik * (1 - k1 * (dR/dt)^2  / Vgr^2 + k2 * R * d2R/dt2 /  Vgr^2", 0.5, 1,
     "W. Weber, Elektrodynamische Maassbestimmungen, 1846"},
    {Pressure::GerberFirst, "Закон Гербера, первая форма, Ve = Vgr + Vi; обычно k1 = 3 и k2 = 6",
     "Гербер Fik = F0ik * (1 - k1  * (dR/dt)^2 / Ve^2 + k2 * R * d2R/dt2  / Ve^2) ", 3, 6,
     "P. Gerber, Zeitschrift fur Mathematik und Physik 43, 93, 1898, до второго порядка"},
    {Pressure::GerberSecond, "Закон Гербера, вторая форма; k1 и k2 стоят на месте 3 и 6",
     "Гербер Fik = F0ik *Ve^2* (Ve^2 + 3*(dR/dt)^2 + 6*R*d2R/dt2 - 4*Ve*dR/dt) / (Ve - dR/dt)^4", 3, 6,
     "P. Gerber, Zeitschrift fur Mathematik und Physik 43, 93, 1898"},
    {Pressure::LienardWiechert, "Закон по Лиенару и Вихерту; показатель степени R здесь всегда 3",
     "Л-В Fik= (F00ik / Rf / Vgr^2) * ((R' - R'*Vik' / Vgr) * (k1*R' * Ai' + Vgr^2 - Vi'^2) - k2*R'*Rf * "
     "Ai')",
     1, 1, "A. Lienard, L'Eclairage electrique 16, 5, 1898; E. Wiechert, 1900"},
    {Pressure::Norin, "Закон Норина; обычно k1 = 1 и k2 = 1",
     "Норин Fik = F0ik * (1 - k1 * Vk / Vgr) / (1 - k2 * Vi / Vgr)", 1, 1, "формула автора"},
    {Pressure::Sukhorukov, "Закон Сухорукова; k1 и k2 не участвуют",
     "Сухоруков  Fik = F0ik * sqrt (Vgr^2 + V(k)^2 - 2 * Vgr * Vk) / sqrt (Vgr^2 + Vi^2 - 2 * Vgr * Vi)", 0,
     0, "формула автора"},
}};

}  // namespace tarvex
