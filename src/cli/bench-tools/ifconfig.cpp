#include "cli/bench-tools/InterfaceConfiguration.h"

int main(int argumentCount, char** arguments) {
  return corvane::runBenchTool(corvane::interfaceConfiguration, argumentCount, arguments);
}
