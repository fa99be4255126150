// ambiguous conversion for functional-style cast from 'NSInteger' (aka 'long') to 'quorvane::PropertyList'
#include "platform/PropertyList.h"
#import "platform/macos/AppKit.h"

quorvane::PropertyList countOf(NSArray<NSString*>* names) {
    return quorvane::PropertyList(static_cast<NSInteger>(names.count));
}
