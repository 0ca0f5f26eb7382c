// SPDX-License-Identifier: MIT
#include "desktop/measures.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

using Measure = void (*)(dwellkey::bench::Report&);

const std::map<std::string, Measure> measures{{"holds", dwellkey::bench::measureHolds},
                                              {"start", dwellkey::bench::measureStart},
                                              {"openings", dwellkey::bench::measureOpenings},
                                              {"footprint", dwellkey::bench::measureFootprint}};

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (argc != 3 || !measures.contains(arguments[2])) {
        std::cerr << "usage: dwellkey-bench-desktop FILE-OF-ROWS holds|start|openings|footprint\n";
        return EXIT_FAILURE;
    }
    try {
        dwellkey::bench::Report report(arguments[1]);
        measures.at(arguments[2])(report);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::cerr << "FAILED: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
