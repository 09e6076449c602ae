#pragma once

#include <optional>
#include <string_view>

#include "platform/PropertyValue.h"
#include "platform/dump/DumpProblems.h"

namespace corvane {

/// Reads one property's value as `ioreg -l` prints it: everything behind `"key" = `, line feeds
/// inside texts included.
///
/// The form is not free of doubt, since texts are printed without escapes. A text that is a whole
/// value ends at the value's last quotation mark; one inside a collection ends at the first
/// quotation mark behind which the collection goes on or ends. Data that was printed as text holds
/// one zero byte between its pieces and none at its end. Data with asterisks in place of bytes
/// comes back as a text in the data's text form, so that what is left of it can be seen; so does
/// the last data of a cut dictionary, with an asterisk for the digits that were lost.
///
/// A collection that is cut or spoilt in the middle keeps its whole members. What was lost is added
/// to `problems`. Nothing when there is no value at all. Sets come back as arrays.
std::optional<PropertyValue> readDumpValue(std::string_view text, DumpProblems& problems);

}  // namespace corvane
