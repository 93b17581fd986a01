#pragma once
// What must stand before the toolkit starts, in programs with windows and without.

namespace tarvex {

/// Gives the toolkit its folder of this session where the system has set none (a container, a batch job):
/// the one that it would take itself, but then it says so on the standard error of every program.
void prepareToolkit();

}  // namespace tarvex
