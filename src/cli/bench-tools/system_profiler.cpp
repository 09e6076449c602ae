#include "cli/bench-tools/SystemProfile.h"

int main(int argumentCount, char** arguments) {
  return corvane::runBenchTool(corvane::systemProfile, argumentCount, arguments);
}
