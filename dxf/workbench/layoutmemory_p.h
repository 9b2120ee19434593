// SPDX-License-Identifier: GPL-2.0-or-later
// Where the dialog was and how it was divided, from one time to the next.
#pragma once

#include <QObject>

class DxfToolsForm;
class DxfToolsStore;
class QSettings;
class QWidget;

/// Restores geometry, splitters and columns when it is made.
class LayoutMemory : public QObject
{
public:
    LayoutMemory(QWidget *dialog, DxfToolsForm &form, DxfToolsStore &store);
    void save();

private:
    void restore();
    void restorePosition(const QSettings &layout);
    void saveColumns(QSettings &layout) const;
    void restoreColumns(const QSettings &layout);

    QWidget *m_dialog;
    DxfToolsForm &m_form;
    DxfToolsStore &m_store;
};
