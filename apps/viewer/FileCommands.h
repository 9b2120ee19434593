// SPDX-License-Identifier: GPL-2.0-or-later
// The functions that read and write files.
#pragma once

#include <QObject>
#include <QString>

class MainWindow;
class PlanView;

class FileCommands : public QObject
{
    Q_OBJECT

public:
    explicit FileCommands(MainWindow &window);

    // Each writes the sheets of the plan in front, and tells what became of it. No effect without.
    void exportGk2(const QString &file);
    void exportTable(const QString &file);
    void savePicture(const QString &file);

private:
    void askAndOpen();
    void askAndExportGk2();
    void askAndExportTable();
    void askAndSavePicture();
    /// The plan's name with another ending, in its folder.
    [[nodiscard]] QString suggested(const QString &ending) const;

    MainWindow &m_window;
};
