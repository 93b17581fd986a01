#include "batch/batch_progress.h"

#include <fmt/format.h>

#include <ostream>

namespace tarvex {

namespace {

constexpr auto tellOnTerminal = std::chrono::seconds(2), tellInLog = std::chrono::seconds(60);

}  // namespace

void BatchProgress::begin(std::size_t total, std::size_t finishedBefore, Clock::time_point now) {
    total_ = total;
    before_ = finishedBefore;
    begun_ = told_ = now;
}

void BatchProgress::began(const Task& task) {
    if (!terminal_) err_ << nameOf(task) << ": начат" << std::endl;
}

void BatchProgress::finished(const Task& task) {
    ++done_;
    if (!terminal_)
        err_ << nameOf(task) << ": закончен, готово " << before_ + done_ << " из " << total_ << std::endl;
}

void BatchProgress::failed(const Task& task, const std::string& trouble) {
    ++failed_;
    err_ << nameOf(task) << ": " << trouble << std::endl;
}

void BatchProgress::tell(std::size_t running, double shares, Clock::time_point now) {
    if (now - told_ > (terminal_ ? tellOnTerminal : tellInLog)) tellNow(running, shares, now);
}

void BatchProgress::tellNow(std::size_t running, double shares, Clock::time_point now) {
    told_ = now;
    const double share = static_cast<double>(done_ + failed_) + shares;
    const double seconds = std::chrono::duration<double>(now - begun_).count();
    const double all = static_cast<double>(total_ - before_);
    err_ << "план " << plan_ << ": готово " << before_ + done_ << " из " << total_ << ", в работе "
         << running;
    if (share > 0 && share < all) {
        const auto left = static_cast<long>(seconds / share * (all - share));
        err_ << fmt::format(", осталось {}:{:02}:{:02}", left / 3600, left / 60 % 60, left % 60);
    }
    if (failed_ > 0) err_ << ", с ошибкой " << failed_;
    err_ << std::endl;
}

}  // namespace tarvex
