// SPDX-License-Identifier: GPL-2.0-or-later
// A field that offers what can be entered.
#pragma once

#include <QLineEdit>

class QAbstractItemModel;

/// Completes what is typed, and while it is empty offers all there is: when it gets the focus, at a
/// click and at the key Down, which also offers again what fits the text.
class OfferingEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// @param offers  what is entered is in its edit role, what is shown in its display role
    OfferingEdit(QAbstractItemModel *offers, const QString &name, QWidget *parent = nullptr);

signals:
    /// The offers are about to be looked through: the last moment to bring them up to date.
    void offerWanted();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void offer();
    void offerWhenEmpty();
    [[nodiscard]] bool isOffering() const;

    QAbstractItemModel *m_offers;
};
