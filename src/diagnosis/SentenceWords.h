#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "diagnosis/Look.h"

/// Pieces of the sentences of findings.
namespace corvane {

/// Joined by commas.
std::string listed(const std::vector<std::string>& words);

/// "automatic", "8 Gbps", "100 Mb/s".
std::string speedWords(uint64_t megabits);

/// "4 Gbps, 8 Gbps".
std::string speedListWords(const std::vector<uint64_t>& speeds);

/// "point to point", "Arbitrated Loop", or the number.
std::string topologyWords(uint64_t topology);

/// "Fibre Channel", "10GbE".
std::string familyWords(AdapterFamily family);

/// "A - 1 port 1", "A - 1" for an adapter as a whole.
std::string placeWords(const Look& look, const Place& place);
std::string placesWords(const Look& look, const std::vector<Place>& places);

/// The date of a time, such as "2026-11-20".
std::string dateOf(ReadingTime time);

/// Two hexadecimal digits.
std::string byteWords(uint64_t byte);

/// What a port needs of a module: "4, 8, 16 Gb/s" or "10G optical".
std::string neededWords(const PortFacts& port);

/// A module for a sentence: maker, part and serial number, or its kind; empty when none is known.
std::string moduleWords(const PortFacts& port);

/// "1 volume", "2 volumes".
std::string counted(size_t number, std::string_view noun);

}  // namespace corvane
