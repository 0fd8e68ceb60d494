// SPDX-License-Identifier: MIT
#include "ctl/program.h"

int main(int argc, char* argv[])
{
    return tavrel::ctl::runProgram(argc, argv);
}
