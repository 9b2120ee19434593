// SPDX-License-Identifier: GPL-2.0-or-later
// A button that is a sign with a halo.
#pragma once

#include "navigation/controls/halo_p.h"
#include <QPixmap>
#include <QToolButton>

namespace navcontrols {

enum class Glyph {
    ZoomIn,
    ZoomOut,
    WholePage,
    Fold,
    Unfold,
    Previous,
    Next,
    Play,
    Pause,
    FullScreen,
    Blank,
    None ///< shows its text instead
};

class NavButton : public QToolButton
{
    Q_OBJECT

public:
    static constexpr int kExtent = 28; ///< pixels; of text, the height

    /// @param name  for screen readers and as tool tip
    NavButton(Glyph glyph, const QString &name, QWidget *parent);
    void setGlyph(Glyph glyph);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void paintFace(QPainter &painter) const;

    Glyph m_glyph;
    mutable HaloText m_label;
    QPixmap m_face; ///< painted once for each look
    int m_look = -1;
};

} // namespace navcontrols
