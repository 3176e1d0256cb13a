// SPDX-License-Identifier: MIT
// The window that is shown while the program loads.
#include "app/frm_splash.h"
#include "tests/support/find_control.h"

#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QtTest>

class TestFrmSplash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsVersionAndProduct();
    void isPaintedWhenShown();
    void isAFrameWithoutATitleBar();
    void aKeyClosesIt_data();
    void aKeyClosesIt();
    void aClickOnTheFrameClosesIt_data();
    void aClickOnTheFrameClosesIt();
    void closingItDoesNotEndTheProgram();
    void progressFillsTheBar();
    void statusIsShownAsPlainText();
    void longStatusDoesNotResizeTheWindow();
    void reportsAreShownAtMostThirtyTimesASecond();
    void valueBeyondTheMaximumFillsTheBarAndGoesOn();
    void valueBelowTheMinimumLeavesTheBarEmpty();
    void reportsToAClosedSplashLeaveItClosed();
};

void TestFrmSplash::showsVersionAndProduct()
{
    const frmSplash splash;
    QCOMPARE(splash.objectName(), QString("frmSplash"));
    QCOMPARE(findControl<QLabel>(splash, "lblVersion")->text(), QString("Version 1.5.4"));
    QCOMPARE(findControl<QLabel>(splash, "lblTitle")->text(), QString("Morlen Utilities"));
    for (const QLabel *label : splash.findChildren<QLabel *>()) {
        QCOMPARE(label->textFormat(), Qt::PlainText);
    }
}

void TestFrmSplash::isPaintedWhenShown()
{
    struct Painted : QObject {
        bool eventFilter(QObject * /*watched*/, QEvent *event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }

        int count = 0;
    } painted;

    frmSplash splash;
    findControl<QLabel>(splash, "lblTitle")->installEventFilter(&painted);
    splash.showPainted();
    QVERIFY(splash.isVisible());
    QVERIFY(painted.count > 0);
}

void TestFrmSplash::isAFrameWithoutATitleBar()
{
    frmSplash splash;
    splash.showPainted();
    QCOMPARE(splash.windowType(), Qt::SplashScreen);
    QVERIFY(splash.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(findControl<QFrame>(splash, "Frame1")->geometry(), splash.rect());
}

void TestFrmSplash::aKeyClosesIt_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("letter") << int(Qt::Key_A);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("blank") << int(Qt::Key_Space);
}

void TestFrmSplash::aKeyClosesIt()
{
    QFETCH(int, key);
    frmSplash splash;
    splash.showPainted();
    QTest::keyPress(&splash, static_cast<Qt::Key>(key));
    QVERIFY(!splash.isVisible());
}

void TestFrmSplash::aClickOnTheFrameClosesIt_data()
{
    QTest::addColumn<QString>("control");
    for (const char *name : {"Frame1", "lblTitle", "lblStatus", "ProgressBar1"}) {
        QTest::newRow(name) << name;
    }
}

void TestFrmSplash::aClickOnTheFrameClosesIt()
{
    QFETCH(QString, control);
    frmSplash splash;
    splash.showPainted();
    auto *const clicked = findControl<QWidget>(splash, control);
    QTest::mousePress(clicked, Qt::LeftButton, {}, {3, 3});
    QVERIFY(splash.isVisible());
    QTest::mouseRelease(clicked, Qt::LeftButton, {}, {3, 3});
    QVERIFY(!splash.isVisible());
}

void TestFrmSplash::closingItDoesNotEndTheProgram()
{
    const QSignalSpy ended(qApp, &QGuiApplication::lastWindowClosed);
    frmSplash splash;
    splash.showPainted();
    QTimer::singleShot(0, &splash, [&] {
        QTest::keyPress(&splash, Qt::Key_A);
        QCoreApplication::exit();
    });
    QCoreApplication::exec(); // windows that are closed count only while the program runs
    QVERIFY(!splash.isVisible());
    QCOMPARE(ended.count(), 0);
}

