// SPDX-License-Identifier: GPL-2.0-or-later
// A plan that is open: its sheets, and what is drawn around them.
#pragma once

#include "Backdrop.h"
#include "ScenePainting.h"
#include "SheetLayer.h"
#include <QObject>
#include <kelo_base/dxf/PlanSession.h>
#include <memory>

class BackdropReader;

class Plan : public QObject
{
    Q_OBJECT

public:
    explicit Plan(std::unique_ptr<PlanSession> session, QObject *parent = nullptr);
    ~Plan() override;

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
    void grown();        ///< there is more backdrop to be seen
    void backdropRead(); ///< all that there is
    void changed();      ///< something else is to be seen

private:
    std::unique_ptr<PlanSession> m_session;
    SheetLayer m_sheets;
    Backdrop m_backdrop;
    Scene m_scene;
    std::unique_ptr<BackdropReader> m_reader;
    bool m_hasBackdropBegun = false;
    bool m_isPlaced = false;
};
