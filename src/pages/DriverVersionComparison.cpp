#include "pages/DriverVersionComparison.h"

#include "discovery/DriverFitness.h"

namespace corvane {

int64_t DriverVersionComparison::compareDriverVersion() const {
  const auto family = static_cast<AdapterFamily>(state_.intProduct);
  return corvane::compareDriverVersion(family, family == AdapterFamily::FibreChannel
                                                   ? state_.driverVersion_8G
                                                   : state_.driverVersion_10G);
}

}  // namespace corvane
