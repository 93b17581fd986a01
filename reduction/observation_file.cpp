#include "reduction/observation_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

constexpr int headerLines = 5;
constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// A record by its columns, counted from 1.  One character is one column, also where it is more than one
/// byte.
class Columns {
public:
    explicit Columns(const std::string& line) {
        const bool plain = std::all_of(line.begin(), line.end(), [](char c) { return (c & 0x80) == 0; });
        if (plain) {
            text_ = line;
            return;
        }
        for (const char c : line) {
            const bool continuesACharacter = (static_cast<unsigned char>(c) >> 6) == 2;
            if (!continuesACharacter) own_ += (c & 0x80) != 0 ? '?' : c;
        }
        text_ = own_;
    }
    Columns(const Columns&) = delete;
    Columns& operator=(const Columns&) = delete;

    std::string_view at(std::size_t column, std::size_t width) const {
        return column > text_.size() ? std::string_view{} : text_.substr(column - 1, width);
    }
    bool minusAt(std::size_t column) const { return at(column, 1) == "-"; }

    /// A number that fills its columns (blanks before it apart); a short line has none.
    double number(std::size_t column, std::size_t width) const {
        std::string_view field = at(column, width);
        if (field.size() < width)
            throw ConversionFailure("строка наблюдения короче " + std::to_string(column + width - 1) +
                                    " знаков");
        while (field.starts_with(' ')) field.remove_prefix(1);
        while (field.ends_with(' ')) field.remove_suffix(1);
        return toNumber(field);
    }

private:
    std::string own_;
    std::string_view text_;
};

int monthNumber(std::string_view name) {
    const auto found = std::find(monthNames.begin(), monthNames.end(), name);
    return found == monthNames.end() ? 0 : static_cast<int>(found - monthNames.begin()) + 1;
}

/// Whole units, minutes, seconds and a fraction of `unit` parts of a second, in whole units.
double sexagesimal(double whole, const Columns& c, std::size_t minutes, std::size_t seconds,
                   std::size_t fraction, std::size_t width, double unit) {
    const double m = c.number(minutes, 2), s = c.number(seconds, 2), f = c.number(fraction, width);
    return whole + m / 60 + s / 3600 + f / 3600 / unit;
}

}  // namespace

std::optional<Observation> parseObservation(const std::string& line, const ObservationFilter& filter,
                                            int& month, bool& end) {
    const Columns c(line);
    Observation o;
    o.year = toInt32(c.number(11, 4));
    if (o.year < filter.firstYear) return {};
    o.day = toInt32(c.number(16, 2));
    if (const int named = monthNumber(c.at(19, 3)); named != 0) month = named;
    const double hours = c.number(24, 2);
    if (c.minusAt(23)) return {};
    o.hours = sexagesimal(hours, c, 27, 30, 33, 4, 10000);
    if (o.year > filter.lastYear) {
        end = true;
        return {};
    }
    const double ascensionHours = c.number(44, 2);
    if (c.minusAt(43) || ascensionHours > 23) return {};
    o.ascension = sexagesimal(ascensionHours, c, 47, 50, 53, 5, 100000) * 360 / 24;
    o.declination = sexagesimal(c.number(70, 2), c, 73, 76, 79, 4, 10000);
    if (c.minusAt(69)) o.declination = -o.declination;
    if (month == 0) return {};  // no month has been named yet
    // A zero and the pole mark a value that the source does not have.
    if (o.ascension == 0) return {};
    if (filter.byDistance && (o.declination == 0 || o.declination == 90)) return {};
    o.month = month;
    o.line = line;
    return o;
}

std::string observationRecord(int year, int month, int day, double hours, double ascension,
                              double declination) {
    // whole units, minutes, seconds and a fraction of so many digits, from a count of the smallest parts
    const auto parts = [](double value, int digits) {
        const auto unit = static_cast<long long>(std::pow(10.0, digits));
        const long long all = std::llround(value * 3600 * static_cast<double>(unit));
        const long long seconds = all / unit;
        return fmt::format("{:02} {:02} {:02}.{:0{}}", seconds / 3600, seconds / 60 % 60, seconds % 60,
                           all % unit, digits);
    };
    const std::string name(monthNames.at(month - 1));
    std::string line = fmt::format("{:10}{:4} {:02} {} +{}", "", year, day, name, parts(hours, 4));
    line.resize(42, ' ');
    const double turn = std::llround(ascension / 15 * 3600e5) >= 24 * 360000000LL ? 0 : ascension / 15;
    line += "+" + parts(turn, 5);
    line.resize(68, ' ');
    return line + (declination < 0 ? "-" : "+") + parts(std::abs(declination), 4);
}

ObservationFile::Header ObservationFile::open(const std::filesystem::path& path,
                                              const std::string& observatory) {
    close();
    path_ = path;
    month_ = 0;
    try {
        reader_.emplace(path);
        Header header;
        for (int i = 1; i < headerLines; ++i)
            header.text += reader_->line() + observatory + (i < headerLines - 1 ? "\r\n" : "");
        header.firstYear = reader_->int32();
        header.lastYear = reader_->int32();
        reader_->line();  // what else stands behind the years
        return header;
    } catch (...) {
        close();
        throw;
    }
}

void ObservationFile::rewind() {
    close();
    month_ = 0;
    reader_.emplace(path_);
    for (int i = 0; i < headerLines; ++i) reader_->line();
}

std::optional<Observation> ObservationFile::ReadObsRecord(const ObservationFilter& filter) {
    if (!reader_) throw FileFailure("файл наблюдений не открыт");
    bool end = false;
    std::string line;
    try {
        while (!end && reader_->line(line))
            if (auto found = parseObservation(line, filter, month_, end)) return found;
    } catch (const ConversionFailure& failure) {
        throw ConversionFailure(std::string(failure.what()) + " в записи " + quote(line));
    }
    return {};
}

std::string observationFileName(const std::string& observatory, int body, const std::string& number,
                                const std::string& filtered) {
    return fmt::format("\\Obs\\{}{}_G_{}{}.txt", observatory, body, number, filtered);
}

}  // namespace tarvex
