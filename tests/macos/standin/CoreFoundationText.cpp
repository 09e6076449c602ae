#include <algorithm>
#include <optional>

#include "macos/standin/CoreFoundationObjects.h"

using namespace corvane::standin;

namespace {

/// How many bytes follow a first byte of UTF-8; nothing when none can begin with it.
std::optional<size_t> followers(uint8_t first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first < 0xE0) return 1;
  if (first >= 0xE0 && first < 0xF0) return 2;
  if (first >= 0xF0 && first < 0xF5) return 3;
  return std::nullopt;
}

/// The least character that needs so many bytes more.
constexpr char32_t leastCharacter[] = {0, 0x80, 0x800, 0x10000};

bool isCharacter(char32_t character) {
  return character < 0xD800 || (character > 0xDFFF && character <= 0x10FFFF);
}

void append(std::u16string& units, char32_t character) {
  if (character < 0x10000) {
    units += static_cast<char16_t>(character);
    return;
  }
  units += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
  units += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
}

void append(std::string& bytes, char32_t character) {
  const auto follower = [&](int shift) {
    bytes += static_cast<char>(0x80 | ((character >> shift) & 0x3F));
  };
  if (character < 0x80) {
    bytes += static_cast<char>(character);
  } else if (character < 0x800) {
    bytes += static_cast<char>(0xC0 | (character >> 6));
    follower(0);
  } else if (character < 0x10000) {
    bytes += static_cast<char>(0xE0 | (character >> 12));
    follower(6);
    follower(0);
  } else {
    bytes += static_cast<char>(0xF0 | (character >> 18));
    follower(12);
    follower(6);
    follower(0);
  }
}

std::optional<std::u16string> decoded(const UInt8* bytes, size_t count) {
  std::u16string units;
  for (size_t place = 0; place < count;) {
    const auto more = followers(bytes[place]);
    if (!more || place + *more >= count) return std::nullopt;
    char32_t character = *more == 0 ? bytes[place] : bytes[place] & (0x3FU >> *more);
    for (size_t index = 1; index <= *more; ++index) {
      if ((bytes[place + index] & 0xC0) != 0x80) return std::nullopt;
      character = (character << 6) | (bytes[place + index] & 0x3FU);
    }
    if (character < leastCharacter[*more] || !isCharacter(character)) return std::nullopt;
    append(units, character);
    place += *more + 1;
  }
  return units;
}

}  // namespace

namespace corvane::standin {

std::string textOf(CFStringRef string) {
  std::string bytes;
  const std::u16string& units = string->units;
  for (size_t place = 0; place < units.size(); ++place) {
    char32_t character = units[place];
    if (character >= 0xD800 && character < 0xDC00 && place + 1 < units.size()) {
      character = 0x10000 + ((character - 0xD800) << 10) + (units[++place] - 0xDC00U);
    }
    append(bytes, character);
  }
  return bytes;
}

CFStringRef newString(const std::string& text) {
  const auto* bytes = reinterpret_cast<const UInt8*>(text.data());
  auto units = decoded(bytes, text.size());
  if (!units) units.emplace(bytes, bytes + text.size());
  return makeObject<CFStringObject>(std::move(*units));
}

}  // namespace corvane::standin

extern "C" {

CFTypeID CFStringGetTypeID() {
  return stringTypeId;
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean) {
  if (isToFail("CFStringCreateWithBytes")) return nullptr;
  if (encoding == kCFStringEncodingISOLatin1) {
    return makeObject<CFStringObject>(std::u16string(bytes, bytes + count));
  }
  auto units = decoded(bytes, static_cast<size_t>(count));
  return units ? makeObject<CFStringObject>(std::move(*units)) : nullptr;
}

CFIndex CFStringGetLength(CFStringRef string) {
  isToFail("CFStringGetLength");
  const auto* there = objectThere(string, "CFStringGetLength");
  return there == nullptr ? 0 : static_cast<CFIndex>(there->units.size());
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding) {
  isToFail("CFStringGetMaximumSizeForEncoding");
  constexpr CFIndex mostBytesOfAUnit = 3;
  return encoding == kCFStringEncodingUTF8 ? length * mostBytesOfAUnit : length;
}

CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, UInt8,
                         Boolean, UInt8* buffer, CFIndex capacity, CFIndex* used) {
  isToFail("CFStringGetBytes");
  const auto* there = objectThere(string, "CFStringGetBytes");
  if (there == nullptr || encoding != kCFStringEncodingUTF8) return 0;
  const CFStringObject part(
      there->units.substr(static_cast<size_t>(range.location), static_cast<size_t>(range.length)));
  const std::string bytes = textOf(&part);
  const size_t copied = std::min(bytes.size(), static_cast<size_t>(capacity));
  std::copy_n(bytes.begin(), copied, buffer);
  if (used != nullptr) *used = static_cast<CFIndex>(copied);
  return range.length;
}

}  // extern "C"
