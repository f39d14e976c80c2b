// SPDX-License-Identifier: MIT
#include "cli/program.h"

int main(int argc, char** argv) {
  return brevant::runProgram(argc, argv, nullptr);
}
