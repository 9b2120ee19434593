// SPDX-License-Identifier: GPL-2.0-or-later
// What the user asks for on the command line.
#pragma once

#include <QStringList>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <kelo_base/dxf/SheetComparison.h>
#include <kelo_base/dxf/SheetSelection.h>

/// Stands for standard input as a plan, and for standard output as a target.
inline const QString kStandardStream = QStringLiteral("-");

enum class ProgressMode { Auto, Always, Never };

struct Options
{
    QStringList plans;
    QString output;                       ///< of the one plan; empty: beside the plan
    QString outputDir;                    ///< empty: beside each plan
    QString preview;                      ///< empty: none
    QString table;                        ///< file of the table; empty: none
    QString compare;                      ///< an older GK2 file; empty: none
    double tolerance = kDefaultTolerance; ///< of the comparison, in units of the drawing
    SheetFilter filter;
    CornerOrder order = CornerOrder::Upright;
    bool placed = false; ///< sheets lie where their inserts stand
    QString numberTag;   ///< empty: the usual ones
    QString encoding;    ///< of the plans' texts; empty: as they say
    ProgressMode progress = ProgressMode::Auto;
    bool list = false;
    bool listTags = false;
    bool json = false;
    bool strict = false;
    bool force = false;
    bool allowEmpty = false;
    bool quiet = false;
    bool help = false;
    bool version = false;

    [[nodiscard]] bool hasTarget() const { return !output.isEmpty() || !outputDir.isEmpty(); }
    [[nodiscard]] bool writesSheets() const
    {
        return !list && !listTags && (compare.isEmpty() || hasTarget());
    }
};

struct ParsedOptions
{
    Options options;
    QString error; ///< what is wrong with the usage; empty when nothing is
};

/// Reads the command line, the program's name in front. Looks at no file, and wants no application;
/// without one, or its translation, the error is in English.
ParsedOptions parseOptions(const QStringList &arguments);

/// What --help prints; wants an application object.
QString helpText();

/// Where the sheets of a plan go.
QString outputPath(const Options &options, const QString &plan);
