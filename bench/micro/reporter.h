// SPDX-License-Identifier: MIT
#pragma once

#include "report/report.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace dwellkey::bench {

/// Makes one row of all repetitions of a bench.
class Reporter final : public benchmark::BenchmarkReporter {
public:
    /// The median's goal by name of the bench; absent for a reference.
    using Goals = std::map<std::string, Goal>;

    Reporter(Report& report, Goals goals);

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Whether a bench found something wrong, which is told on standard error.
    [[nodiscard]] bool hasFailed() const { return hasFailed_; }

private:
    Report& report_;
    Goals goals_;
    bool hasFailed_ = false;
};

} // namespace dwellkey::bench
