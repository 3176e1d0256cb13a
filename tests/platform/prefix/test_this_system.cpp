// SPDX-License-Identifier: MIT
// What the host says of itself where Windows has its version record.
#include "app/cls_os.h"

#include <QSysInfo>
#include <QtTest>

class TestThisSystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itDescribesItself();
};

void TestThisSystem::itDescribesItself()
{
    const QString text = clsOS(systemVersion()).text();
    QVERIFY2(text.startsWith(QSysInfo::prettyProductName() + ", kernel "), qPrintable(text));
    const QStringList kernel = QSysInfo::kernelVersion().split('.');
    QVERIFY2(text.endsWith(' ' + kernel[0] + '.' + kernel[1].split('-')[0]), qPrintable(text));
}

QTEST_APPLESS_MAIN(TestThisSystem)
#include "test_this_system.moc"
