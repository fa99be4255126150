#pragma once

namespace quorvane {

/// The launchers whose window has been seen and whose input source has been selected for it.
struct OpenLaunchers {
    bool alfred = false;
    bool spotlight = false;
    bool told = false; ///< One that the desktop tells of.

    bool any() const { return alfred || spotlight || told; }
};

} // namespace quorvane
