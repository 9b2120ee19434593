// SPDX-License-Identifier: GPL-2.0-or-later
// Takes out of command lines what others must not read.
#pragma once

#include <QStringList>

/// The arguments with "***" for passwords, tokens and secrets: the value of an option or a setting
/// so called ("--db-password=x", "--token x", "host=h password=x"), and that of an URL
/// ("scheme://user:x@host").
[[nodiscard]] QStringList withoutSecrets(const QStringList &arguments);
