// SPDX-License-Identifier: GPL-2.0-or-later
// A server that behaves as it is told, for the trials of those that start it:
//     fakeserver MODE FILE [ARGUMENT ...]
// It first adds its process number to FILE. MODE: serve, crash, exit, hang, flood, fork, arguments.
#include "core/platform/platform.h"
#include "servertricks.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

namespace {

/// Nothing without a file.
void add(const char *file, const std::string &text)
{
    if (!file)
        return;
    std::ofstream target(file, std::ios::binary | std::ios::app);
    target << text << std::flush;
    if (!target)
        std::abort();
}

void addProcess(const char *file)
{
    add(file, std::to_string(platform::currentProcess()) + '\n');
}

void flood()
{
    const std::string line(1023, 'x');
    std::puts("");
    for (int i = 0; i < 100 * 1024; ++i)
        std::puts(line.c_str());
    std::fputs("the flood is rea", stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const std::string mode = argc > 2 ? argv[1] : "";
    const char *const file = argc > 2 ? argv[2] : nullptr;
    if (mode == "arguments") {
        const std::vector<std::string> all = servertricks::arguments(argc, argv);
        for (std::size_t i = 3; i < all.size(); ++i)
            add(file, all[i] + '\n');
        servertricks::waitForever();
    }
    if (mode == "hang")
        servertricks::ignoreRequests();
    addProcess(file);
    if (mode == "crash")
        std::abort();
    if (mode == "exit")
        return 0;
    if (mode == "fork")
        servertricks::startChildren(argv[0], file, addProcess);
    std::fputs("the server is rea", stdout); // the line comes in two pieces
    std::fflush(stdout);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    if (mode == "flood")
        flood();
    std::puts("dy now");
    std::fflush(stdout);
    servertricks::waitForever();
}
