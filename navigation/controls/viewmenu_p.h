// SPDX-License-Identifier: GPL-2.0-or-later
// The floating view menu: zoom, scale, viewing height, the eye, and a scale bar.
#pragma once

#include "navigation/controls/navbutton_p.h"
#include <QPointer>
#include <QWidget>
#include <functional>
#include <kelo_base/navigation/KView.h>
#include <optional>
#include <vector>

class QGridLayout;

namespace navcontrols {

class Manners;
class Readout;
class ScaleBarWidget;
class ValueField;

/// A click folds the menu, a drag docks it.
class MenuHandle : public NavButton
{
    Q_OBJECT

public:
    explicit MenuHandle(QWidget *parent);

signals:
    /// In pixels of the parent's parent, the view.
    void draggedTo(QPoint point);
    void dropped(QPoint point);
    /// Ctrl and an arrow key: to the corner in that direction.
    void pushed(int key);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    [[nodiscard]] QPoint inView(const QMouseEvent &event) const;
    std::optional<QPointF> m_start;
    bool m_isMoving = false;
};

class ViewMenu : public QWidget
{
    Q_OBJECT

public:
    ViewMenu(Readout &readout, KView *view, Manners &manners);

    /// Shows the handle alone, or all.
    void setFolded(bool isFolded);
    [[nodiscard]] QSize unfoldedSize() const;
    [[nodiscard]] static QSize foldedSize() { return {NavButton::kExtent, NavButton::kExtent}; }
    [[nodiscard]] bool isFolded() const { return m_isFolded.value_or(false); }
    [[nodiscard]] MenuHandle &handle() const { return *m_handle; }
    /// Whether the view has a scale may be different: takes unfoldedSize() along.
    void settle();
    /// Tells screen readers the values.
    void refresh();

signals:
    void scaleEntered(double scale);
    /// Field of view or eye distance, which are the process's, are others now.
    void eyeChanged();
    /// The keyboard is no longer needed here.
    void left();

private:
    ValueField *addField(const QString &name, const QString &help, std::function<QString()> read,
                         std::function<bool(const QString &)> write, const QString &widest);
    void addButtons(Manners &manners);
    void addScaleAndHeight();
    void addEye();
    QString scaleHelp() const;
    bool enterScale(const QString &text);
    void zoom(NavButton *button, double ratio);

    Readout &m_readout;
    QPointer<KView> m_view;
    MenuHandle *m_handle;
    QWidget *m_buttons;
    QWidget *m_body; ///< what needs a geo reference
    QGridLayout *m_rows;
    ScaleBarWidget *m_bar;
    std::vector<ValueField *> m_fields;
    std::optional<bool> m_isFolded;
    bool m_hasGeoReference = true;
};

} // namespace navcontrols
