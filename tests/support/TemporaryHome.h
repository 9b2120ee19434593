// SPDX-License-Identifier: GPL-2.0-or-later
// A home directory of a test's own, so that nothing of the user's is read or written.
#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

/// Sets HOME and XDG_CONFIG_HOME while it lives; scripts/windows-run has Windows look there, too.
/// The test mode of the standard paths would not do: it leaves the documents folder where it is.
class TemporaryHome
{
public:
    TemporaryHome() : m_oldHome(qgetenv("HOME")), m_oldConfig(qgetenv("XDG_CONFIG_HOME"))
    {
        if (!m_dir.isValid())
            qFatal("no temporary directory: %s", qPrintable(m_dir.errorString()));
        qputenv("HOME", QFile::encodeName(QDir::toNativeSeparators(m_dir.path())));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral(".config"))));
    }
    ~TemporaryHome()
    {
        qputenv("HOME", m_oldHome);
        if (m_oldConfig.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", m_oldConfig);
    }
    Q_DISABLE_COPY_MOVE(TemporaryHome)

    [[nodiscard]] QString path() const { return m_dir.path(); }
    [[nodiscard]] QString filePath(const QString &name) const { return m_dir.filePath(name); }

private:
    QTemporaryDir m_dir;
    QByteArray m_oldHome;
    QByteArray m_oldConfig;
};
