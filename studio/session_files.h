#pragma once
// Sessions as files: the last one of a data tree, those that were used lately, and reading and writing them.

#include <QStringList>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvex {

/// The session of a data tree as it was saved by itself: <tree>/Dat/Session.tvx.
std::filesystem::path lastSessionOf(const std::filesystem::path& tree);

/// A session that brings back more than a laboratory as it opens by itself.
bool isWorthKeeping(const std::vector<std::string>& lines);

/// Sessions and scripts used lately, the last one first; only those that still exist.
QStringList recentSessions();
void rememberSession(const QString& file);

/// True at the first start of this user; false from then on.
bool isFirstStart();

}  // namespace tarvex
