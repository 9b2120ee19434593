// SPDX-License-Identifier: GPL-2.0-or-later
// Tells when the document window, or its primary view, is another one.
#pragma once

#include <QObject>
#include <kelo_base/core/Export.h>

/// One for the process, reached through DocWindowXIfc::Notifier(): it outlives every document
/// window, so that a control connects once.
class KELO_BASE_EXPORT DocWindowNotifier : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    /// DocWindowXIfc::HInstance() answers differently; all views are another window's, or none's.
    void documentWindowReplaced();
    /// The registered window's PrimaryView() answers differently.
    void primaryViewReplaced();
};
