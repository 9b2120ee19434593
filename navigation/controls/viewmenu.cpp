// SPDX-License-Identifier: GPL-2.0-or-later
// The floating view menu: zoom, scale, viewing height, the eye, and a scale bar.
#include "navigation/controls/viewmenu_p.h"

#include "navigation/controls/manners_p.h"
#include "navigation/controls/readout_p.h"
#include "navigation/controls/scalebarwidget_p.h"
#include "navigation/controls/scaletext_p.h"
#include "navigation/controls/valuefield_p.h"
#include "navigation/controls/viewmoves_p.h"
#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <kelo_base/navigation/ViewGeometry.h>

using namespace Qt::Literals::StringLiterals;

namespace navcontrols {

namespace {

constexpr double kZoomStep = 1.5;

/// The name of the field beside it.
class RowLabel : public QWidget
{
public:
    RowLabel(const QString &text, QWidget *parent) : QWidget(parent), m_text(text)
    {
        setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    }
    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(m_text) + 8, 24};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        m_label.set(m_text, font());
        const double room = width() - m_label.size().width() - 4;
        QPainter painter(this);
        m_label.paint(painter,
                      {layoutDirection() == Qt::RightToLeft ? room : 4,
                       (height() - m_label.size().height()) / 2},
                      Halo(palette()));
    }

private:
    QString m_text;
    HaloText m_label;
};

QString numberText(double number, const QLocale &locale)
{
    return locale.toString(number, 'f', 0);
}

} // namespace

MenuHandle::MenuHandle(QWidget *parent)
    : NavButton(Glyph::Fold, ViewMenu::tr("Fold the view menu"), parent)
{
    setAccessibleDescription(ViewMenu::tr("Drag it to another corner of the view, or press Ctrl "
                                          "and an arrow key."));
    setToolTip(accessibleName() + u'\n' + accessibleDescription());
}

QPoint MenuHandle::inView(const QMouseEvent &event) const
{
    const QWidget *view = parentWidget()->parentWidget();
    return mapTo(view, event.position().toPoint());
}

void MenuHandle::mousePressEvent(QMouseEvent *event)
{
    NavButton::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        m_start = event->position();
    m_isMoving = false;
}

void MenuHandle::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_start)
        return NavButton::mouseMoveEvent(event);
    const QPointF way = event->globalPosition() - mapToGlobal(*m_start);
    m_isMoving |= way.manhattanLength() >= 2 * QApplication::startDragDistance();
    if (m_isMoving)
        emit draggedTo(inView(*event));
}

void MenuHandle::mouseReleaseEvent(QMouseEvent *event)
{
    m_start.reset();
    if (!m_isMoving)
        return NavButton::mouseReleaseEvent(event);
    m_isMoving = false;
    setDown(false);
    emit dropped(inView(*event));
}

void MenuHandle::keyPressEvent(QKeyEvent *event)
{
    const bool isArrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
    if (isArrow && event->modifiers().testFlag(Qt::ControlModifier))
        emit pushed(event->key());
    else
        NavButton::keyPressEvent(event);
}

