// SPDX-License-Identifier: GPL-2.0-or-later
// The presentation menu: stored views, play, full screen, blank screen.
#pragma once

#include "navigation/controls/navbutton_p.h"
#include "navigation/controls/presentation_p.h"
#include <functional>

namespace navcontrols {

class Manners;
class ValueField;

class PresentationMenu : public QWidget
{
    Q_OBJECT

public:
    PresentationMenu(Presentation &presentation, StoredViews &stored, KView *view,
                     Manners &manners);
    /// Seconds between two views.
    void setInterval(int seconds);
    /// Takes over how many views there are and which is shown.
    void refresh();

signals:
    void intervalEntered(int seconds);
    void left();

private:
    NavButton *add(Glyph glyph, const QString &name, Manners &manners);
    void fillList();
    void storeView();

    Presentation &m_presentation;
    StoredViews &m_stored;
    QPointer<KView> m_view;
    NavButton *m_previous;
    NavButton *m_list;
    NavButton *m_next;
    NavButton *m_play;
    ValueField *m_interval;
    NavButton *m_full;
    NavButton *m_blank;
    int m_seconds = 5;
};

/// Stores what the view shows under @p title, or one made of its document's; false without one.
bool storeView(StoredViews &stored, KView *view, const QString &title);

} // namespace navcontrols
