#include "cli/bench-tools/FileOpener.h"

int main(int argumentCount, char** arguments) {
  return corvane::runBenchTool(corvane::fileOpener, argumentCount, arguments);
}
