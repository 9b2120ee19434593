// SPDX-License-Identifier: GPL-2.0-or-later
// Linux: streams with functions of their own, an extension of the C library.
#include "spreadsheet/endablestream_p.h"

#include <memory>
#include <sys/types.h>

namespace spreadsheet {
namespace {

constexpr std::size_t kBlock = 64UL * 1024; ///< packed within a few milliseconds

struct Cookie
{
    std::FILE *inner;
    std::function<bool()> goesOn;
};

ssize_t readBlock(void *cookie, char *buffer, std::size_t size)
{
    const auto *const stream = static_cast<Cookie *>(cookie);
    if (!stream->goesOn())
        return 0;
    const std::size_t got = std::fread(buffer, 1, size, stream->inner);
    return got == 0 && std::ferror(stream->inner) ? -1 : static_cast<ssize_t>(got);
}

ssize_t writeBlock(void *cookie, const char *buffer, std::size_t size)
{
    return static_cast<ssize_t>(std::fwrite(buffer, 1, size, static_cast<Cookie *>(cookie)->inner));
}

int seek(void *cookie, off64_t *offset, int whence)
{
    std::FILE *const inner = static_cast<Cookie *>(cookie)->inner;
    if (fseeko(inner, *offset, whence) != 0)
        return -1;
    *offset = ftello(inner);
    return 0;
}

int close(void *cookie)
{
    const std::unique_ptr<Cookie> stream(static_cast<Cookie *>(cookie));
    return std::fclose(stream->inner);
}

} // namespace

std::FILE *endableStream(std::FILE *inner, std::function<bool()> goesOn)
{
    auto cookie = std::make_unique<Cookie>(Cookie{inner, std::move(goesOn)});
    std::FILE *const stream = fopencookie(cookie.get(), "r+", {readBlock, writeBlock, seek, close});
    if (!stream)
        return inner;
    static_cast<void>(cookie.release()); // close() has it
    std::setvbuf(stream, nullptr, _IOFBF, kBlock);
    return stream;
}

} // namespace spreadsheet
