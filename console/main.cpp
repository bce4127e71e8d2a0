#include "console/program.h"

int main(int argc, char* argv[]) {
  return quernstoke::runProgram(argc, argv);
}
