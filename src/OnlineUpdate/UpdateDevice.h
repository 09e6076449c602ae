#pragma once

#include <string>

namespace corvane {

/// The name of the software's own row.
inline constexpr const char* softwareUpdateName = "CORVANE Utility";

/// A row of the update window: something newer than what is installed.
struct UpdateDevice {
  bool isSelect = false;          ///< ticked by the user
  std::string updateName;         ///< the row's title
  std::string deviceWWN;          ///< the adapter's WWN; firmware rows only
  std::string deviceSequence;     ///< not set by the check
  std::string currentVer;         ///< the version that will be installed
  std::string updateDescription;  ///< the catalogue's description

  bool operator==(const UpdateDevice&) const = default;
};

}  // namespace corvane