void TestFrmSplash::progressFillsTheBar()
{
    frmSplash splash;
    splash.showPainted();
    splash.setProgressRange(0, 24000);
    const auto *const bar = findControl<QProgressBar>(splash, "ProgressBar1");
    QCOMPARE(bar->minimum(), 0);
    QCOMPARE(bar->maximum(), 24000);
    QCOMPARE(bar->value(), 0);
    const QDeadlineTimer deadline(5000);
    while (bar->value() != 12000 && !deadline.hasExpired()) {
        splash.setProgress(12000); // shown as soon as it is due
    }
    QCOMPARE(bar->value(), 12000);
    splash.setProgress(24000); // a full bar is shown at once
    QCOMPARE(bar->value(), 24000);
}

void TestFrmSplash::statusIsShownAsPlainText()
{
    frmSplash splash;
    splash.showPainted();
    splash.setStatus("Loading....");
    QCOMPARE(findControl<QLabel>(splash, "lblStatus")->text(), QString("Loading...."));
    QVERIFY(findControl<QLabel>(splash, "lblStatus")->isVisible());
    splash.setStatus("<b>&A</b>");
    QCOMPARE(findControl<QLabel>(splash, "lblStatus")->text(), QString("<b>&A</b>"));
    QCOMPARE(findControl<QLabel>(splash, "lblStatus")->textFormat(), Qt::PlainText);
}

void TestFrmSplash::longStatusDoesNotResizeTheWindow()
{
    frmSplash splash;
    splash.showPainted();
    const QSize size = splash.size();
    const QRect bar = findControl<QProgressBar>(splash, "ProgressBar1")->geometry();
    splash.setStatus(QString("Loading a long name ").repeated(50));
    QCoreApplication::processEvents();
    QCOMPARE(splash.size(), size);
    QCOMPARE(findControl<QProgressBar>(splash, "ProgressBar1")->geometry(), bar);
}

void TestFrmSplash::reportsAreShownAtMostThirtyTimesASecond()
{
    QElapsedTimer time;
    time.start();
    frmSplash splash;
    splash.showPainted();
    splash.setProgressRange(0, 24000);
    const QSignalSpy shown(findControl<QProgressBar>(splash, "ProgressBar1"),
                           &QProgressBar::valueChanged);
    for (int line = 1; line < 24000; ++line) {
        splash.setProgress(line);
        splash.setStatus("Loading....");
    }
    QVERIFY2(shown.count() <= time.elapsed() / 33,
             qPrintable(QString("%1 in %2 ms").arg(shown.count()).arg(time.elapsed())));
}

void TestFrmSplash::valueBeyondTheMaximumFillsTheBarAndGoesOn()
{
    frmSplash splash;
    splash.showPainted();
    splash.setProgressRange(0, 24000);
    for (int line = 23990; line <= 30000; ++line) {
        splash.setProgress(line);
    }
    const auto *const bar = findControl<QProgressBar>(splash, "ProgressBar1");
    QCOMPARE(bar->value(), 24000);
    QCOMPARE(bar->maximum(), 24000);
    QVERIFY(splash.isVisible());
}

void TestFrmSplash::valueBelowTheMinimumLeavesTheBarEmpty()
{
    frmSplash splash;
    splash.setProgressRange(10, 20);
    splash.setProgress(-5);
    const auto *const bar = findControl<QProgressBar>(splash, "ProgressBar1");
    QCOMPARE(bar->value(), 10);
    splash.setProgress(20);
    QCOMPARE(bar->value(), 20);
}

void TestFrmSplash::reportsToAClosedSplashLeaveItClosed()
{
    frmSplash splash;
    splash.showPainted();
    QTest::keyPress(&splash, Qt::Key_A);
    splash.setProgressRange(0, 24000);
    splash.setStatus("Loading....");
    for (int line = 1; line <= 24000; ++line) {
        splash.setProgress(line);
    }
    QVERIFY(!splash.isVisible());
}

QTEST_MAIN(TestFrmSplash)
#include "test_frm_splash.moc"
