#pragma once

#include <utility>

#include "platform/macos/Apple.h"

namespace quorvane {

/// Owns one reference to a Core Foundation object, or none. `T` is a reference type like `CFStringRef`.
template <class T>
class CFRef {
public:
    CFRef() = default;

    /// Takes over the reference that a function with Create or Copy in its name has returned; may be null.
    static CFRef adopt(T object) { return CFRef(object); }

    /// One more reference to an object that somebody else owns, as functions with Get in their name return
    /// it; may be null.
    static CFRef retain(T object) {
        if (object) CFRetain(object);
        return CFRef(object);
    }

    CFRef(const CFRef& other) : CFRef(retain(other.object_)) {}
    CFRef(CFRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    CFRef& operator=(CFRef other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~CFRef() {
        if (object_) CFRelease(object_);
    }

    /// Null, or valid as long as this is.
    T get() const { return object_; }
    explicit operator bool() const { return object_; }

private:
    explicit CFRef(T object) : object_(object) {}

    T object_ = nullptr;
};

} // namespace quorvane
