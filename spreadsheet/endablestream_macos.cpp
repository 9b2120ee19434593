// SPDX-License-Identifier: GPL-2.0-or-later
// macOS: streams with functions of their own, an extension of the C library.
#include "spreadsheet/endablestream_p.h"

#include <memory>

namespace spreadsheet {
namespace {

constexpr std::size_t kBlock = 64UL * 1024; ///< packed within a few milliseconds

struct Cookie
{
    std::FILE *inner;
    std::function<bool()> goesOn;
};

int readBlock(void *cookie, char *buffer, int size)
{
    const auto *const stream = static_cast<Cookie *>(cookie);
    if (!stream->goesOn())
        return 0;
    const std::size_t got = std::fread(buffer, 1, static_cast<std::size_t>(size), stream->inner);
    return got == 0 && std::ferror(stream->inner) ? -1 : static_cast<int>(got);
}

int writeBlock(void *cookie, const char *buffer, int size)
{
    return static_cast<int>(std::fwrite(buffer, 1, static_cast<std::size_t>(size),
                                        static_cast<Cookie *>(cookie)->inner));
}

fpos_t seek(void *cookie, fpos_t offset, int whence)
{
    std::FILE *const inner = static_cast<Cookie *>(cookie)->inner;
    return fseeko(inner, offset, whence) == 0 ? ftello(inner) : -1;
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
    std::FILE *const stream = funopen(cookie.get(), readBlock, writeBlock, seek, close);
    if (!stream)
        return inner;
    static_cast<void>(cookie.release()); // close() has it
    std::setvbuf(stream, nullptr, _IOFBF, kBlock);
    return stream;
}

} // namespace spreadsheet
