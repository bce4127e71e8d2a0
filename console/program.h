#pragma once

namespace quernstoke {

// The whole program. Returns its exit status.
int runProgram(int argc, char* argv[]);

}  // namespace quernstoke
