#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "diagnosis/Diagnosis.h"

namespace corvane {

/// The collection of cases: readings written as facts, and what must be found in them.
const nlohmann::json& caseCollection();

/// The bytes of a module of the collection, or of 192 hexadecimal digits.
std::vector<uint8_t> moduleBytes(const std::string& nameOrDigits);

/// A module as the driver operation reads it.
ModuleReading moduleReading(const std::vector<uint8_t>& bytes);

/// The reading that the facts of a case stand for, and the memory beside it.
ComputerReading readingOf(const nlohmann::json& facts);
Memory memoryOf(const nlohmann::json& memory, const ComputerReading& reading);

}  // namespace corvane
