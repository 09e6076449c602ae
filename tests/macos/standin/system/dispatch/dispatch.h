#pragma once

#include <cstdint>

// The calls of the dispatch library that the Mac layer makes, declared as the system's public
// header declares them.

struct DispatchObject;
struct DispatchQueueObject;
struct DispatchGroupObject;
struct DispatchSemaphoreObject;

using dispatch_queue_t = DispatchQueueObject*;
using dispatch_group_t = DispatchGroupObject*;
using dispatch_semaphore_t = DispatchSemaphoreObject*;
using dispatch_function_t = void (*)(void* context);
using dispatch_time_t = uint64_t;

enum : dispatch_time_t { DISPATCH_TIME_NOW = 0, DISPATCH_TIME_FOREVER = ~dispatch_time_t{0} };
enum : long {
  DISPATCH_QUEUE_PRIORITY_DEFAULT = 0,
  DISPATCH_QUEUE_PRIORITY_BACKGROUND = INT16_MIN,
};

/// In C any dispatch object converts to this one.
struct dispatch_object_t {
  dispatch_object_t(dispatch_group_t group);          // NOLINT(google-explicit-constructor)
  dispatch_object_t(dispatch_semaphore_t semaphore);  // NOLINT(google-explicit-constructor)
  DispatchObject* object;
};

extern "C" {

void dispatch_release(dispatch_object_t object);
dispatch_time_t dispatch_time(dispatch_time_t base, int64_t nanoseconds);
dispatch_queue_t dispatch_get_global_queue(long priority, unsigned long flags);
void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work);
dispatch_group_t dispatch_group_create();
void dispatch_group_async_f(dispatch_group_t group, dispatch_queue_t queue, void* context,
                            dispatch_function_t work);
long dispatch_group_wait(dispatch_group_t group, dispatch_time_t timeout);
dispatch_semaphore_t dispatch_semaphore_create(long value);
long dispatch_semaphore_signal(dispatch_semaphore_t semaphore);
long dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout);

}  // extern "C"
