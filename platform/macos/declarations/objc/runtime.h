#pragma once

// The Objective-C runtime: public SDK documentation.

#import <Foundation/Foundation.h>

typedef uintptr_t objc_AssociationPolicy;
enum : objc_AssociationPolicy { OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1 };
extern "C" void objc_setAssociatedObject(id _Nonnull object, const void* _Nonnull key, id _Nullable value,
                                         objc_AssociationPolicy policy);
