// SPDX-License-Identifier: GPL-2.0-or-later
// How controls behave towards the document below them.
#pragma once

#include <QObject>

class QEvent;
class QMouseEvent;
class QWidget;

namespace navcontrols {

/// Watches the controls of one view: while a button is down that was not pressed on a control, the
/// pointer and the wheel are the document's, whatever is under them.
class Manners : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    void watch(QWidget *control);
    /// Whether a button is down that was pressed elsewhere.
    [[nodiscard]] bool isDocumentsTurn() const;

    bool eventFilter(QObject *control, QEvent *event) override;

private:
    [[nodiscard]] bool isDocuments(const QObject *control, const QMouseEvent &event);

    const QObject *m_pressed = nullptr; ///< compared only
};

} // namespace navcontrols
