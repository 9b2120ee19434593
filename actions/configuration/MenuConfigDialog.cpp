// SPDX-License-Identifier: GPL-2.0-or-later
// The window around the pages, and the way of their work into force.
#include <kelo_base/actions/MenuConfigDialog.h>

#include "actions/configuration/configurationbar_p.h"
#include "actions/configuration/configurationfile_p.h"
#include "actions/configuration/contextmenupage_p.h"
#include "actions/configuration/importdialog_p.h"
#include "actions/configuration/shortcutoverview_p.h"
#include "actions/configuration/shortcutspage_p.h"
#include "actions/configuration/stylechoice_p.h"
#include "actions/configuration/workingcopy_p.h"
#include <QAccessible>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigManager.h>

using namespace Qt::Literals::StringLiterals;
using namespace menuconfig;

namespace {

// Names in the store: a format.
constexpr QLatin1StringView kGeometryKey{"MenuConfigDialog/Geometry"};
constexpr QLatin1StringView kColumnsKey{"MenuConfigDialog/Columns"};
constexpr QLatin1StringView kPageKey{"MenuConfigDialog/Page"};

constexpr QSize kFirstSize(980, 640); ///< where the screen has that much

MenuConfiguration configurationOf(const MenuConfigManager &manager, const ActionManager &actions)
{
    const ActionShortCutList &own = manager.GetKeyboardShortcutList();
    return {withOthersOf(actions, own, own), manager.GetContextMenuLayout()};
}

Surroundings surroundingsOf(const MenuConfigManager &manager, const ActionManager &actions)
{
    return {ActionCatalogue(actions), manager.GetDefaultKeyboardShortcutList(),
            manager.GetReservedSequenceList(), manager.GetBookmarkSequenceList()};
}

/// Empty when the user cancels, or @p parent is deleted meanwhile.
QString askForFile(QWidget *parent, QFileDialog::AcceptMode mode, const QString &title,
                   const QString &files, const QString &name = {})
{
    // Not on the stack: it is its parent's.
    const QPointer<QFileDialog> question = new QFileDialog(parent, title, QString(), files);
    question->setAcceptMode(mode);
    question->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                          : QFileDialog::AnyFile);
    question->selectFile(name);
    const bool isChosen = question->exec() == QDialog::Accepted && question;
    const QString path = isChosen ? question->selectedFiles().value(0) : QString();
    delete question.data();
    return path;
}

} // namespace

struct MenuConfigDialog::Parts
{
    Parts(MenuConfigDialog *owner, MenuConfigManager &menuManager, ActionManager &actionManager);

    void layOut();
    void connectAll();
    void lookAgain();
    void startAnew();
    [[nodiscard]] bool mayLeave();
    void say(const QString &sentence);
    void showState();
    void saveLayout();
    void restoreLayout();
    void importFile();
    void exportFile();
    void saveOverview();

    MenuConfigDialog *dialog;
    QPointer<MenuConfigManager> manager;
    QPointer<ActionManager> actions;
    WorkingCopy copy;
    ConfigurationBar *bar;
    StyleChoice *style;
    ShortcutsPage *shortcuts;
    ContextMenuPage *contextMenu;
    QTabWidget *pages;
    QLabel *message;
    QDialogButtonBox *buttons;
    QPushButton *undo = nullptr;
    QPushButton *redo = nullptr;
    QPushButton *exchange = nullptr;
    QTimer soon; ///< looks again, once for many registrations
    bool isApplying = false;
};

MenuConfigDialog::Parts::Parts(MenuConfigDialog *owner, MenuConfigManager &menuManager,
                               ActionManager &actionManager)
    : dialog(owner),
      manager(&menuManager),
      actions(&actionManager),
      copy(configurationOf(menuManager, actionManager)),
      bar(new ConfigurationBar(menuManager, actionManager, [this] { return mayLeave(); })),
      style(new StyleChoice(menuManager)),
      shortcuts(new ShortcutsPage(actionManager, copy)),
      contextMenu(new ContextMenuPage(actionManager, copy)),
      pages(new QTabWidget),
      message(new QLabel),
      buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply |
                                   QDialogButtonBox::Cancel))
{
    layOut();
    shortcuts->setSurroundings(surroundingsOf(menuManager, actionManager));
    connectAll();
    restoreLayout();
    showState();
}

