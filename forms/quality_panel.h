#pragma once
// What the forms with plans share beside the regression itself: the report of its quality, and points added
// to the plan.

#include <functional>

#include "forms/plan_picture.h"
#include "runtime/form.h"

namespace tarvex {

class QualityPanel {
public:
    explicit QualityPanel(Form* form_) : form(form_) {}

private:
    Form* form;  ///< before the controls, which are made on it

public:
    CommandButton report{
        form,
        {.name = "QualityReport",
         .caption = "Качество регрессии",
         .hint = "Погрешности коэффициентов, дисперсионный анализ, канонические оси, гребень "
                 "и доверительная область - на рисунок"}};
    TextField adjustedR2{form,
                         {.name = "AdjustedR2",
                          .label = "R^2 испр.",
                          .hint = "Доля объясненной вариации с поправкой на число коэффициентов",
                          .readOnly = true,
                          .width = 8}};
    TextField predictiveR2{form,
                           {.name = "PredictiveR2",
                            .label = "R^2 предсказ.",
                            .hint = "Доля вариации, предсказанная для каждой точки по остальным",
                            .readOnly = true,
                            .width = 8}};
    TextFields coefficientError{form, 0, maxColumns, [](int) {
                                    return TextField::Spec{
                                        .name = "CoefficientError",
                                        .hint = "Стандартная погрешность коэффициента, в единицах критерия",
                                        .readOnly = true,
                                        .width = 6};
                                }};
    TextFields coefficientT{form, 0, maxColumns, [](int) {
                                return TextField::Spec{.name = "CoefficientT",
                                                       .hint = "Коэффициент в его погрешностях, t Стьюдента",
                                                       .readOnly = true,
                                                       .width = 6};
                            }};
    TextField addedCount{form,
                         {.name = "AddedPoints",
                          .label = "точек",
                          .text = "4",
                          .hint = "Сколько экспериментов добавить к плану",
                          .width = 4}};
    CommandButton addPoints{
        form,
        {.name = "AddPoints",
         .caption = "Добавить точки",
         .hint = "Добавить к плану D-оптимальные точки в его области; выполнить их потом"}};
    CommandButton growPlan{
        form,
        {.name = "GrowPlan",
         .caption = "Добавить вокруг оптимума",
         .hint = "Добавить к плану D-оптимальные точки в половине интервала вокруг оптимума"}};
    Label warning{
        form,
        {.name = "QualityWarning", .caption = " ", .hint = "Почему уравнению и его оптимуму нельзя верить"}};

    Layout layout();

    /// Fills the fields; the report as lines for the picture.
    /// @param p        the plan with the criterion that the regression was fitted to
    /// @param squared  the criterion cannot be negative
    std::vector<std::string> fill(const PlanBlock& p, bool squared);
    /// The same, printed on an empty page.
    void show(const PlanBlock& p, bool squared, Picture& picture, const PlanPage& page);
    /// What the two commands for more points do.
    /// @param optimum  coded, of the plan's factor 1..Nf
    /// @param grow     adds points around a coded centre, within that half of the range
    void onGrowth(const PlanBlock& p, const std::function<double(int)>& optimum,
                  const std::function<void(const std::vector<double>& centre, double half)>& grow,
                  const Shown& message);
    /// Adds points to the plan around a coded centre; returns the number of the first.
    int add(PlanBlock& p, const std::vector<double>& centre, double half) const;
};

/// Lines downwards from (planLeft, y); returns the height below them.
double printLines(Picture& picture, const std::vector<std::string>& lines, double y);

}  // namespace tarvex
