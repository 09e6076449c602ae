#pragma once

/// Memory that is handed to callers, who release it with the plain allocator's
/// free, and of which a lack is a status rather than an exception.

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace corvane {

struct FreeMemory {
  void operator()(void* memory) const noexcept { std::free(memory); }
};

using ArchiveBuffer = std::unique_ptr<char[], FreeMemory>;

/// `size` zero bytes, at least one; null without memory.
ArchiveBuffer allocateZeroed(std::size_t size);

/// A zero-terminated copy; null without memory.
ArchiveBuffer copyText(std::string_view text);

/// Replaces every byte b by 255 - b.
void complement(char* bytes, std::size_t length);

}  // namespace corvane
