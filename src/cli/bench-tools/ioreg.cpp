#include "cli/bench-tools/RegistryLister.h"

int main(int argumentCount, char** arguments) {
  return corvane::runBenchTool(corvane::registryListing, argumentCount, arguments);
}
