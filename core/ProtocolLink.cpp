// SPDX-License-Identifier: GPL-2.0-or-later
// Links whose targets are no files: "shell:" for the system, "ipc:" for the command channel.
#include <kelo_base/core/ProtocolLink.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kShellPrefix = u"shell:"_s; // literal data: nothing is allocated
const QString kIpcPrefix = u"ipc:"_s;
constexpr QChar kSeparator = u':';

} // namespace

const QString &GetShellTargetPrefix()
{
    return kShellPrefix;
}

const QString &GetIPCTargetPrefix()
{
    return kIpcPrefix;
}

bool IsShellLink(const QString &text)
{
    return text.startsWith(kShellPrefix, Qt::CaseInsensitive);
}

bool IsIPCLink(const QString &text)
{
    return text.startsWith(kIpcPrefix, Qt::CaseInsensitive);
}

bool IsProtocolLink(const QString &text)
{
    return IsShellLink(text) || IsIPCLink(text);
}

void RemoveProtocolPrefix(QString &text)
{
    text.remove(0, text.indexOf(kSeparator) + 1); // without one: -1 + 1, nothing
}
