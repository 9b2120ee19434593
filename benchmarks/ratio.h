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
    Reporter() : ConsoleReporter(OO_Tabular) {} // no colours: the output is kept in files

    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            const bool isSingle = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
            if (!run.error_occurred && (isSingle || run.aggregate_name == "median"))
                m_times[nameOf(run)] = run.GetAdjustedRealTime();
        }
    }

    /// One line for each pair that ran.
    void printRatios() const
    {
        for (const auto &[name, ours] : m_times) {
            const std::size_t mark = name.find("Ours");
            if (mark == std::string::npos)
                continue;
            const auto peer = m_times.find(std::string(name).replace(mark, 4, "Peer"));
            const std::string subject = std::string(name).erase(mark, 4).append(":");
            if (peer != m_times.end())
                std::printf("%-24s ours takes %.3g of the peer\n", subject.c_str(),
                            ours / peer->second);
        }
    }

private:
    static std::string nameOf(const Run &run)
    {
        std::string name = run.run_name.function_name;
        if (!run.run_name.args.empty())
            name.append("/").append(run.run_name.args);
        return name;
    }

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
