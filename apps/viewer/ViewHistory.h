// SPDX-License-Identifier: GPL-2.0-or-later
// The views before and after the present one.
#pragma once

#include "ViewPose.h"
#include <vector>

/// One step for each gesture, however many movements it was made of.
class ViewHistory
{
public:
    static constexpr std::size_t kMost = 200; ///< steps kept

    /// A gesture begins at @p pose; a gesture that is under way goes on.
    void begin(const ViewPose &pose)
    {
        if (!m_isMoving)
            m_begin = pose;
        m_isMoving = true;
    }
    /// The gesture ends at @p pose. One that led nowhere counts as none.
    void end(const ViewPose &pose)
    {
        if (m_isMoving && pose != m_begin) {
            if (m_before.size() == kMost)
                m_before.erase(m_before.begin());
            m_before.push_back(m_begin);
            m_after.clear();
        }
        m_isMoving = false;
    }
    [[nodiscard]] bool isMoving() const { return m_isMoving; }

    [[nodiscard]] bool hasBefore() const { return !m_before.empty(); }
    [[nodiscard]] bool hasAfter() const { return !m_after.empty(); }
    /// The view before @p pose, which is the next after it; @p pose itself when there is none.
    [[nodiscard]] ViewPose back(const ViewPose &pose) { return step(m_before, m_after, pose); }
    [[nodiscard]] ViewPose forth(const ViewPose &pose) { return step(m_after, m_before, pose); }

private:
    static ViewPose step(std::vector<ViewPose> &from, std::vector<ViewPose> &to,
                         const ViewPose &pose)
    {
        if (from.empty())
            return pose;
        to.push_back(pose);
        const ViewPose next = from.back();
        from.pop_back();
        return next;
    }

    std::vector<ViewPose> m_before;
    std::vector<ViewPose> m_after;
    ViewPose m_begin;
    bool m_isMoving = false;
};
