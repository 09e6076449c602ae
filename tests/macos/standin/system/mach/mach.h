#pragma once

#include <cstdint>

using mach_port_t = unsigned int;
using task_port_t = mach_port_t;
using kern_return_t = int;

enum : mach_port_t { MACH_PORT_NULL = 0 };
inline constexpr kern_return_t KERN_SUCCESS = 0;

extern "C" mach_port_t mach_task_self();