ViewMenu::ViewMenu(Readout &readout, KView *view, Manners &manners)
    : QWidget(view),
      m_readout(readout),
      m_view(view),
      m_handle(new MenuHandle(this)),
      m_buttons(new QWidget(this)),
      m_body(new QWidget(this)),
      m_rows(new QGridLayout(m_body)),
      m_bar(new ScaleBarWidget(readout, m_body))
{
    setAccessibleName(tr("View menu"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    auto *header = new QHBoxLayout;
    header->setSpacing(0);
    header->addWidget(m_handle);
    header->addWidget(m_buttons);
    header->addStretch();
    column->addLayout(header);
    column->addWidget(m_body);
    m_rows->setContentsMargins({});
    m_rows->setSpacing(0);
    m_rows->setColumnStretch(1, 1);
    manners.watch(m_handle);
    addButtons(manners);
    addScaleAndHeight();
    addEye();
    m_rows->addWidget(m_bar, m_rows->rowCount(), 0, 1, 2, Qt::AlignLeading);
    manners.watch(m_bar);
    for (ValueField *field : m_fields)
        manners.watch(field);
    connect(&readout, &Readout::moved, this, [this] {
        if (isFolded() || !isVisible())
            return;
        m_bar->update();
        for (ValueField *field : m_fields)
            field->update();
    });
}

void ViewMenu::zoom(NavButton *button, double ratio)
{
    const QPointer<NavButton> alive(button);
    if (!zoomView(m_view, ratio) && alive)
        alive->hide(); // what the viewer does not offer is not shown
}

void ViewMenu::addButtons(Manners &manners)
{
    auto *row = new QHBoxLayout(m_buttons);
    row->setContentsMargins({});
    row->setSpacing(0);
    auto *closer = new NavButton(Glyph::ZoomIn, tr("Zoom in"), m_buttons);
    auto *farther = new NavButton(Glyph::ZoomOut, tr("Zoom out"), m_buttons);
    auto *page = new NavButton(Glyph::WholePage, tr("Whole page"), m_buttons);
    page->setToolTip(tr("Whole page; with Shift, upright"));
    for (NavButton *button : {closer, farther, page}) {
        row->addWidget(button);
        manners.watch(button);
    }
    closer->setAutoRepeat(true);
    farther->setAutoRepeat(true);
    connect(closer, &NavButton::clicked, this, [this, closer] { zoom(closer, 1 / kZoomStep); });
    connect(farther, &NavButton::clicked, this, [this, farther] { zoom(farther, kZoomStep); });
    connect(page, &NavButton::clicked, this, [this, page] {
        const bool isUpright = QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
        const QPointer<NavButton> alive(page);
        const auto turn =
            isUpright ? DocWindowXIfc::PageTurn::Upright : DocWindowXIfc::PageTurn::Keep;
        if (!showWholePage(m_view, turn) && alive)
            alive->hide();
    });
}

ValueField *ViewMenu::addField(const QString &name, const QString &help,
                               std::function<QString()> read,
                               std::function<bool(const QString &)> write, const QString &widest)
{
    auto *field = new ValueField(name, std::move(read), std::move(write), widest, m_body);
    field->setHelp(help);
    const int row = m_rows->rowCount();
    m_rows->addWidget(new RowLabel(name, m_body), row, 0);
    m_rows->addWidget(field, row, 1, Qt::AlignLeading);
    connect(field, &ValueField::left, this, &ViewMenu::left);
    m_fields.push_back(field);
    return field;
}

QString ViewMenu::scaleHelp() const
{
    const QString help = tr("A map scale, such as 1:5000 or 5000");
    const double scale = m_readout.scale();
    const int correction = GetZoomFactorCorrectionForScaleValue(scale, scale);
    return correction < 0 ? help : help + u'\n' + tr("Zoom correction: %1").arg(correction);
}

bool ViewMenu::enterScale(const QString &text)
{
    const auto scale = parseScale(text);
    const QPointer<ViewMenu> alive(this);
    if (!scale || !zoomToScale(m_view, *scale))
        return false;
    if (alive)
        emit scaleEntered(*scale);
    return true;
}

void ViewMenu::addScaleAndHeight()
{
    addField(
        tr("Scale"), scaleHelp(), [this] { return scaleText(m_readout.scale(), locale()); },
        [this](const QString &text) { return enterScale(text); }, u"1 : 88,888,888"_s);
    addField(
        tr("Height"), tr("Height above ground, in metres or with km"),
        [this] { return navcontrols::lengthText(m_readout.height(), locale()); },
        [this](const QString &text) {
            const auto metres = parseLength(text, locale());
            return metres && zoomToHeight(m_view, *metres);
        },
        u"88,888 km"_s);
}

/// Both are the process's and whole numbers, limited as the estimates do.
void ViewMenu::addEye()
{
    const auto whole = [this](const QString &text, QStringView unit, double low, double high) {
        const auto number = parseQuantity(text, unit, locale());
        const bool isUsable = number && *number >= low && *number <= high;
        return isUsable ? number : std::nullopt;
    };
    addField(
        tr("Field of view"), tr("Full opening angle of the eye, 1 to 179 degrees"),
        [this] { return numberText(DefaultFieldOfView(), locale()) + u'°'; },
        [this, whole](const QString &text) {
            const auto degrees = whole(text, u"°", 1, 179);
            if (degrees)
                SetDefaultFieldOfView(*degrees);
            if (degrees)
                emit eyeChanged();
            return degrees.has_value();
        },
        u"888°"_s);
    addField(
        tr("Eye distance"), tr("From the eye to the screen, 5 to 800 cm"),
        [this] { return numberText(DefaultEyeToMonitorDistance(), locale()) + u" cm"_s; },
        [this, whole](const QString &text) {
            const auto centimetres = whole(text, u"cm", 5, 800);
            if (centimetres)
                SetDefaultEyeToMonitorDistance(*centimetres);
            if (centimetres)
                emit eyeChanged();
            return centimetres.has_value();
        },
        u"888 cm"_s);
}

void ViewMenu::setFolded(bool isFolded)
{
    if (m_isFolded == isFolded)
        return;
    m_isFolded = isFolded;
    m_buttons->setVisible(!isFolded);
    m_body->setVisible(!isFolded && m_hasGeoReference);
    m_handle->setGlyph(isFolded ? Glyph::Unfold : Glyph::Fold);
    m_handle->setAccessibleName(isFolded ? tr("Unfold the view menu") : tr("Fold the view menu"));
    m_handle->setToolTip(m_handle->accessibleName() + u'\n' + m_handle->accessibleDescription());
}

QSize ViewMenu::unfoldedSize() const
{
    const QSize header(NavButton::kExtent + m_buttons->sizeHint().width(), NavButton::kExtent);
    if (!m_hasGeoReference)
        return header;
    const QSize body = m_body->sizeHint();
    return {std::max(header.width(), body.width()), header.height() + body.height()};
}

void ViewMenu::settle()
{
    m_hasGeoReference = m_readout.scale() > 0;
    m_body->setVisible(!isFolded() && m_hasGeoReference);
}

void ViewMenu::refresh()
{
    if (isFolded() || !isVisible())
        return;
    for (ValueField *field : m_fields)
        field->refresh();
    m_fields.front()->setHelp(scaleHelp());
}

} // namespace navcontrols
