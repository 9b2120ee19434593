// SPDX-License-Identifier: GPL-2.0-or-later
// Pie menus to try, on a plan; or as a picture in a file.
#include "Glyphs.h"
#include "PlanView.h"
#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLineParser>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/core/Translation.h>
#include <kelo_base/menus/ActionSectorMenu.h>
#include <memory>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

class Text
{
    Q_DECLARE_TR_FUNCTIONS(PieGallery)
};

struct Function
{
    const char *text; ///< to be translated
    const char *glyph;
};

constexpr Function kFunctions[] = {
    {QT_TRANSLATE_NOOP("PieGallery", "Zoom &in"),
     "o 10,10 6; 14.5,14.5 20,20; 7,10 13,10; 10,7 10,13"},
    {QT_TRANSLATE_NOOP("PieGallery", "Zoom &out"), "o 10,10 6; 14.5,14.5 20,20; 7,10 13,10"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Measure"),
     "3,16 16,3 21,8 8,21 3,16; 7,12 9,14; 10,9 13,12; 13,6 15,8"},
    {QT_TRANSLATE_NOOP("PieGallery", "&North up"), "12,3 17,20 12,16 7,20 12,3; 12,3 12,16"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Print"),
     "7,9 7,3 17,3 17,9; 7,17 3,17 3,9 21,9 21,17 17,17; 7,14 7,21 17,21 17,14 7,14"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Grid"),
     "3,3 21,3 21,21 3,21 3,3; 9,3 9,21; 15,3 15,21; 3,9 21,9; 3,15 21,15"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Bookmark"), "7,3 17,3 17,21 12,16 7,21 7,3"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Whole plan"),
     "3,8 3,3 8,3; 16,3 21,3 21,8; 21,16 21,21 16,21; 8,21 3,21 3,16; 9,9 15,9 15,15 9,15 9,9"},
    {QT_TRANSLATE_NOOP("PieGallery", "P&an"),
     "12,3 12,21; 3,12 21,12; 9,6 12,3 15,6; 9,18 12,21 15,18; 6,9 3,12 6,15; 18,9 21,12 18,15"},
    {QT_TRANSLATE_NOOP("PieGallery", "No&te"),
     "4,4 20,4 20,14 14,20 4,20 4,4; 14,20 14,14 20,14; 8,9 16,9; 8,13 11,13"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Copy"), "8,8 20,8 20,20 8,20 8,8; 8,16 4,16 4,4 16,4 16,8"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Undo"), "8,4 4,8 8,12; 4,8 15,8 20,12 20,15 16,19 9,19"},
};
constexpr Function kLayers[] = {
    {QT_TRANSLATE_NOOP("PieGallery", "&Streets"),
     "8,21 10,3; 16,21 14,3; 12,5 12,8; 12,11 12,14; 12,17 12,20"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Buildings"),
     "4,21 4,10 12,4 20,10 20,21 4,21; 10,21 10,14 14,14 14,21"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Water"),
     "3,8 7,6 11,8 15,6 21,8; 3,13 7,11 11,13 15,11 21,13; 3,18 7,16 11,18 15,16 21,18"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Trees"), "o 12,9 6; 12,9 12,21; 12,14 15,11"},
    {QT_TRANSLATE_NOOP("PieGallery", "&Heights"), "2,19 9,6 13,13 16,9 22,19 2,19"},
};
constexpr const char *kLayersGlyph = "12,3 21,8 12,13 3,8 12,3; 3,12 12,17 21,12; 3,16 12,21 21,16";
constexpr int kFirstLayerId = 100;
constexpr int kLayersAt = 2; ///< index of the sub-menu
const FilterByContextId kEverywhere(-1, -1, -1);

/// A registry and a menu of it with a sub-menu of layers.
class Gallery : public QObject
{
public:
    Gallery()
    {
        int id = 0;
        for (const Function &function : kFunctions)
            add(id++, function);
        id = kFirstLayerId;
        for (const Function &function : kLayers) {
            QAction *action = add(id++, function);
            action->setCheckable(true);
            action->setChecked(id % 2 == 1);
        }
        m_actions[5]->setCheckable(true);
        m_actions[5]->setChecked(true);
        m_actions[6]->setEnabled(false);
    }

    /// A menu of @p count items, the third of them the layers.
    void build(int count, int innerRadius, int outerRadius)
    {
        menu = std::make_unique<ActionSectorMenu>(m_manager, innerRadius, outerRadius);
        fill(*menu, 0, count - 1);
        auto layers =
            std::make_unique<ActionSectorMenu>(m_manager, innerRadius, outerRadius * 4 / 5);
        layers->setText(Text::tr("&Layers"));
        layers->setIcon(glyphIcon(kLayersGlyph));
        fill(*layers, kFirstLayerId, static_cast<int>(std::size(kLayers)));
        menu->insertItem(layers.release(), kLayersAt);
    }

    [[nodiscard]] const ActionManager &registry() const { return m_manager; }
    std::unique_ptr<ActionSectorMenu> menu;

private:
    QAction *add(int id, const Function &function)
    {
        m_actions.push_back(
            std::make_unique<QAction>(glyphIcon(function.glyph), Text::tr(function.text)));
        m_manager.RegisterAction(MakeActionData(id, 0, 0, m_actions.back().get(), false, 0));
        return m_actions.back().get();
    }
    static void fill(ActionSectorMenu &sectors, int firstId, int count)
    {
        ContextMenuLayout layout;
        layout.SetNumberOfSlots(static_cast<unsigned int>(count));
        for (int slot = 0; slot < count; ++slot)
            layout.AssignActionIdToSlot(static_cast<unsigned int>(slot), firstId + slot);
        sectors.fillByLayout(layout, kEverywhere);
    }

    std::vector<std::unique_ptr<QAction>> m_actions;
    ActionManager m_manager;
};

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 57), QColor(40, 40, 43));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::Highlight, QColor(61, 126, 204));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette contrastPalette()
{
    QPalette palette(Qt::black, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(63, 242, 63));
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}

