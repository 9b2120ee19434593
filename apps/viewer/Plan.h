// SPDX-License-Identifier: GPL-2.0-or-later
// A plan that is open: its sheets, and what is drawn around them.
#pragma once

#include "Backdrop.h"
#include "ScenePainting.h"
#include "SheetLayer.h"
#include <QObject>
#include <kelo_base/dxf/PlanSession.h>
#include <memory>
#include <optional>

class BackdropReader;

class Plan : public QObject
{
    Q_OBJECT

public:
    explicit Plan(std::unique_ptr<PlanSession> session, QObject *parent = nullptr);
    ~Plan() override;
    /// The file was read again: shows the sheets it has now. What was drawn around the former ones
    /// stays until readBackdrop() has read that, too.
    void renew(std::unique_ptr<PlanSession> session);

    [[nodiscard]] QString path() const { return m_session->Path(); }
    [[nodiscard]] QString name() const { return m_session->Name(); }
    [[nodiscard]] const PlanSession &session() const { return *m_session; }
    [[nodiscard]] const SheetLayer &sheets() const { return m_sheets; }
    [[nodiscard]] const Backdrop &backdrop() const { return m_backdrop; }
    [[nodiscard]] const Scene &scene() const { return m_scene; }
    /// Of all there is to be seen; a rectangle of 1 km when that is nothing.
    [[nodiscard]] QRectF bounds() const;

    /// Begins to read what is drawn around the sheets. To be called when they are seen; once.
    void readBackdrop();
    /// Null when it is read, or not begun.
    [[nodiscard]] BackdropReader *backdropReader() const { return m_reader.get(); }
    void cancelBackdrop();

    [[nodiscard]] bool isBackdropShown() const { return m_scene.backdrop != nullptr; }
    void setBackdropShown(bool isShown);
    /// Whether sheets lie where their inserts put them.
    [[nodiscard]] bool isPlaced() const { return m_isPlaced; }
    /// False, and nothing changed, when memory does not suffice.
    bool setPlaced(bool isPlaced);

signals:
    void grown();            ///< there is more backdrop to be seen
    void backdropProgress(); ///< it is read on, seen or not
    void backdropRead();     ///< all that there is
    void renewed();          ///< sheets or backdrop were read again: much the same is to be seen
    void changed();          ///< something else is to be seen

private:
    void tellGrowth();
    void finishBackdrop();
    void showNextBackdrop();
    bool relabel(bool isPlaced);

    std::unique_ptr<PlanSession> m_session;
    SheetLayer m_sheets;
    Backdrop m_backdrop;
    std::optional<Backdrop> m_nextBackdrop; ///< read while the other one is seen
    Scene m_scene;
    std::unique_ptr<BackdropReader> m_reader;
    bool m_hasBackdropBegun = false;
    bool m_isPlaced = false;
};
