// SPDX-License-Identifier: MIT
#include "micro/reporter.h"

#include <iostream>
#include <string>
#include <utility>

namespace dwellkey::bench {
namespace {

/// Why a run was given up; empty when it was not. The library renamed what says so in 1.8.
template <typename Run>
std::string problemOf(const Run& run) {
    if constexpr (requires { run.error_occurred; }) {
        return run.error_occurred ? run.error_message : std::string();
    } else {
        return run.skipped ? run.skip_message : std::string();
    }
}

} // namespace

Reporter::Reporter(Report& report, Goals goals) : report_(report), goals_(std::move(goals)) {}

bool Reporter::ReportContext(const Context& /*context*/) {
    return true;
}

void Reporter::ReportRuns(const std::vector<Run>& runs) {
    Row row;
    for (const Run& run : runs) {
        row.what = run.run_name.function_name;
        row.unit = benchmark::GetTimeUnitString(run.time_unit);
        if (const std::string problem = problemOf(run); !problem.empty()) {
            std::cerr << row.what << ": " << problem << '\n';
            hasFailed_ = true;
            return;
        }
        if (run.run_type == Run::RT_Iteration) {
            row.samples.push_back(run.GetAdjustedRealTime());
        }
    }
    if (!row.samples.empty()) { // the library's own statistics come in a report of their own
        row.goal = goals_[row.what];
        report_.add(row);
    }
}

} // namespace dwellkey::bench
