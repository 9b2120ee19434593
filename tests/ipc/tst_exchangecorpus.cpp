// SPDX-License-Identifier: GPL-2.0-or-later
// The fuzzer's promises over its seeds, which hold whatever it has once found.
#include "fuzz/checkexchange.h"
#include <QtTest>

class TestExchangeCorpus : public QObject
{
    Q_OBJECT

private slots:
    void keepsItsPromises();
};

void TestExchangeCorpus::keepsItsPromises()
{
    const QFileInfoList seeds =
        QDir(QStringLiteral(KELO_EXCHANGE_CORPUS)).entryInfoList(QDir::Files);
    QVERIFY(!seeds.isEmpty());
    for (const QFileInfo &seed : seeds) {
        QFile file(seed.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        qInfo("%s", qPrintable(seed.fileName())); // the last one named is the one that failed
        const std::string bytes = file.readAll().toStdString();
        for (std::size_t size = 0; size <= bytes.size(); ++size)
            checkExchange({bytes.data(), size});
    }
}

QTEST_GUILESS_MAIN(TestExchangeCorpus)
#include "tst_exchangecorpus.moc"
