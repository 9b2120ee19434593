// SPDX-License-Identifier: GPL-2.0-or-later
// The fuzzer's promises over its seeds, which hold whatever it has once found.
#include "fuzz/checkplan.h"
#include <QtTest>

class TestPlanCorpus : public QObject
{
    Q_OBJECT

private slots:
    void keepsItsPromises();
};

void TestPlanCorpus::keepsItsPromises()
{
    const QFileInfoList seeds = QDir(QStringLiteral(KELO_PLAN_CORPUS)).entryInfoList(QDir::Files);
    QVERIFY(!seeds.isEmpty());
    for (const QFileInfo &seed : seeds) {
        QFile file(seed.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        qInfo("%s", qPrintable(seed.fileName())); // the last one named is the one that failed
        checkPlan(file.readAll().toStdString());
    }
}

QTEST_GUILESS_MAIN(TestPlanCorpus)
#include "tst_plancorpus.moc"
