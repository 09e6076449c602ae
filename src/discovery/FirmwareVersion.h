#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Whether the update catalogue's version counts as more than the installed one: component by
/// component, one greater among the first four is enough. That is no ordering: each of two versions
/// may offer more than the other.
bool offersMore(std::string_view installed, std::string_view offered);

/// The name under which the update catalogue offers firmware for a product; empty for those that it
/// does not name.
std::string_view catalogueProduct(std::string_view product);

/// Whether one firmware comes before another, numbers compared as numbers: 2.9 comes before 2.10.
bool isOlderFirmware(std::string_view one, std::string_view other);

}  // namespace corvane
