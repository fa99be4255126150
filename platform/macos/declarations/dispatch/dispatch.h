#pragma once

// Grand Central Dispatch: public SDK documentation.

#include <stdint.h>

#ifdef __OBJC__
@class NSObject;
typedef NSObject* dispatch_queue_t;
#else
typedef struct dispatch_queue_s* dispatch_queue_t;
#endif
typedef uint64_t dispatch_time_t;
typedef void (^dispatch_block_t)(void);

#ifdef __OBJC__
typedef NSObject* dispatch_source_t;
#else
typedef struct dispatch_source_s* dispatch_source_t;
#endif
#ifdef __OBJC__
typedef NSObject* dispatch_semaphore_t;
#else
typedef struct dispatch_semaphore_s* dispatch_semaphore_t;
#endif
typedef const struct dispatch_source_type_s* dispatch_source_type_t;

#define DISPATCH_TIME_NOW (0ull)
#define NSEC_PER_SEC 1000000000ull

#pragma clang assume_nonnull begin
#ifdef __cplusplus
extern "C" {
#endif

dispatch_queue_t dispatch_get_main_queue(void);
dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);

dispatch_semaphore_t dispatch_semaphore_create(intptr_t value);
intptr_t dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout);
intptr_t dispatch_semaphore_signal(dispatch_semaphore_t semaphore);
extern const struct dispatch_source_type_s _dispatch_source_type_signal;
#define DISPATCH_SOURCE_TYPE_SIGNAL (&_dispatch_source_type_signal)
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle, uintptr_t mask,
                                         dispatch_queue_t _Nullable queue);
void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t _Nullable handler);
#ifdef __OBJC__
void dispatch_resume(NSObject* object);
#endif

#ifdef __cplusplus
}
#endif
#pragma clang assume_nonnull end
