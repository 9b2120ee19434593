// SPDX-License-Identifier: GPL-2.0-or-later
// A value over the map that turns into a line to edit when it gets the keyboard.
#pragma once

#include "navigation/controls/halo_p.h"
#include <QLineEdit>
#include <functional>

namespace navcontrols {

class ValueField : public QLineEdit
{
    Q_OBJECT

public:
    using Reader = std::function<QString()>;
    /// Acts on what was typed; false when it means nothing.
    using Writer = std::function<bool(const QString &)>;

    /// @param read    asked when the value is painted or edited; never while hidden
    /// @param widest  a text for which there has to be room
    ValueField(const QString &name, Reader read, Writer write, const QString &widest,
               QWidget *parent);
    /// What to type, for the tool tip and for those who typed something else.
    void setHelp(const QString &help);
    /// Takes the value over into the text, which screen readers tell; not while it is edited.
    void refresh();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The value was taken, or the editing given up: the keyboard is no longer needed.
    void left();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void enter();

    Reader m_read;
    Writer m_write;
    QString m_widest;
    QString m_help;
    HaloText m_label;
};

} // namespace navcontrols
