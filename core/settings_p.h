// SPDX-License-Identifier: GPL-2.0-or-later
// Guards around QSettings groups and arrays: left on every way out, sizes from disk limited.
#pragma once

#include <QAnyStringView>
#include <QSettings>
#include <QVariant>
#include <algorithm>

/// Leaves the group when it goes out of scope.
class SettingsGroup
{
public:
    SettingsGroup(QSettings &settings, QAnyStringView group) : m_settings(settings)
    {
        m_settings.beginGroup(group.toString());
    }
    ~SettingsGroup() { m_settings.endGroup(); }
    Q_DISABLE_COPY_MOVE(SettingsGroup)

private:
    QSettings &m_settings;
};

/// Reads a stored array. A size that is more than people configure is taken for damage: then the
/// array ends with the last element that is stored.
class SettingsReadArray
{
public:
    /// Far above what people configure, far below what hurts.
    static constexpr int kMaxElements = 100'000;
    /// Sizes up to this are not doubted: elements that are missing cost little.
    static constexpr int kUndoubtedElements = 10'000;

    /// @param most  elements behind are not read
    SettingsReadArray(QSettings &settings, QAnyStringView array, int most = kMaxElements)
        : m_settings(settings), m_size(sizeOf(settings.beginReadArray(array.toString()), most))
    {
    }
    ~SettingsReadArray() { m_settings.endArray(); }
    Q_DISABLE_COPY_MOVE(SettingsReadArray)

    [[nodiscard]] unsigned int size() const { return m_size; }

    /// The value of @p key in element @p index, counted from 0; invalid when it is not stored.
    [[nodiscard]] QVariant value(unsigned int index, QAnyStringView key) const
    {
        m_settings.setArrayIndex(static_cast<int>(index));
        return m_settings.value(key.toString());
    }

private:
    [[nodiscard]] unsigned int sizeOf(int claimed, int most) const
    {
        if (claimed <= std::min(most, kUndoubtedElements))
            return static_cast<unsigned int>(std::max(claimed, 0));
        int last = 0;
        for (const QString &index : m_settings.childGroups())
            last = std::max(last, index.toInt());
        return static_cast<unsigned int>(std::min({claimed, last, most}));
    }

    QSettings &m_settings;
    unsigned int m_size;
};

/// Writes an array anew: what was stored under its name is removed first, so that a shorter array
/// leaves no stale elements behind. The size is that of the elements written.
class SettingsWriteArray
{
public:
    SettingsWriteArray(QSettings &settings, QAnyStringView array) : m_settings(settings)
    {
        m_settings.remove(array.toString());
        m_settings.beginWriteArray(array.toString());
    }
    ~SettingsWriteArray() { m_settings.endArray(); }
    Q_DISABLE_COPY_MOVE(SettingsWriteArray)

    /// Begins the next element; setValue() then writes into it.
    void nextElement() { m_settings.setArrayIndex(m_next++); }
    void setValue(QAnyStringView key, const QVariant &value)
    {
        m_settings.setValue(key.toString(), value);
    }

private:
    QSettings &m_settings;
    int m_next = 0;
};
