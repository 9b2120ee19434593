// SPDX-License-Identifier: GPL-2.0-or-later
// Linux: processes from /proc, thread names from the kernel.
#include "core/platform/platform.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <pthread.h>
#include <sstream>
#include <string_view>

namespace platform {
namespace {

/// The file up to @p end, or all of it; empty when the process has just gone or is another user's.
std::string readUntil(const std::filesystem::path &file, char end)
{
    std::string text;
    std::getline(std::ifstream(file), text, end);
    return text;
}

bool isProcessDirectory(const std::filesystem::path &directory)
{
    const std::string name = directory.filename().string();
    return std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
}

/// Programs of other systems, run through a compatibility layer, have backslashes in their paths.
std::string baseName(const std::string &path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

} // namespace

std::vector<std::string> processNames()
{
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry("/proc", error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (!isProcessDirectory(entry->path()))
            continue;
        std::string command = readUntil(entry->path() / "comm", '\n');
        // The kernel cuts the command after 15 characters; the first argument is whole.
        std::string program = baseName(readUntil(entry->path() / "cmdline", '\0'));
        if (!program.empty() && program != command)
            names.push_back(std::move(program));
        if (!command.empty())
            names.push_back(std::move(command));
    }
    return names;
}

std::optional<std::uint64_t> processStartTime(std::int64_t pid)
{
    const std::filesystem::path file = "/proc/" + std::to_string(pid) + "/stat";
    const std::string text = readUntil(file, '\n');
    // "pid (command) state ...": the command may hold anything, blanks and brackets too.
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    std::string field;
    fields >> field;
    if (!fields || field == "Z" || field == "X") // dead, and only not collected yet
        return std::nullopt;
    constexpr int kStartTime = 22; // fields are counted from 1, the state is the third
    for (int number = 4; number < kStartTime; ++number)
        fields >> field;
    std::uint64_t ticks = 0;
    return fields >> ticks ? std::optional(ticks) : std::nullopt;
}

void setThreadName(const char *name)
{
    constexpr std::size_t kMaxBytes = 15; // longer names are refused, not cut
    std::string_view text(name);
    if (text.size() > kMaxBytes) {
        const auto isInsideCharacter = [&text](std::size_t at) {
            return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
        };
        std::size_t length = kMaxBytes;
        while (length > 0 && isInsideCharacter(length))
            --length;
        text = text.substr(0, length);
    }
    pthread_setname_np(pthread_self(), std::string(text).c_str());
}

} // namespace platform