int outerRadiusFor(int count)
{
    return count > 8 ? 190 : 150;
}

/// Moves the pointer into the direction of an item, somewhat beyond the ring, and clicks.
void click(QtPieMenu &menu, int item)
{
    const int count = menu.count();
    const double angle =
        (menu.indexToAngle(item, count, true) + menu.indexToAngle(item + 1, count, true)) / 2;
    const double distance = 1.15 * menu.outerRadius();
    const QPointF offset(distance * std::cos(angle), -distance * std::sin(angle));
    const QPointF pos = menu.rect().center() + offset;
    for (const auto type :
         {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, pos, menu.mapToGlobal(pos), Qt::LeftButton, Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&menu, &event);
    }
}

/// The menu on a plan as it opens, and beside it with its sub-menu open, as a picture in a file.
bool savePicture(Gallery &gallery, int count, const QString &path)
{
    constexpr int kMargin = 24;
    gallery.build(count, 40, outerRadiusFor(count));
    QtPieMenu &menu = *gallery.menu;
    QtPieMenu &layers = *menu.subMenuAt(kLayersAt);
    menu.popup(menu.screen()->geometry().center());
    menu.setHighlightedItem(0);
    const QPixmap first = menu.grab();
    click(menu, kLayersAt);
    layers.setHighlightedItem(3);

    const QPoint left(kMargin, kMargin);
    const QPoint right(left.x() + menu.width() + kMargin, kMargin);
    PlanView plan;
    plan.resize(right.x() + menu.width() + kMargin, menu.height() + 2 * kMargin);
    QPixmap picture = plan.grab();
    QPainter painter(&picture);
    painter.drawPixmap(left, first);
    painter.drawPixmap(right, menu.grab());
    painter.drawPixmap(right + layers.pos() - menu.pos(), layers.grab());
    painter.end();
    return picture.save(path);
}

int showWindow(Gallery &gallery, int count)
{
    QWidget window;
    window.setWindowTitle(Text::tr("Pie menus"));
    auto *column = new QVBoxLayout(&window);
    auto *row = new QHBoxLayout;
    auto *counts = new QComboBox;
    auto *aroundPointer = new QCheckBox(Text::tr("Sub-menus around the pointer"));
    auto *isAutomatic = new QCheckBox(Text::tr("Sub-menus at once"));
    auto *isFading = new QCheckBox(Text::tr("Fade in"));
    auto *hasDigits = new QCheckBox(Text::tr("Digits"));
    hasDigits->setChecked(true);
    auto *chosen = new QLabel(Text::tr("Press a mouse button on the plan, or the space bar."));
    auto *plan = new PlanView;
    for (const int items : {4, 8, 12})
        counts->addItem(Text::tr("%n items", nullptr, items), items);
    counts->setCurrentIndex(std::max(counts->findData(count), 0));
    for (QWidget *option : {static_cast<QWidget *>(counts), static_cast<QWidget *>(aroundPointer),
                            static_cast<QWidget *>(isAutomatic), static_cast<QWidget *>(isFading),
                            static_cast<QWidget *>(hasDigits)})
        row->addWidget(option);
    row->addStretch();
    column->addLayout(row);
    column->addWidget(plan, 1);
    column->addWidget(chosen);

    const auto rebuild = [&] {
        const int items = counts->currentData().toInt();
        gallery.build(items, 40, outerRadiusFor(items));
        gallery.menu->setSubMenuPlacement(aroundPointer->isChecked()
                                              ? QtPieMenu::SubMenuPlacement::AroundPointer
                                              : QtPieMenu::SubMenuPlacement::AtParent);
        gallery.menu->setAutoActivateSubMenus(isAutomatic->isChecked());
        gallery.menu->setFading(isFading->isChecked());
        gallery.menu->setDigitsShown(hasDigits->isChecked());
        gallery.menu->subMenuAt(kLayersAt)->setDigitsShown(hasDigits->isChecked());
        plan->setMenu(gallery.menu.get());
    };
    rebuild();
    QObject::connect(counts, &QComboBox::currentIndexChanged, &window, rebuild);
    for (QCheckBox *option : {aroundPointer, isAutomatic, isFading, hasDigits})
        QObject::connect(option, &QCheckBox::toggled, &window, rebuild);
    QObject::connect(&gallery.registry(), &ActionManager::afterActionTriggered, chosen,
                     [chosen](const QAction &action) { chosen->setText(action.iconText()); });
    window.resize(900, 700);
    window.show();
    plan->setFocus();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    InstallTranslation();
    QCommandLineParser parser;
    const QCommandLineOption items(u"items"_s, Text::tr("4, 8 or 12 items."), u"number"_s, u"8"_s);
    const QCommandLineOption theme(u"theme"_s, Text::tr("light, dark or contrast."), u"name"_s,
                                   u"light"_s);
    const QCommandLineOption picture(
        u"picture"_s, Text::tr("Save a picture instead of opening a window."), u"file"_s);
    parser.addOptions({items, theme, picture});
    parser.addHelpOption();
    parser.process(app);

    QApplication::setStyle(u"fusion"_s);
    const QString name = parser.value(theme);
    if (name != u"light"_s)
        QApplication::setPalette(name == u"dark"_s ? darkPalette() : contrastPalette());
    const int count = std::clamp(parser.value(items).toInt(), 3, 12);
    Gallery gallery;
    if (!parser.isSet(picture))
        return showWindow(gallery, count);
    return savePicture(gallery, count, parser.value(picture)) ? 0 : 1;
}
