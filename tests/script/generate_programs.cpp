// SPDX-License-Identifier: GPL-3.0-or-later
// generate_programs FOLDER COUNT [FIRST_SEED]: writes programs the independent script host should accept, to
// be given to engine_opinion.py and kevra-cli.
#include "script/program_generator.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int argc, char **argv)
{
    if (argc < 3) {
        std::cerr << "generate_programs FOLDER COUNT [FIRST_SEED]\n";
        return 2;
    }
    const auto first = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 0;
    const auto count = std::strtoull(argv[2], nullptr, 10);
    for (auto seed = first; seed < first + count; ++seed) {
        std::ofstream file(std::string(argv[1]) + "/" + std::to_string(seed) + ".vbs", std::ios::binary);
        file << kevra::testing::generateProgram(seed, kevra::testing::Forms::Common);
    }
    return 0;
}
