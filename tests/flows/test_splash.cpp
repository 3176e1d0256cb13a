// SPDX-License-Identifier: MIT
// The splash on a real display, while the program is busy loading.
#include "app/frm_splash.h"

#include <QtTest>

class TestSplash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isOnTheScreenBeforeLoadingGoesOn();
    void keyOrClickDuringLoadingClosesIt_data();
    void keyOrClickDuringLoadingClosesIt();
};

void TestSplash::isOnTheScreenBeforeLoadingGoesOn()
{
    frmSplash splash;
    splash.showPainted();
    const QImage window = splash.grab().toImage();
    QImage screen = QGuiApplication::primaryScreen()
                        ->grabWindow(0, splash.x(), splash.y(), splash.width(), splash.height())
                        .toImage();
    QCOMPARE(screen.convertToFormat(QImage::Format_RGB32),
             window.convertToFormat(QImage::Format_RGB32));
}

void TestSplash::keyOrClickDuringLoadingClosesIt_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("key") << "key a";
    QTest::newRow("click") << "click 1";
}

void TestSplash::keyOrClickDuringLoadingClosesIt()
{
    QFETCH(QString, action);
    frmSplash splash;
    splash.showPainted();
    splash.setProgressRange(0, 24000);
    const QPoint centre = splash.geometry().center();
    QVERIFY(QProcess::startDetached("xdotool", QStringList{"mousemove", QString::number(centre.x()),
                                                           QString::number(centre.y())} +
                                                   action.split(' ')));
    const QDeadlineTimer deadline(10000);
    int line = 0;
    while (splash.isVisible() && !deadline.hasExpired()) {
        splash.setProgress(++line % 24000);
    }
    QVERIFY(!splash.isVisible());
}

QTEST_MAIN(TestSplash)
#include "test_splash.moc"
