// SPDX-License-Identifier: GPL-2.0-or-later
// Shows the style sheets by their names and puts the chosen one into force.
#include "actions/configuration/stylechoice_p.h"

#include "actions/configuration/menuconfigtexts_p.h"
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QSettings>
#include <kelo_base/actions/StyleSheet.h>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

StyleChoice::StyleChoice(MenuConfigManager &manager, QWidget *parent)
    : QWidget(parent), m_manager(&manager), m_files(new QComboBox)
{
    m_files->setObjectName(u"cmbStyleSheet"_s);
    auto *label = new QLabel(tr("Sty&le sheet:"));
    label->setBuddy(m_files);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(m_files);
    connect(m_files, &QComboBox::activated, this, &StyleChoice::choose);
    fill();
    if (m_files->count() == 1)
        hide();
}

QString StyleChoice::stored() const
{
    const QSettings *const store = m_manager ? m_manager->GetSettings() : nullptr;
    return store ? StoredStyleSheet(*store) : QString();
}

/// A stored one that has gone is among them, so that the user can leave it.
void StyleChoice::fill()
{
    QStringList files = StyleSheetFiles();
    if (!stored().isEmpty() && !files.contains(stored()))
        files << stored();
    m_files->clear();
    m_files->addItem(tr("none", "style sheet"), QString());
    for (const QString &file : files)
        m_files->addItem(QFileInfo(file).completeBaseName(), file);
    m_files->setCurrentIndex(m_files->findData(stored()));
}

void StyleChoice::choose()
{
    const QString file = m_files->currentData().toString();
    const QString fault = UseStyleSheet(file);
    QSettings *const store = m_manager ? m_manager->GetSettings() : nullptr;
    if (fault.isEmpty() && store)
        StoreStyleSheet(*store, file);
    if (!fault.isEmpty())
        fill();
    emit reported(fault.isEmpty() && store ? Texts::sync(*store) : fault);
}

} // namespace menuconfig
