#pragma once

namespace quorvane {

/// Wayland compositors refuse to run for root: this process, when it is root's, starts itself anew with these
/// arguments, and so all that it will start, as somebody else. Where the system allows it, in a user
/// namespace, so that they may still read what root may (a clone below /root). To be called first. Throws
/// when it is not possible.
void becomeOrdinaryUser(char** arguments);

} // namespace quorvane