void MenuConfigDialog::Parts::layOut()
{
    pages->addTab(shortcuts, MenuConfigDialog::tr("&Shortcuts"));
    pages->addTab(contextMenu, MenuConfigDialog::tr("Conte&xt Menu"));
    message->setObjectName(u"lblMessage"_s);
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    undo = buttons->addButton(MenuConfigDialog::tr("&Undo"), QDialogButtonBox::ResetRole);
    redo = buttons->addButton(MenuConfigDialog::tr("R&edo"), QDialogButtonBox::ResetRole);
    undo->setObjectName(u"btnUndo"_s);
    redo->setObjectName(u"btnRedo"_s);
    exchange = buttons->addButton(MenuConfigDialog::tr("Exchan&ge"), QDialogButtonBox::ActionRole);
    exchange->setObjectName(u"btnExchange"_s);
    auto *menu = new QMenu(exchange);
    menu->addAction(MenuConfigDialog::tr("&Import…"), dialog, [this] { importFile(); });
    menu->addAction(MenuConfigDialog::tr("&Export…"), dialog, [this] { exportFile(); });
    menu->addAction(MenuConfigDialog::tr("&Save Overview…"), dialog, [this] { saveOverview(); });
    exchange->setMenu(menu);
    for (QAbstractButton *button : buttons->buttons())
        qobject_cast<QPushButton *>(button)->setAutoDefault(false); // Return belongs to the field
    auto *top = new QHBoxLayout;
    top->addWidget(bar, 1);
    top->addWidget(style);
    auto *rows = new QVBoxLayout(dialog);
    rows->addLayout(top);
    rows->addWidget(pages, 1);
    rows->addWidget(message);
    rows->addWidget(buttons);
}

void MenuConfigDialog::Parts::connectAll()
{
    QUndoStack *const history = &copy.history();
    connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, dialog,
            &MenuConfigDialog::Apply);
    connect(undo, &QPushButton::clicked, history, &QUndoStack::undo);
    connect(redo, &QPushButton::clicked, history, &QUndoStack::redo);
    new QShortcut(QKeySequence::Undo, dialog, history, &QUndoStack::undo);
    new QShortcut(QKeySequence::Redo, dialog, history, &QUndoStack::redo);
    connect(history, &QUndoStack::indexChanged, dialog, [this] { showState(); });
    connect(history, &QUndoStack::cleanChanged, dialog, [this] { showState(); });

    connect(bar, &ConfigurationBar::switched, dialog, [this] { startAnew(); });
    connect(bar, &ConfigurationBar::reported, dialog, [this](const QString &text) { say(text); });
    connect(style, &StyleChoice::reported, dialog, [this](const QString &text) { say(text); });
    soon.setSingleShot(true);
    connect(&soon, &QTimer::timeout, dialog, [this] { lookAgain(); });
    connect(actions, &ActionManager::actionRegistered, dialog, [this] { soon.start(0); });
    connect(manager, &MenuConfigManager::changed, dialog, [this] {
        if (!isApplying)
            soon.start(0);
    });
    const auto forget = [this](const QString &sentence) {
        pages->setEnabled(false);
        say(sentence);
        showState();
    };
    connect(manager, &QObject::destroyed, dialog, [this, forget] {
        manager = nullptr; // this may come before the pointer is cleared
        forget(MenuConfigDialog::tr(
            "The menu configuration has gone; nothing can be applied any more."));
    });
    connect(actions, &QObject::destroyed, dialog, [this, forget] {
        actions = nullptr;
        copy.disconnect(contextMenu); // it needs the registry
        pages->removeTab(pages->indexOf(contextMenu));
        contextMenu->hide();
        contextMenu->deleteLater();
        forget(MenuConfigDialog::tr("The functions have gone; nothing can be applied any more."));
    });
}

/// What others changed meanwhile comes in as long as the user changed nothing.
void MenuConfigDialog::Parts::lookAgain()
{
    if (!manager || !actions)
        return;
    if (copy.history().count() == 0)
        copy.startWith(configurationOf(*manager, *actions));
    shortcuts->setSurroundings(surroundingsOf(*manager, *actions));
}

