// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps the parts of a plan together.
#include "Plan.h"

#include "BackdropReader.h"
#include <QPointer>
#include <kelo_base/dxf/DxfDrawing.h>
#include <utility>

Plan::Plan(std::unique_ptr<PlanSession> session, QObject *parent)
    : QObject(parent), m_session(std::move(session))
{
    m_sheets.build(*m_session);
    m_scene.sheets = &m_sheets;
    m_scene.backdrop = &m_backdrop;
    m_scene.readable = [this](const QByteArray &text) {
        return m_session->Drawing().DisplayText(
            std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
    };
}

Plan::~Plan() = default;

void Plan::renew(std::unique_ptr<PlanSession> session)
{
    m_reader.reset();
    m_nextBackdrop.reset();
    m_session = std::move(session);
    m_isPlaced = m_isPlaced && relabel(true);
    m_sheets.build(*m_session);
    m_hasBackdropBegun = false;
    emit renewed();
}

QRectF Plan::bounds() const
{
    MapBounds all = m_sheets.bounds();
    all.add(m_backdrop.bounds());
    return all.isEmpty() ? QRectF(0, 0, 1000, 1000) : all.rect();
}

void Plan::readBackdrop()
{
    if (path().isEmpty() || std::exchange(m_hasBackdropBegun, true))
        return;
    if (m_backdrop.count() > 0)
        m_nextBackdrop.emplace();
    else
        m_backdrop = {}; // an interrupted reader may have left what is not packed
    m_reader =
        std::make_unique<BackdropReader>(path(), m_nextBackdrop ? *m_nextBackdrop : m_backdrop);
    connect(m_reader.get(), &BackdropReader::grown, this, &Plan::tellGrowth);
    connect(m_reader.get(), &BackdropReader::finished, this, &Plan::finishBackdrop);
}

void Plan::tellGrowth()
{
    const QPointer<Plan> alive(this);
    emit backdropProgress();
    if (alive && !m_nextBackdrop)
        emit grown();
}

void Plan::finishBackdrop()
{
    m_reader.release()->deleteLater(); // it is at work right now
    const QPointer<Plan> alive(this);
    showNextBackdrop();
    if (alive)
        emit backdropRead();
}

void Plan::showNextBackdrop()
{
    if (!m_nextBackdrop)
        return;
    m_backdrop = std::move(*m_nextBackdrop);
    m_nextBackdrop.reset();
    emit renewed();
}

/// Of one that is read again, the former stays.
void Plan::cancelBackdrop()
{
    m_reader.reset();
    m_nextBackdrop.reset();
    m_backdrop.finish();
    emit backdropRead();
}

void Plan::setBackdropShown(bool isShown)
{
    if (isShown == isBackdropShown())
        return;
    m_scene.backdrop = isShown ? &m_backdrop : nullptr;
    emit changed();
}

bool Plan::setPlaced(bool isPlaced)
{
    if (isPlaced == m_isPlaced)
        return true;
    const bool isDone = relabel(isPlaced);
    if (isDone)
        m_isPlaced = isPlaced;
    m_sheets.build(*m_session);
    emit changed();
    return isDone;
}

bool Plan::relabel(bool isPlaced)
{
    AnalysisOptions options;
    options.appliesPlacement = isPlaced;
    return m_session->Relabel(options);
}
