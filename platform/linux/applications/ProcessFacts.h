#pragma once

#include <string>

namespace quorvane {

// What the kernel tells about a process. Everything is empty for a process that is gone, is another user's or
// has the number 0.

/// The base name of the program it runs.
std::string executableNameOf(int pid);

/// The same, or where that is an interpreter, of the script if there is one.
std::string programNameOf(int pid);

/// The application's name inside Flatpak, which is its desktop-file id.
std::string flatpakIdOf(int pid);

/// The desktop-file id of an application inside Snap.
std::string snapIdOf(int pid);

/// A process that has ended but was not reaped yet does not live.
bool processLives(int pid);

} // namespace quorvane
