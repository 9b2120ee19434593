// SPDX-License-Identifier: GPL-2.0-or-later
// Commands that go out to the partner program.
#pragma once

#include <kelo_base/core/Export.h>

#include <QPointF>
#include <QString>
#include <QStringList>

class QSettings;

/// What every outgoing command has: a name, and parameters as items of the form "Key:value".
/// Numbers are written with six decimals and a point, whatever the locale; of points x comes first,
/// then y behind a ";".
class KELO_BASE_EXPORT KeloIPCCommand
{
public:
    virtual ~KeloIPCCommand();
    [[nodiscard]] virtual QString GetCommandName() const = 0;
    /// Appends the kind's own items.
    virtual void SaveParameters(QStringList &parameters) const = 0;

    /// Whether the partner shall come to the front; false until set.
    void SetBringToFront(bool bringToFront) { m_bringToFront = bringToFront; }

    /// All items joined with ",": "BringToFront:0" or "BringToFront:1", then the kind's own.
    [[nodiscard]] QString GetParameterText() const;
    /// Writes "CommandType", "CommandId" and "Parameters" into the current group of @p settings.
    void SaveToSettings(QSettings &settings) const;

protected:
    KeloIPCCommand() = default;
    KeloIPCCommand(const KeloIPCCommand &) = default;
    KeloIPCCommand &operator=(const KeloIPCCommand &) = default;

private:
    bool m_bringToFront = false;
};

/// Asks the partner to show an area of the map.
class KELO_BASE_EXPORT MoveToPositionCommand : public KeloIPCCommand
{
public:
    void SetTopLeft(const QPointF &topLeft) { m_topLeft = topLeft; }
    void SetBottomRight(const QPointF &bottomRight) { m_bottomRight = bottomRight; }
    void SetCenter(const QPointF &center) { m_center = center; }
    /// In degrees.
    void SetNorthDeviation(double northDeviation) { m_northDeviation = northDeviation; }
    void SetViewingHeight(double viewingHeight) { m_viewingHeight = viewingHeight; }
    /// A file with polygons to show along with it; empty, as at first: none.
    void SetPolygonFilename(const QString &filename) { m_polygonFilename = filename; }

    [[nodiscard]] QString GetCommandName() const override;
    void SaveParameters(QStringList &parameters) const override;

private:
    QPointF m_topLeft; ///< map coordinates, as all points of commands
    QPointF m_bottomRight;
    QPointF m_center;
    double m_northDeviation = 0.0;
    double m_viewingHeight = 0.0;
    QString m_polygonFilename;
};

/// Asks the partner to show an object that was clicked.
class KELO_BASE_EXPORT MoveToObjectCommand : public KeloIPCCommand
{
public:
    void SetObjectId(const QString &objectId) { m_objectId = objectId; }
    void SetClickPosition(const QPointF &clickPosition) { m_clickPosition = clickPosition; }
    /// In degrees.
    void SetNorthDeviation(double northDeviation) { m_northDeviation = northDeviation; }
    void SetViewingHeight(double viewingHeight) { m_viewingHeight = viewingHeight; }

    [[nodiscard]] QString GetCommandName() const override;
    void SaveParameters(QStringList &parameters) const override;

private:
    QString m_objectId;
    QPointF m_clickPosition;
    double m_northDeviation = 0.0;
    double m_viewingHeight = 0.0;
};

/// Asks the partner to highlight the polygons in a file.
class KELO_BASE_EXPORT HighlightPolygonsCommand : public KeloIPCCommand
{
public:
    void SetPolygonFilename(const QString &filename) { m_polygonFilename = filename; }

    [[nodiscard]] QString GetCommandName() const override;
    void SaveParameters(QStringList &parameters) const override;

private:
    QString m_polygonFilename;
};
