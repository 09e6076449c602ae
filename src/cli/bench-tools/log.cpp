#include "cli/bench-tools/SystemLogArchive.h"

int main(int argumentCount, char** arguments) {
  return corvane::runBenchTool(corvane::systemLogArchive, argumentCount, arguments);
}
