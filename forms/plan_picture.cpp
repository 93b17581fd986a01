#include "forms/plan_picture.h"

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "forms/picture_axes.h"
#include "stats/stat.h"

namespace tarvex {

namespace {
constexpr int layerExperiments = 0;  ///< the criterion of the experiments; after it, that along each factor
constexpr int ringMark = 5;          ///< around the point of the experiment
}  // namespace

PlanPage PlanPage::of(int Nf, int leastRows) {
    PlanPage page;
    page.rows = leastRows + (Nf > 3 ? 4 * (Nf - 3) * (Nf - 3) : 0);
    page.columns = Nf > 5 ? 42 : 32;
    return page;
}

void PlanPage::drawEmpty(Picture& picture, bool numberRows) const {
    constexpr double unit = 24.91;
    constexpr Color grid{200, 200, 200}, axis{100, 100, 100};
    picture.resize(static_cast<int>(columns * unit), static_cast<int>(rows * unit));
    picture.setTextHeight(11);  // narrow columns of the matrix
    picture.setScale(0, rows, columns, -2);
    picture.clear();
    for (int y = -2; y <= rows; ++y) picture.line(0, y, columns, y, grid);
    for (int x = 0; x <= columns; ++x) {
        picture.line(x, -2, x, rows, grid);
        picture.text(x, -0.5, std::to_string(x), axis);
    }
    if (numberRows)
        for (int y = 1; y < rows; ++y) picture.text(0, y, std::to_string(y), axis);
    picture.line(0, 0, columns, 0, axis);
}

void PlanPage::showPlots(Picture& picture) const {
    constexpr double highestPlot = 12, foot = -2;  // the criterion takes ten cells
    picture.lookAt(highestPlot, foot);
}

void plotExperiments(Picture& picture, const PlanBlock& p, const std::array<double, 100>& values,
                     double radius, Color color) {
    const bool fitted = color == regressionColor;
    picture.axes(layerExperiments, {scaledAxis("номер эксперимента", "", 2),
                                    scaledAxis("критерий", "", p.Mcrit, -ratio(p.Ymin, p.Mcrit))});
    const int series = picture.series({.quantity = fitted ? "критерий, расчет" : "критерий, эксперимент",
                                       .layer = layerExperiments,
                                       .color = fitted ? 1 : 0,
                                       .mark = fitted ? ringMark : 0});
    for (int u = 1, last = experiments(p); u <= last; ++u)
        picture.as(series).circle(u / 2.0, ratio(values[u] - p.Ymin, p.Mcrit), radius, color);
}

void drawLegend(Picture& picture) {
    constexpr double y = -1.4;
    picture.circle(22, y, 0.2, regressionColor);
    picture.text(22.4, y + 0.3, "расчет");
    picture.circle(25.5, y, 0.1, experimentColor);
    picture.text(25.8, y + 0.3, "эксперимент");
}

void printCoefficients(Picture& picture, const PlanBlock& p, double x, double y) {
    for (int i = 0; i <= lastColumn(p.Nf); ++i)
        picture.text(x, y - i * planLine, "b" + std::to_string(i) + "  =  " + toText(cut6(p.b[i])));
}

namespace {
/// Prints a text of several lines; returns the height of the line below it.
double printDown(Picture& picture, double x, double y, const std::string& text) {
    std::size_t from = 0;
    while (from < text.size()) {
        const auto end = std::min(text.find("\r\n", from), text.size());
        picture.text(x, y, text.substr(from, end - from));
        y -= planLine;
        from = end + 2;
    }
    return y;
}
}  // namespace

void printOptimum(Picture& picture, PlanBlock& p, double x, double y) {
    y = printDown(picture, x, y, "Исходная система линейных уравнений и ее решение");
    BuildOptimumSystem(p);
    for (int level = 5; level >= 1; --level) y = printDown(picture, x, y, p.TestText[level]);
    for (int i = 1; i <= p.Nf; ++i) y = printDown(picture, x, y, p.TestText[10 + i]);
    const std::string head = p.Stroka;  // stays at the head of the printed system
    PrintOptimumSystem(p);
    y = printDown(picture, x, y, head);
    printDown(picture, x, y, p.Stroka.substr(head.size()));
}

void plotAlongFactors(Picture& picture, PlanBlock& p, const std::function<double(int)>& coordinates,
                      Color color) {
    for (int j = 1; j <= p.Nf; ++j) {
        for (int i = 1; i <= p.Nf; ++i) p.X[i] = coordinates(i);
        p.Nexp = static_cast<std::int16_t>(j);
        const int first = j + (j - 1) * 4, layer = layerExperiments + j;  // of the curve: X = -1
        const std::string name = "X" + std::to_string(p.Nfact[j]);
        picture.axes(layer, {scaledAxis(name.c_str(), "", 0.5, first + 2),
                             scaledAxis("критерий", "", p.Mcrit, -ratio(p.Ymin, p.Mcrit))});
        const int series = picture.series({"критерий вдоль " + name, "", layer, j + 1});
        for (int s = 0; s <= 32; ++s) {
            p.X[j] = s / 16.0 - 1;
            EvalRegression(p);
            picture.as(series).circle(first + s / 8.0, ratio(p.Z[j] - p.Ymin, p.Mcrit), 0.04, color);
        }
    }
}

}  // namespace tarvex
