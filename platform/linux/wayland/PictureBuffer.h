#pragma once

#include <memory>

#include <QImage>
#include <wayland-client.h>

#include "platform/linux/wayland/WaylandDisplay.h"

namespace quorvane {

/// A picture in memory that is shared with the compositor. Null when there is none to be had.
WaylandRef<wl_buffer> pictureBuffer(wl_shm* memory, const QImage& picture);

} // namespace quorvane