void MenuConfigDialog::Parts::startAnew()
{
    copy.startWith(configurationOf(*manager, *actions));
    shortcuts->setSurroundings(surroundingsOf(*manager, *actions));
}

/// Whether another configuration may take the place of this one: asks what becomes of the edits.
bool MenuConfigDialog::Parts::mayLeave()
{
    if (copy.history().isClean())
        return true;
    MenuConfigDialog *const owner = dialog; // it may die while it asks, and this with it
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Question, MenuConfigDialog::tr("Configuration"),
                        MenuConfigDialog::tr("Changes to “%1” have not been applied.")
                            .arg(manager->GetPlainConfigName()),
                        QMessageBox::Apply | QMessageBox::Discard | QMessageBox::Cancel, owner);
    box->setTextFormat(Qt::PlainText);
    const int answer = box->exec();
    if (!box)
        return false;
    box->deleteLater();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Apply && owner->Apply());
}

void MenuConfigDialog::Parts::say(const QString &sentence)
{
    message->setText(sentence);
    if (sentence.isEmpty())
        return;
    QAccessibleEvent alert(message, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void MenuConfigDialog::Parts::showState()
{
    const bool isAlive = manager && actions;
    const QUndoStack &history = copy.history();
    buttons->button(QDialogButtonBox::Ok)->setEnabled(isAlive);
    bar->setEnabled(isAlive);
    style->setEnabled(isAlive);
    exchange->setEnabled(isAlive);
    buttons->button(QDialogButtonBox::Apply)->setEnabled(isAlive && !history.isClean());
    undo->setEnabled(isAlive && history.canUndo());
    redo->setEnabled(isAlive && history.canRedo());
    undo->setToolTip(history.undoText());
    redo->setToolTip(history.redoText());
}

void MenuConfigDialog::Parts::saveLayout()
{
    QSettings *const store = manager ? manager->GetSettings() : nullptr;
    if (!store)
        return;
    store->setValue(kGeometryKey, dialog->saveGeometry());
    store->setValue(kPageKey, pages->currentIndex());
    QStringList widths; // plain numbers: a header may crash over a damaged state of its own
    for (int column = 0; column < shortcuts->tree().header()->count(); ++column)
        widths << QString::number(shortcuts->tree().columnWidth(column));
    store->setValue(kColumnsKey, widths);
}

void MenuConfigDialog::Parts::restoreLayout()
{
    dialog->resize(kFirstSize.boundedTo(dialog->screen()->availableSize() - QSize(16, 48)));
    const QSettings *const store = manager->GetSettings();
    if (!store)
        return;
    dialog->restoreGeometry(store->value(kGeometryKey).toByteArray());
    pages->setCurrentIndex(store->value(kPageKey, 0).toInt());
    const QStringList widths = store->value(kColumnsKey).toStringList();
    for (int column = 0; column < shortcuts->tree().header()->count(); ++column) {
        const int width = widths.value(column).toInt();
        if (width >= 20 && width <= 2000)
            shortcuts->tree().setColumnWidth(column, width);
    }
}

void MenuConfigDialog::Parts::importFile()
{
    const QPointer<MenuConfigDialog> alive(dialog); // this goes with it
    const QString path =
        askForFile(dialog, QFileDialog::AcceptOpen, MenuConfigDialog::tr("Import a Configuration"),
                   MenuConfigDialog::tr("Configurations (*.ini)"));
    if (!alive || path.isEmpty() || !manager || !actions)
        return;
    ConfigurationFile file = readConfigurationFile(path, manager->GetPlainConfigName());
    if (!file.error.isEmpty())
        return say(file.error);
    if (!file.hasLayout)
        file.configuration.layout = copy.current().layout;
    const Surroundings given = surroundingsOf(*manager, *actions);
    ImportDialog choice(planImport(copy.current(), file.configuration, given), given.catalogue,
                        nullptr);
    choice.setWindowModality(Qt::ApplicationModal);
    const bool isWanted = choice.exec() == QDialog::Accepted;
    if (!alive || !isWanted || !manager || !actions)
        return;
    if (readConfigurationFile(path, manager->GetPlainConfigName()).bytes != file.bytes)
        return say(MenuConfigDialog::tr("%1 is no longer as it was shown; nothing was imported.")
                       .arg(QDir::toNativeSeparators(path)));
    copy.edit(withImport(copy.current(), choice.plan(), given), MenuConfigDialog::tr("import"));
    say(QString());
}

void MenuConfigDialog::Parts::exportFile()
{
    const QString name = manager->GetPlainConfigName();
    const QPointer<MenuConfigDialog> alive(dialog); // this goes with it
    const QString path = askForFile(
        dialog, QFileDialog::AcceptSave, MenuConfigDialog::tr("Export the Configuration"),
        MenuConfigDialog::tr("Configurations (*.ini)"), name + ".ini"_L1);
    if (alive && !path.isEmpty())
        say(writeConfigurationFile(path, name, copy.current()));
}

void MenuConfigDialog::Parts::saveOverview()
{
    const QString name = manager->GetPlainConfigName();
    const QPointer<MenuConfigDialog> alive(dialog); // this goes with it
    const QString path =
        askForFile(dialog, QFileDialog::AcceptSave, MenuConfigDialog::tr("Save the Overview"),
                   MenuConfigDialog::tr("PDF or HTML (*.pdf *.html *.htm)"), name + ".pdf"_L1);
    if (alive && !path.isEmpty() && actions)
        say(saveShortcutOverview(path, ActionCatalogue(*actions), copy.current().shortcuts, name));
}

MenuConfigDialog::MenuConfigDialog(MenuConfigManager &manager, ActionManager &actions,
                                   QWidget *parent)
    : QDialog(parent), m_parts(std::make_unique<Parts>(this, manager, actions))
{
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setWindowTitle(tr("Configure Shortcuts and Menus"));
}

MenuConfigDialog::~MenuConfigDialog()
{
    if (isVisible())
        m_parts->saveLayout();
    delete m_parts->pages; // they work on the copy
}

void MenuConfigDialog::ShowAction(int id)
{
    m_parts->pages->setCurrentWidget(m_parts->shortcuts);
    m_parts->shortcuts->showAction(id);
}

void MenuConfigDialog::SetSectorPicture(
    std::function<QPixmap(const ContextMenuLayout &, QSize)> picture)
{
    if (m_parts->actions) // the page goes with the registry
        m_parts->contextMenu->setSectorPicture(std::move(picture));
}

bool MenuConfigDialog::Apply()
{
    Parts &parts = *m_parts;
    if (!parts.manager || !parts.actions)
        return false;
    const QPointer<QSettings> store = parts.manager->GetSettings();
    if (store && !store->isWritable()) {
        parts.say(tr("%1 cannot be written; nothing was applied.").arg(store->fileName()));
        return false;
    }
    // Listeners may delete anybody, this dialog too.
    const QPointer<MenuConfigDialog> alive(this);
    const MenuConfiguration wanted = parts.copy.current();
    const QPointer<MenuConfigManager> manager = parts.manager;
    const QPointer<ActionManager> actions = parts.actions;
    parts.isApplying = true;
    manager->AssignKeyboardShortcutList(wanted.shortcuts);
    if (manager)
        manager->AssignContextMenuLayout(wanted.layout);
    if (actions)
        SetupActionManagerFromKeyboardShortcutList(wanted.shortcuts, *actions);
    if (manager)
        manager->SaveToStorage();
    if (store)
        store->sync();
    const bool isStored = !store || store->status() == QSettings::NoError;
    if (!alive)
        return isStored;
    parts.isApplying = false;
    parts.copy.history().setClean();
    parts.say(isStored ? QString()
                       : tr("The shortcuts are in force, but %1 could not be written.")
                             .arg(store->fileName()));
    return isStored;
}

void MenuConfigDialog::accept()
{
    const QPointer<MenuConfigDialog> alive(this);
    if (Apply() && alive)
        QDialog::accept();
}

void MenuConfigDialog::done(int result)
{
    m_parts->saveLayout();
    QDialog::done(result);
}

void MenuConfigDialog::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && qobject_cast<QLineEdit *>(focusWidget()))
        return; // it was the field's; the button box would press OK
    QDialog::keyPressEvent(event);
}
