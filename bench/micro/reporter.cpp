// SPDX-License-Identifier: MIT
#include "micro/reporter.h"

#include <iostream>
#include <utility>

namespace dwellkey::bench {

Reporter::Reporter(Report& report, Goals goals) : report_(report), goals_(std::move(goals)) {}

bool Reporter::ReportContext(const Context& /*context*/) {
    return true;
}

void Reporter::ReportRuns(const std::vector<Run>& runs) {
    Row row;
    for (const Run& run : runs) {
        row.what = run.run_name.function_name;
        row.unit = benchmark::GetTimeUnitString(run.time_unit);
        if (run.error_occurred) {
            std::cerr << row.what << ": " << run.error_message << '\n';
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
