#include "core/file_watch.h"

#include <utility>

namespace tarvex {

namespace {
// Files are opened far below the laboratory that wants to hear of them, so a thread keeps who listens on it.
thread_local FileWatch* listening = nullptr;
}  // namespace

FileWatch::FileWatch(Heard heard) : heard_(std::move(heard)), before_(std::exchange(listening, this)) {}

FileWatch::~FileWatch() { listening = before_; }

void FileWatch::tell(FileTouch use, const std::filesystem::path& file) {
    for (const FileWatch* one = listening; one != nullptr; one = one->before_) one->heard_(use, file);
}

FileWatch::Silence::Silence() : kept_(std::exchange(listening, nullptr)) {}

FileWatch::Silence::~Silence() { listening = kept_; }

}  // namespace tarvex
