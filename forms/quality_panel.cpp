#include "forms/quality_panel.h"

#include <algorithm>

#include "core/numbers.h"
#include "stats/plan_growth.h"
#include "stats/regression_report.h"

namespace tarvex {

Layout QualityPanel::layout() {
    constexpr int groups = 4, rows = (maxColumns + 1) / groups;
    std::vector<Layout> cells;
    for (int row = 0; row < rows; ++row)
        for (int group = 0; group < groups; ++group) {
            const int c = row + group * rows;
            cells.insert(cells.end(), {"b" + std::to_string(c), coefficientError(c), coefficientT(c)});
        }
    return column({row({report, fields(2, {adjustedR2, predictiveR2})}), table(3 * groups, cells),
                   row({addPoints, growPlan, fields(1, {addedCount})}), warning});
}

std::vector<std::string> QualityPanel::fill(const PlanBlock& p, bool squared) {
    const auto set = [](TextField& field, const std::optional<double>& value) {
        if (value)
            field.show(cut6(*value));
        else
            field.setText("");
    };
    const RegressionReport found = reportRegression(p);
    set(adjustedR2, found.adjustedR2);
    set(predictiveR2, found.predictiveR2);
    for (int c = 0; c <= maxColumns; ++c) {
        const bool known = c < static_cast<int>(found.coefficients.size());
        const CoefficientReport one =
            known ? found.coefficients[static_cast<std::size_t>(c)] : CoefficientReport{};
        set(coefficientError(c), one.error);
        set(coefficientT(c), one.t);
    }
    const auto reasons = regressionWarnings(p, found, squared);
    std::string text;
    for (const std::string& reason : reasons) text += (text.empty() ? "Внимание: " : "; ") + reason;
    warning.setCaption(text.empty() ? " " : text);
    std::vector<std::string> lines = reportLines(p, found);
    if (!text.empty()) lines.push_back(text);
    return lines;
}

void QualityPanel::show(const PlanBlock& p, bool squared, Picture& picture, const PlanPage& page) {
    const auto lines = fill(p, squared);
    page.drawEmpty(picture, true);
    picture.lookAt(page.rows, page.rows - static_cast<double>(lines.size()) * planLine);
    printLines(picture, lines, page.rows - 0.3);
}

void QualityPanel::onGrowth(const PlanBlock& p, const std::function<double(int)>& optimum,
                            const std::function<void(const std::vector<double>&, double)>& grow,
                            const Shown& message) {
    addPoints.onPress([&p, grow] { grow(std::vector<double>(static_cast<std::size_t>(p.Nf), 0), 1); },
                      message);
    growPlan.onPress(
        [&p, optimum, grow] {
            std::vector<double> centre;
            for (int i = 1; i <= p.Nf; ++i) centre.push_back(optimum(i));
            grow(centre, 0.5);
        },
        message);
}

int QualityPanel::add(PlanBlock& p, const std::vector<double>& centre, double half) const {
    const int count = addedCount.int16(), first = experiments(p) + 1;
    if (count < 1 || count > maxPoints) throw SubscriptFailure("count of points");
    tarvex::addPoints(p, dOptimalPoints(p, candidatesAround(centre, half), count));
    return first;
}

double printLines(Picture& picture, const std::vector<std::string>& lines, double y) {
    for (const std::string& line : lines) {
        picture.text(planLeft, y, line);
        y -= planLine;
    }
    return y;
}

}  // namespace tarvex
