// SPDX-License-Identifier: GPL-2.0-or-later
// Gives one function another shortcut: recorded or typed, with what stands in its way.
#pragma once

#include <QKeySequence>
#include <QWidget>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace menuconfig {

class ShortcutModel;
class StrokeRecorder;
class WorkingCopy;

class ShortcutEditor : public QWidget
{
    Q_OBJECT

public:
    /// @param model, copy  outlive the editor
    ShortcutEditor(ShortcutModel &model, WorkingCopy &copy, QWidget *parent = nullptr);

    /// The function that is worked on; what was begun for another is dropped.
    void setAction(std::optional<int> id);
    void startRecording();
    void removeShortcut();

private:
    void toggleRecording();
    void readText();
    void finish();
    void assign(const QKeySequence &sequence);
    void reassign();
    void restore();
    void consider(std::optional<QKeySequence> sequence);
    void say(const QString &sentence);
    [[nodiscard]] QPushButton *addButton(const QString &name, const QString &text,
                                         void (ShortcutEditor::*slot)());
    void keep();
    void layOut();

    ShortcutModel &m_model;
    WorkingCopy &m_copy;
    std::optional<int> m_id;
    std::optional<QKeySequence> m_wanted; ///< nothing when the text cannot be read
    QLabel *m_title;
    QLineEdit *m_field;
    StrokeRecorder *m_recorder;
    QLabel *m_sentence;
    QPushButton *m_record = nullptr;
    QPushButton *m_assign = nullptr;
    QPushButton *m_reassign = nullptr;
    QPushButton *m_keep = nullptr;
    QPushButton *m_cancel = nullptr;
    QPushButton *m_remove = nullptr;
};

} // namespace menuconfig
