// SPDX-License-Identifier: GPL-2.0-or-later
// What the viewer was started with.
#pragma once

#include "ViewPose.h"
#include <QSize>
#include <QStringList>

struct CommandLine
{
    QStringList plans;
    QString exchangeFolder; ///< empty: the user's own
    QString screenshot;     ///< a file to be written instead of opening a window; empty: none
    QSize size{1280, 800};  ///< of the screenshot, in logical pixels
    std::optional<WantedView> view;
    QString theme; ///< of the screenshot: "light" or "dark"; empty: the desktop's
    QString text;  ///< help or version, to be printed instead of anything else
    QString fault; ///< what is wrong with the arguments, in one sentence; empty: nothing

    /// @param arguments  the first is the program
    [[nodiscard]] static CommandLine parse(const QStringList &arguments);
};

/// Whether a screen is not needed, judged before there is an application.
[[nodiscard]] bool needsNoScreen(int argc, char **argv);
