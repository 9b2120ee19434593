// SPDX-License-Identifier: GPL-2.0-or-later
// A bar on standard error that shows how far a long conversion has come.
#include "progressbar.h"
#include "system.h"
#include <algorithm>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

ProgressBar::ProgressBar(ProgressMode mode)
    : m_isOn(mode == ProgressMode::Always ||
             (mode == ProgressMode::Auto && systemcalls::isTerminal(fileno(stderr)))),
      m_showsFrom(mode == ProgressMode::Always ? 0 : 500)
{
    m_time.start();
}

void ProgressBar::show(QStringView step, qint64 done, qint64 total)
{
    constexpr qint64 kInterval = 100;
    if (!m_isOn)
        return;
    const qint64 now = m_time.elapsed();
    if (now < m_showsFrom || now < m_nextAt)
        return;
    m_nextAt = now + kInterval;
    m_isShown = true;
    std::fprintf(stderr, "\r%s", progressLine(step, done, total).toUtf8().constData());
    std::fflush(stderr);
}

void ProgressBar::clear()
{
    if (!m_isShown)
        return;
    m_isShown = false;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
}

QString progressLine(QStringView step, qint64 done, qint64 total)
{
    constexpr int kWidth = 30;
    if (total <= 0)
        return u"%1 %2 MB"_s.arg(step.toString().leftJustified(10)).arg(done / 1'000'000);
    const double share =
        std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0);
    const QString bar(static_cast<int>(share * kWidth), u'#');
    return u"%1 [%2] %3 %"_s.arg(step.toString().leftJustified(10), bar.leftJustified(kWidth))
        .arg(static_cast<int>(share * 100), 3);
}
