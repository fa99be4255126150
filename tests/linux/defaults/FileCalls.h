#pragma once

namespace quorvane {

/// What happens at one of this program's calls for files. The build leads them all through here; and as on
/// network file systems, only a file that is open for writing can be locked exclusively.
struct Fate {
    enum Kind { fails, writesLess, endsTheProcess, cutsThePower } kind;
    int error = 0; ///< An errno.
};

/// Counts the calls from now on; the one of that number meets its fate. 0: none does.
void arm(int number, Fate fate);

/// Ends the counting. Whether there was a call of that number.
bool disarm();

} // namespace quorvane
