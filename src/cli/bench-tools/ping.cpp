#include "cli/bench-tools/NetworkPing.h"

int main(int argumentCount, char** arguments) {
  return corvane::runBenchTool(corvane::networkPing, argumentCount, arguments);
}
