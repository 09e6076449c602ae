#include "cli/bench-tools/AdapterUtility.h"

int main(int argumentCount, char** arguments) {
  return corvane::runBenchTool(corvane::adapterUtility, argumentCount, arguments);
}
