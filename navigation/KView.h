// SPDX-License-Identifier: GPL-2.0-or-later
// The base class of the viewer's document views.
#pragma once

#include <QWidget>
#include <kelo_base/core/Export.h>

/// A view of a document. The viewer derives its own from it and emits the signals; the controls
/// laid over the view listen to them. What a view shows is asked of the DocWindowXIfc.
class KELO_BASE_EXPORT KView : public QWidget
{
    Q_OBJECT

public:
    explicit KView(QWidget *parent = nullptr);
    ~KView() override;

Q_SIGNALS:
    /// The view has been moved, zoomed or turned. Comes with every step while it moves: listeners
    /// only do what is quick, and leave the rest until viewSettled().
    void viewChanged();
    /// The movement that viewChanged() told of has ended.
    void viewSettled();
    /// Another document, or none, is shown; neighbours, links and stored views are another's too.
    void documentChanged();
};
