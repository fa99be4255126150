#pragma once

// Declarations of what this program calls, and of no more, for checking its types where there is no SDK.

#import <AppKit/AppKit.h>
#import <Foundation/Foundation.h>
