// SPDX-License-Identifier: GPL-2.0-or-later
// What the older toolkit had and the present one has not, as far as the SVG module uses it.
#pragma once

#include <QFont>
#include <QString>
#include <QStringView>

/// Part of a string. It stands for the string as well: that a part begins at 0 of itself is as good
/// as where it begins in the whole.
class QStringRef : public QStringView
{
public:
    QStringRef() = default;
    QStringRef(QStringView view) : QStringView(view) {}
    QStringRef(const QString *text) : QStringView(*text) {}
    template <typename Text>
    QStringRef(const Text *text, qsizetype from, qsizetype count)
        : QStringView(QStringView(*text).mid(from, count))
    {
    }
    operator QString() const { return toString(); }
    const QStringRef *string() const { return this; }
    qsizetype position() const { return 0; }
    /// Of an empty part, too, there is a character to look at: the NUL behind it.
    const QChar *data() const
    {
        static constexpr QChar nul;
        return isNull() ? &nul : QStringView::data();
    }
    const QChar *constData() const { return data(); }
    const QChar *unicode() const { return data(); }
};

/// A string that reads as a part of one.
class QXmlStreamStringRef : public QString
{
public:
    QXmlStreamStringRef() = default;
    QXmlStreamStringRef(const QString &text) : QString(text) {}
    operator QStringRef() const { return QStringRef(QStringView(*this)); }
};
