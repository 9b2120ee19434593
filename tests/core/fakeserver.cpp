// SPDX-License-Identifier: GPL-2.0-or-later
// A server that behaves as it is told, for the trials of those that start it:
//     fakeserver MODE FILE [ARGUMENT ...]
// It first adds its process number to FILE. MODE: serve, crash, exit, hang, flood, fork, arguments.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

void add(const char *file, const std::string &text)
{
    const int target = open(file, O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (target < 0 || write(target, text.data(), text.size()) < 0)
        std::abort();
    close(target);
}

void addProcess(const char *file)
{
    add(file, std::to_string(getpid()) + '\n');
}

[[noreturn]] void serve()
{
    for (;;)
        pause();
}

/// One that stays in the session, one that leaves it, and one whose parent dies.
void forkChildren(const char *file)
{
    for (int kind = 0; kind < 3; ++kind) {
        if (fork() != 0)
            continue;
        if (kind == 1)
            setsid();
        if (kind == 2 && fork() != 0)
            _exit(0);
        addProcess(file);
        serve();
    }
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
    const char *const file = argc > 2 ? argv[2] : "/dev/null";
    if (mode == "arguments") {
        for (int i = 3; i < argc; ++i)
            add(file, std::string(argv[i]) + '\n');
        serve();
    }
    if (mode == "hang")
        std::signal(SIGTERM, SIG_IGN);
    addProcess(file);
    if (mode == "crash")
        std::abort();
    if (mode == "exit")
        return 0;
    if (mode == "fork")
        forkChildren(file);
    std::fputs("the server is rea", stdout); // the line comes in two pieces
    std::fflush(stdout);
    usleep(20'000);
    if (mode == "flood")
        flood();
    std::puts("dy now");
    std::fflush(stdout);
    serve();
}
