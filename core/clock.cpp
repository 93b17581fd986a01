#include "core/clock.h"

#include <fmt/format.h>

#include <ctime>

namespace tarvex {

std::string timeOfDay() {
    const std::time_t time = std::time(nullptr);
    std::tm parts{};
    localtime_r(&time, &parts);
    return fmt::format("{:02}:{:02}:{:02}", parts.tm_hour, parts.tm_min, parts.tm_sec);
}

}  // namespace tarvex
