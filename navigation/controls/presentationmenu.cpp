// SPDX-License-Identifier: GPL-2.0-or-later
// The presentation menu: stored views, play, full screen, blank screen.
#include "navigation/controls/presentationmenu_p.h"

#include "navigation/controls/manners_p.h"
#include "navigation/controls/scaletext_p.h"
#include "navigation/controls/storedviewsdialog_p.h"
#include "navigation/controls/valuefield_p.h"
#include "navigation/controls/viewmoves_p.h"
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;

namespace navcontrols {

namespace {

QString titleOf(const UDocItem &item)
{
    return item.title.isEmpty() ? QFileInfo(item.fileName).completeBaseName() : item.title;
}

} // namespace

bool storeView(StoredViews &stored, KView *view, const QString &title)
{
    UDocItem item = itemOf(view);
    if (!item.IsValid())
        return false;
    UDocItemList list = stored.list();
    const QString wanted = title.simplified();
    item.title = freeTitle(list, wanted.isEmpty() ? titleOf(item) : wanted);
    list << item;
    stored.set(list);
    return true;
}

PresentationMenu::PresentationMenu(Presentation &presentation, StoredViews &stored, KView *view,
                                   Manners &manners)
    : QWidget(view), m_presentation(presentation), m_stored(stored), m_view(view)
{
    setAccessibleName(tr("Presentation"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(0);
    m_previous = add(Glyph::Previous, tr("Previous view"), manners);
    m_list = add(Glyph::None, tr("Stored views"), manners);
    m_list->setText(u"888/888"_s); // room for any
    m_list->setFixedWidth(m_list->sizeHint().width());
    m_next = add(Glyph::Next, tr("Next view"), manners);
    m_play = add(Glyph::Play, tr("Play the stored views"), manners);
    m_play->setCheckable(true);
    m_interval = new ValueField(
        tr("Interval"), [this] { return locale().toString(m_seconds) + u" s"_s; },
        [this](const QString &text) {
            const auto seconds = parseQuantity(text, u"s", locale());
            const bool isUsable = seconds && *seconds >= Presentation::kLeastSeconds &&
                                  *seconds <= Presentation::kMostSeconds;
            if (isUsable)
                emit intervalEntered(static_cast<int>(*seconds)); // whole seconds
            return isUsable;
        },
        u"8888 s"_s, this);
    m_interval->setHelp(tr("Seconds from view to view, 1 to 3600"));
    manners.watch(m_interval);
    row->addWidget(m_interval);
    connect(m_interval, &ValueField::left, this, &PresentationMenu::left);
    m_full = add(Glyph::FullScreen, tr("Full screen"), manners);
    m_full->setCheckable(true);
    m_blank = add(Glyph::Blank, tr("Blank screen"), manners);

    m_list->setPopupMode(QToolButton::InstantPopup);
    m_list->setMenu(new QMenu(m_list));
    connect(m_list->menu(), &QMenu::aboutToShow, this, &PresentationMenu::fillList);
    connect(m_previous, &NavButton::clicked, &presentation,
            [&presentation] { presentation.step(-1); });
    connect(m_next, &NavButton::clicked, &presentation, [&presentation] { presentation.step(1); });
    connect(m_play, &NavButton::clicked, &presentation, &Presentation::setPlaying);
    connect(m_full, &NavButton::clicked, &presentation, &Presentation::setFullScreen);
    connect(m_blank, &NavButton::clicked, &presentation,
            [&presentation] { presentation.setBlank(true); });
    connect(&presentation, &Presentation::changed, this, &PresentationMenu::refresh);
}

NavButton *PresentationMenu::add(Glyph glyph, const QString &name, Manners &manners)
{
    auto *button = new NavButton(glyph, name, this);
    layout()->addWidget(button);
    manners.watch(button);
    return button;
}

void PresentationMenu::setInterval(int seconds)
{
    m_seconds = seconds;
    m_interval->update();
}

void PresentationMenu::refresh()
{
    if (!isVisible())
        return;
    const UDocItemList views = m_presentation.views();
    const int index = m_presentation.index();
    const bool isKnown = index >= 0 && index < views.Size();
    m_list->setText(isKnown ? u"%1/%2"_s.arg(index + 1).arg(views.Size())
                            : u"–/%1"_s.arg(views.Size()));
    m_list->setToolTip(isKnown ? titleOf(views[index]) : m_list->accessibleName());
    m_list->setAccessibleDescription(m_list->text());
    for (NavButton *button : {m_previous, m_next, m_play})
        button->setEnabled(views.Size() > 0);
    m_play->setChecked(m_presentation.isPlaying());
    m_play->setGlyph(m_presentation.isPlaying() ? Glyph::Pause : Glyph::Play);
    m_full->setChecked(m_presentation.isFullScreen());
}

void PresentationMenu::fillList()
{
    QMenu &list = *m_list->menu();
    list.clear();
    const UDocItemList views = m_presentation.views();
    for (int i = 0; i < views.Size(); ++i) {
        QAction *action = list.addAction(titleOf(views[i]).replace(u'&', u"&&"_s));
        action->setCheckable(true);
        action->setChecked(i == m_presentation.index());
        connect(action, &QAction::triggered, &m_presentation,
                [&presentation = m_presentation, i] { presentation.show(i); });
    }
    if (views.Size() > 0)
        list.addSeparator();
    QAction *store = list.addAction(tr("&Store This View"));
    store->setEnabled(m_view && itemOf(m_view).IsValid());
    connect(store, &QAction::triggered, this, &PresentationMenu::storeView);
    QAction *manage = list.addAction(tr("&Edit Stored Views…"));
    connect(manage, &QAction::triggered, this, [this] {
        auto *dialog = new StoredViewsDialog(m_stored, m_view, window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
}

void PresentationMenu::storeView()
{
    if (m_view)
        navcontrols::storeView(m_stored, m_view, {});
}

} // namespace navcontrols
