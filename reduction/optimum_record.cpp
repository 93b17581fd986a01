#include "reduction/optimum_record.h"

#include "core/numbers.h"

namespace tarvex {

namespace {

struct Item {
    const char* label;
    int p;
    const char* pattern;
    double factor;
};
constexpr Item items[] = {{"    Ves= ", parVes, "00.000", 1},
                          {"    AlfaP  = ", parAlfaP, "000000.0000", 1},
                          {"    AlfaU  = ", parAlfaU, "000000.0000", 1},
                          {"    Betta  = ", parBetta, "000.00000", 1},
                          {"    Eks  = ", parEks, "0.0000000", 1},
                          {"    Rsr  = ", parRsr, "0000000.000", 1000},
                          {"    W0  = ", parW, "0000.0000", 1},
                          {"    AlfaL0  = ", parAlfaL0, "0000000.000", 1},
                          {"    dP11  = ", parDP11, "00.000000", 1},
                          {"    dU11  = ", parDU11, "00.000000", 1}};

}  // namespace

Record optimumRecord(const std::array<double, 10>& level, double weight, double span) {
    Record record;
    record.Par[parAlfaP] = level[4];
    record.Par[parAlfaU] = level[5];
    record.Par[parBetta] = level[3];
    record.Par[parEks] = level[2];
    record.Par[parW] = level[6];
    record.Par[parAlfaL0] = level[7];
    record.Par[parDP11] = level[8];
    record.Par[parDU11] = level[9];
    record.Par[parVes] = weight;
    record.Par[parRsr] = level[1] / 1000;
    record.ddTd = span;
    return record;
}

std::string optimumFile(int plan, int planet) {
    return files::series("\\Ser\\Plan" + std::to_string(plan), planet);
}

OptimumSeries readOptimumSeries(const DataTree& tree, const SeriesData& like, int plan, int planet,
                                const std::string& today) {
    OptimumSeries found{like, ""};
    SeriesData& d = found.series;
    d.Npl = planet;
    d.DirImit = "\\Ser";
    d.FileData = optimumFile(plan, planet);
    readSeries(tree, d.FileData, dataLong, d);
    d.kodData = dataLong;
    found.asRead = "NP1max=  " + std::to_string(d.NP1max()) + "   JD0 =  " + toText(d.JD0);
    d.header[2] = "по плану №  " + std::to_string(plan) + "   от " + today;
    return found;
}

int enterOptimum(SeriesData& d, double date, Record record, const std::function<bool(int)>& replace) {
    int at = recordAt(d, date);
    if (at == 0) {
        at = placeFor(d, date);
    } else if (replace(at)) {
        record.dTd = d.at(at).dTd;
        d.records[at - 1] = record;
        return at;
    }
    insertRecord(d, at, date, record);
    return at;
}

std::vector<std::string> optimumLines(const OptimumSeries& s, int marked) {
    const SeriesData& d = s.series;
    std::vector<std::string> lines(d.header.begin(), d.header.end());
    lines.push_back(s.asRead);
    for (int i = 1; i <= d.NP1max(); ++i) {
        const Record& r = d.at(i);
        std::string text = Format(i, "0000") + "    dT= " + Format(r.dTd, "0000000.00") +
                           "    ddT= " + Format(r.ddTd, "000000.00");
        for (const Item& item : items) text += item.label + Format(r.Par[item.p] * item.factor, item.pattern);
        if (i == marked) lines.emplace_back("---------------------");
        lines.push_back(text);
        if (i == marked) lines.emplace_back("---------------------");
    }
    return lines;
}

}  // namespace tarvex
