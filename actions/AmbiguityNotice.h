// SPDX-License-Identifier: GPL-2.0-or-later
// Tells that keys did nothing because two functions have them.
#pragma once

#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <kelo_base/core/Export.h>
#include <set>
#include <utility>
#include <vector>

class ActionManager;
class QAction;
class QFrame;
class QWidget;

/// Watches the application for keys that would start a registered function and something else as
/// well: the toolkit then starts neither and says nothing. A small notice in the window names both,
/// and does so once for the same keys and functions. It takes no focus and stays until it is
/// closed. One for each application will do.
class KELO_BASE_EXPORT AmbiguityNotice : public QObject
{
    Q_OBJECT

public:
    /// @param manager  not owned; may die first
    explicit AmbiguityNotice(ActionManager &manager, QObject *parent = nullptr);
    ~AmbiguityNotice() override;

    /// Tells again what was told before; for when the configuration was changed.
    void Forget() { m_told.clear(); }
    /// The notice that is open; null when there is none. It belongs to its window.
    [[nodiscard]] QWidget *Notice() const;

signals:
    /// The user wants to set the keys of the function @p id.
    void configureRequested(int id);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] std::vector<int> liveWith(const QKeySequence &sequence) const;
    bool tell(const QKeySequence &sequence, const QAction *reached);
    void show(const QString &sentence, int id);
    void place() const;

    QPointer<ActionManager> m_manager;
    QPointer<QFrame> m_notice;
    std::set<std::pair<QKeySequence, std::vector<int>>> m_told;
};
