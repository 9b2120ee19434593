// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps the parts of a plan together.
#include "Plan.h"

#include "BackdropReader.h"
#include <kelo_base/dxf/DxfDrawing.h>
#include <utility>

Plan::Plan(std::unique_ptr<PlanSession> session, QObject *parent)
    : QObject(parent), m_session(std::move(session)), m_sheets(*m_session)
{
    m_scene.sheets = &m_sheets;
    m_scene.backdrop = &m_backdrop;
    m_scene.readable = [this](const QByteArray &text) {
        return m_session->Drawing().DisplayText(
            std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
    };
}

Plan::~Plan() = default;

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
    m_reader = std::make_unique<BackdropReader>(path(), m_backdrop);
    connect(m_reader.get(), &BackdropReader::grown, this, &Plan::grown);
    connect(m_reader.get(), &BackdropReader::finished, this, [this] {
        m_reader.release()->deleteLater(); // it is at work right now
        emit backdropRead();
    });
}

void Plan::cancelBackdrop()
{
    m_reader.reset();
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
    AnalysisOptions options;
    options.appliesPlacement = isPlaced;
    const bool isDone = m_session->Relabel(options);
    if (isDone)
        m_isPlaced = isPlaced;
    m_sheets.build();
    emit changed();
    return isDone;
}
