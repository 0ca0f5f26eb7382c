// SPDX-License-Identifier: MIT
// What a bench found, as rows of the table that ./bench/run prints. std only.
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace dwellkey::bench {

/// Upper limits in the unit of the row; less is better everywhere.
struct Goal {
    std::optional<double> median;
    std::optional<double> worst;
};

struct Row {
    std::string what;
    std::string unit;
    std::vector<double> samples; // at least one
    Goal goal{};                 // none: a figure to compare with
};

class Report {
public:
    /// Appends to the file, whose lines are what, samples, median, 10th and 90th percentile,
    /// worst, goal and outcome, separated by tabs. Throws when it cannot be written.
    explicit Report(const std::string& file);

    /// Writes the row, and shows it.
    void add(const Row& row);

private:
    std::ofstream file_;
};

} // namespace dwellkey::bench
