#pragma once

#include <cstdint>

extern "C" int _NSGetExecutablePath(char* path, uint32_t* size);
