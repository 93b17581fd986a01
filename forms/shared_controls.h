#pragma once
// Controls that stand on several screens with the same words; each screen gives its own script name.

#include <string>

#include "runtime/form.h"

namespace tarvex {

inline CommandButton::Spec closingSpec(std::string name, Disturbs what = Disturbs::Nothing) {
    return {
        .name = std::move(name), .caption = "Закрыть форму", .hint = "Закрыть эту форму", .disturbs = what};
}

/// What showGiven() fills.
inline Label::Spec givenSpec() {
    return {.name = "Given",
            .hint =
                "Что пойдет в прогон: источник и дата элементов, кто составил начальные данные, "
                "массы, законы, план и "
                "файл; выделено то, что изменено мимо формы 1 или на ней не загружено",
            .lines = 5};
}

/// When a day of the data begins.
inline OptionButton::Spec dayFromMidnightSpec(std::string name) {
    return {.name = std::move(name),
            .caption = "день от 0 час.",
            .group = "daystart",
            .on = true,
            .hint =
                "Сутки начинаются в полночь; в египетском календаре дата тогда "
                "уходит на полдня при каждом шаге"};
}
inline OptionButton::Spec dayFromNoonSpec(std::string name) {
    return {.name = std::move(name),
            .caption = "день от 12 час.",
            .group = "daystart",
            .hint = "Сутки начинаются в полдень"};
}

/// What a regression says of itself, on the screens of plans.
inline Label::Spec fitQualitySpec(std::string name) {
    return {.name = std::move(name),
            .caption = " ",
            .hint = "Остаточная дисперсия в квадратах единиц критерия и доля объясненной вариации R^2"};
}
inline Label::Spec stationaryPointSpec(std::string name) {
    return {.name = std::move(name),
            .caption = " ",
            .hint = "Вид стационарной точки по собственным числам квадратичной формы"};
}

}  // namespace tarvex
