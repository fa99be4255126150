#pragma once

// The door to Apple's Objective-C interfaces: no other file includes them. For files of Objective-C++ only.
#import <Cocoa/Cocoa.h>
#import <ImageIO/ImageIO.h>
#import <QuartzCore/QuartzCore.h>
#import <ServiceManagement/ServiceManagement.h>
#import <objc/runtime.h>
