#include "numeric/pulsar_file.h"

#include "core/numbers.h"
#include "core/text_files.h"

namespace tarvex {

PulsarData readPulsar(const std::filesystem::path& path) {
    TextReader file(path);
    file.line();
    file.line();
    PulsarData data;
    for (double* value : {&data.m1, &data.m2, &data.Eks, &data.AlfaP, &data.Betta})
        *value = file.number() / MK;
    data.Rsr = file.number();
    data.P0 = file.number() / MK;
    return data;
}

void writePulsar(const std::filesystem::path& path, const PulsarData& data) {
    TextWriter file(path);
    file.line(
        "km1= 1000000*m1 / mSol_____km2= 1000000*m2 / mSol___1000000*Eks___1000000*AlfaP "
        "град___1000000*Betta град___Rsr м___1000000*P0i сек");
    file.line("  ");
    std::string numbers;  // digits alone, whatever their count: no place for a sign, no exponent
    for (const double value : {MK * data.m1, MK * data.m2, MK * data.Eks, MK * data.AlfaP, MK * data.Betta,
                               data.Rsr, MK * data.P0})
        numbers += (numbers.empty() ? "" : " ") + Format(Fix(value), "0");
    file.line(numbers);
    file.commit();
}

}  // namespace tarvex
