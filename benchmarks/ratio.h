// SPDX-License-Identifier: GPL-2.0-or-later
// Runs benchmarks named "xOurs" and "xPeer" and closes with "x: ours takes 0.31 of the peer".
#pragma once

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace ratio {

/// Prints as usual, and keeps the time an iteration took (the median where runs are repeated).
class Reporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            const bool isSingle = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
            if (!run.error_occurred && (isSingle || run.aggregate_name == "median"))
                m_times[run.run_name.function_name + "/" + run.run_name.args] =
                    run.GetAdjustedRealTime();
        }
    }

    /// One line for each pair that ran.
    void printRatios() const
    {
        for (const auto &[name, ours] : m_times) {
            const std::size_t mark = name.find("Ours/");
            if (mark == std::string::npos)
                continue;
            const std::string subject = name.substr(0, mark);
            const std::string arguments = name.substr(mark + 5);
            const auto peer = m_times.find(subject + "Peer/" + arguments);
            if (peer != m_times.end())
                std::printf("%s%s%s: ours takes %.3g of the peer\n", subject.c_str(),
                            arguments.empty() ? "" : " ", arguments.c_str(), ours / peer->second);
        }
    }

private:
    std::map<std::string, double> m_times;
};

inline int run(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    reporter.printRatios();
    return 0;
}

} // namespace ratio

#define KELO_RATIO_MAIN()                                                                          \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return ratio::run(argc, argv);                                                             \
    }
