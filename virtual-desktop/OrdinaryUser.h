#pragma once

namespace quorvane {

/// Wayland compositors refuse to run for root: from now on this process, when it is root's, and all that it
/// starts are somebody else's. Where the system allows it, in a user namespace, so that they may still read
/// what root may (a clone below /root). To be called first, before there is a second thread. Throws when it
/// is not possible.
void becomeOrdinaryUser();

} // namespace quorvane
