// SPDX-License-Identifier: MIT
// The boxes as the user sees them.
#include "platform/controls/system_dialogs.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QDirIterator>
#include <QFileDialog>
#include <QTimer>
#include <QtTest>

class TestSystemDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileDialogLeavesTheUsersHomeAlone();
};

void TestSystemDialogs::fileDialogLeavesTheUsersHomeAlone()
{
    const QByteArray others = "[FileDialog]\nshortcuts=file:///home/me/of-another-program\n";
    const Sandbox sandbox;
    const QTemporaryDir home;
    const Environment folder("HOME", QFile::encodeName(home.path()));
    const Environment config("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
    QFile store(home.filePath("QtProject.conf"));
    QVERIFY(store.open(QIODevice::ReadWrite));
    store.write(others);
    store.close();

    sandbox.write("C:\\TTools\\Airport_Set.txt", "");
    QTimer::singleShot(0, qApp, [&] {
        auto *const dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        dialog->selectFile(sandbox.host("C:\\TTools\\Airport_Set.txt"));
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    QCOMPARE(SystemDialogs().openFile({"Text Files (*.txt)|*.txt|", "C:\\TTools"}),
             QString("C:\\TTools\\Airport_Set.txt"));

    QVERIFY(store.open(QIODevice::ReadOnly));
    QCOMPARE(store.readAll(), others);
    QDirIterator files(home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    QCOMPARE(files.next(), store.fileName());
    QVERIFY(!files.hasNext());
}

QTEST_MAIN(TestSystemDialogs)
#include "test_system_dialogs.moc"
