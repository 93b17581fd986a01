#include "batch/plan_journal.h"

#include <fmt/format.h>

#include <array>
#include <boost/crc.hpp>
#include <fstream>
#include <sstream>

#include "core/failure.h"
#include "core/file_lock.h"
#include "core/leftovers.h"
#include "core/text_files.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr const char* head = "планета эксперимент размер сумма настройки";

void copyInPlace(const fs::path& finished, const fs::path& goal) {
    const fs::path passing = passingName(goal);
    try {
        fs::copy_file(finished, passing, fs::copy_options::overwrite_existing);
        keepOld(goal);
        putInPlace(passing, goal);
    } catch (...) {
        std::error_code ignored;
        fs::remove(passing, ignored);
        throw;
    }
}

}  // namespace

std::optional<FileMark> markOf(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    boost::crc_32_type sum;
    FileMark mark;
    std::array<char, 1 << 16> block;
    while (file.read(block.data(), block.size()), file.gcount() > 0) {
        sum.process_bytes(block.data(), static_cast<std::size_t>(file.gcount()));
        mark.size += static_cast<std::uintmax_t>(file.gcount());
    }
    if (!file.eof()) return std::nullopt;
    mark.checksum = sum.checksum();
    return mark;
}

PlanJournal::PlanJournal(const DataTree& tree, int plan)
    : tree_(tree), plan_(plan), path_(tree.at(files::planJournal(plan))) {
    read();
}

void PlanJournal::read() {
    entries_.clear();
    std::error_code error;
    if (!fs::exists(path_, error)) return;
    try {
        TextReader file(path_);
        for (std::string line; file.line(line);) {
            std::istringstream items(line);
            Task task;
            Entry entry;
            items >> task.planet >> task.experiment >> entry.mark.size >> std::hex >> entry.mark.checksum;
            if (items.get() == ' ' && std::getline(items, entry.settings)) entries_[task] = entry;
        }
    } catch (const OpenFailure&) {
        throw;
    } catch (const FileFailure&) {
        // no text any more: what it does not tell runs again
    }
}

void PlanJournal::write() const {
    TextWriter file(path_, TextWriter::noCopy);
    file.line(head);
    for (const auto& [task, entry] : entries_)
        file.line(fmt::format("{} {} {} {:08x} {}", task.planet, task.experiment, entry.mark.size,
                              entry.mark.checksum, entry.settings));
    file.commit();
}

std::optional<std::string> PlanJournal::finishedWith(const Task& task) const {
    const auto entry = entries_.find(task);
    if (entry == entries_.end() || markOf(record(task)) != entry->second.mark) return std::nullopt;
    return entry->second.settings;
}

void PlanJournal::handOver(const Task& task, const fs::path& finished, const std::string& settings) {
    const FileLock own = FileLock::wait(path_);
    const fs::path goal = record(task);
    const auto mark = markOf(finished);
    if (!mark) throw FileFailure("не читается файл " + finished.string());
    FileClaim claim;
    claim.take(goal, [&] { copyInPlace(finished, goal); });
    read();
    entries_[task] = {*mark, settings};
    write();
}

fs::path PlanJournal::record(const Task& task) const {
    return tree_.at(files::runRecord(plan_, task.planet, task.experiment));
}

std::string settingsLine(const BatchOptions& options, const DataTree& tree) {
    const auto plan = markOf(tree.at(files::plan(options.plan)));
    std::string line = fmt::format("план={:08x}", plan ? plan->checksum : 0);
    for (const BatchSetting& setting : options.settings) line += " " + setting.control + "=" + setting.value;
    return line;
}

}  // namespace tarvex
