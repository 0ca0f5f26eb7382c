// SPDX-License-Identifier: MIT
#include "report/report.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace dwellkey::bench {

namespace {

constexpr double lowPercentile = 0.1;
constexpr double highPercentile = 0.9;

/// The sample at the share of the way from the smallest to the largest. `sorted` is not empty.
double percentile(const std::vector<double>& sorted, double share) {
    const auto last = static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(std::lround(share * last))];
}

double median(const std::vector<double>& sorted) {
    const std::size_t middle = sorted.size() / 2;
    return sorted.size() % 2 == 1 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}

/// With as many digits as a noisy figure deserves.
std::string text(double value) {
    constexpr double threeDigits = 100.0;
    constexpr double twoDigits = 10.0;
    const double size = std::abs(value);
    std::ostringstream out;
    out.precision(size >= threeDigits || value == std::floor(value) ? 0
                  : size >= twoDigits                               ? 1
                                                                    : 2);
    out << std::fixed << value;
    return out.str();
}

std::string text(const Goal& goal, const std::string& unit) {
    std::string all;
    if (goal.median) {
        all = "median " + text(*goal.median) + (goal.worst ? ", " : "");
    }
    if (goal.worst) {
        all += "worst " + text(*goal.worst);
    }
    return all.empty() ? "" : all + " " + unit;
}

std::string outcome(const Goal& goal, double middle, double worst) {
    if (!goal.median && !goal.worst) {
        return "";
    }
    const bool isMissed =
        (goal.median && middle > *goal.median) || (goal.worst && worst > *goal.worst);
    return isMissed ? "MISSED" : "met";
}

} // namespace

Report::Report(const std::string& file) : file_(file, std::ios::app) {
    if (!file_) {
        throw std::runtime_error("cannot write " + file);
    }
}

void Report::add(const Row& row) {
    auto sorted = row.samples;
    std::ranges::sort(sorted);
    const double middle = median(sorted);
    const double worst = sorted.back();
    const std::string goal = text(row.goal, row.unit);
    const std::string verdict = outcome(row.goal, middle, worst);
    file_ << row.what << '\t' << sorted.size() << '\t' << text(middle) << " " << row.unit << '\t'
          << text(percentile(sorted, lowPercentile)) << '\t'
          << text(percentile(sorted, highPercentile)) << '\t' << text(worst) << '\t' << goal << '\t'
          << verdict << std::endl; // flushed: a later bench may fail
    std::cout << row.what << ": " << text(middle) << " " << row.unit << " " << verdict << std::endl;
    if (!file_) {
        throw std::runtime_error("the table's file cannot be written any more");
    }
}

} // namespace dwellkey::bench
