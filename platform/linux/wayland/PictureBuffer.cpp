#include "platform/linux/wayland/PictureBuffer.h"

#include <cstddef>

#include <sys/mman.h>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {

WaylandRef<wl_buffer> pictureBuffer(wl_shm* memory, const QImage& picture) {
    const auto pixels = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto size = std::size_t(pixels.sizeInBytes());
    const FileDescriptor file(memfd_create("quorvane-indicator", MFD_CLOEXEC));
    if (!file.isOpen()) return nullptr;
    if (write(file.number(), pixels.constBits(), size) != ssize_t(size)) return nullptr;
    auto* pool = wl_shm_create_pool(memory, file.number(), int(size));
    WaylandRef<wl_buffer> buffer(wl_shm_pool_create_buffer(
        pool, 0, pixels.width(), pixels.height(), int(pixels.bytesPerLine()), WL_SHM_FORMAT_ARGB8888));
    wl_shm_pool_destroy(pool); // The buffer keeps the memory.
    return buffer;
}

} // namespace quorvane
