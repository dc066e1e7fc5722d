#pragma once

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace bench {

/// The most that our time may be of the peer's time.
struct Limit {
    std::string work;
    double ratio;
};

/// Shows the usual table, collects the times of the pairs "<work>/ours" and "<work>/peer", and the times of a series
/// "<work>/scale/<n>".
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                times_[run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args)]
                    .push_back(run.GetAdjustedRealTime());
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    /// Prints the ratios; whether all keep their limits.
    bool ReportRatios(const std::vector<Limit>& limits) const {
        bool good = true;
        std::cout << "\n"
                  << std::left << std::setw(40) << "ours / peer (medians)"
                  << "ratio   limit\n";
        for (const Limit& limit : limits) {
            const double ours = Median(limit.work + "/ours");
            const double peer = Median(limit.work + "/peer");
            if (ours == 0.0 || peer == 0.0) continue;
            const bool kept = ours / peer <= limit.ratio;
            good = good && kept;
            std::cout << std::setw(40) << limit.work << std::fixed << std::setprecision(2) << ours / peer << "    "
                      << limit.ratio << (kept ? "" : "  PASSED OVER") << '\n';
        }
        return good;
    }

    /// Prints how times grow with the size; whether none grows faster than n log n with some allowance for noise.
    bool ReportGrowth(const std::vector<std::string>& works, long n) const {
        constexpr double kMost = 2.0 * 1.15 * 1.3;  // doubling, the logarithm, noise
        bool good = true;
        std::cout << "\n"
                  << std::setw(40) << "growth (medians)"
                  << "n to 2n  2n to 4n\n";
        for (const std::string& work : works) {
            const double t1 = Median(work + "/scale/" + std::to_string(n));
            const double t2 = Median(work + "/scale/" + std::to_string(2 * n));
            const double t4 = Median(work + "/scale/" + std::to_string(4 * n));
            if (t1 == 0.0 || t2 == 0.0 || t4 == 0.0) continue;
            const bool kept = t4 / t1 <= kMost * kMost;
            good = good && kept;
            std::cout << std::setw(40) << work << std::fixed << std::setprecision(2) << t2 / t1 << "     " << t4 / t2
                      << (kept ? "" : "  FASTER THAN n log n") << '\n';
        }
        return good;
    }

private:
    double Median(const std::string& name) const {
        const auto found = times_.find(name);
        if (found == times_.end()) return 0.0;
        std::vector<double> times = found->second;
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }
    std::map<std::string, std::vector<double>> times_;
};

/// Runs what is registered and reports it; whether all limits were kept and nothing grew too fast.
inline bool RunAndReport(const std::vector<Limit>& limits, const std::vector<std::string>& growing, long n) {
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const bool ratios = reporter.ReportRatios(limits);
    const bool growth = reporter.ReportGrowth(growing, n);
    return ratios && growth;
}

}  // namespace bench
