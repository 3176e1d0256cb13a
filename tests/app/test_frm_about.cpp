// SPDX-License-Identifier: MIT
// The About box and its way to the system information tool.
#include "app/frm_about.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"
#include "tests/support/sandbox.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace
{

const QString pathKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString locationKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");

} // namespace

/// The box on a machine with a registry of its own.
class AboutBox
{
public:
    AboutBox() { box->show(); }

    void registerPath(const RegistryData &data)
    {
        outside.registry.setValue(RegistryHive::LocalMachine, pathKey, "PATH", data);
    }

    void registerLocation(const RegistryData &data)
    {
        outside.registry.setValue(RegistryHive::LocalMachine, locationKey, "MSINFO", data);
    }

    void press(const QString &button) const
    {
        QTest::mouseClick(findControl<QPushButton>(*box, button), Qt::LeftButton);
    }

    QString label(const QString &name) const { return findControl<QLabel>(*box, name)->text(); }

    /// The prompts of the boxes so far.
    QStringList prompts() const
    {
        QStringList texts;
        for (const MessageBox &message : outside.dialogs.boxes) {
            texts += message.prompt;
        }
        return texts;
    }

    Sandbox sandbox;
    FakeOutside outside;
    std::unique_ptr<frmAbout> box =
        std::make_unique<frmAbout>(outside.outside(), "Windows XP 5.1 Service Pack 2");
};

class TestFrmAbout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsProductVersionContactAndSystem();
    void labelsAreWideEnoughForTheirTexts();
    void okClosesIt();
    void enterAndEscapeCloseIt_data();
    void enterAndEscapeCloseIt();
    void registeredPathIsStartedAsANormalWindowWithoutWaiting();
    void pathWinsOverLocation();
    void locationIsUsedOnlyWhenTheToolStandsThere_data();
    void locationIsUsedOnlyWhenTheToolStandsThere();
    void numberBecomesHexadecimalText_data();
    void numberBecomesHexadecimalText();
    void numberAsLocationBecomesHexadecimalText();
    void emptyPathCountsAsNone();
    void valuesOfTheUserDoNotCount();
    void nothingRegisteredIsReported();
    void toolThatCannotBeStartedIsReported();
    void boxStaysOpenAfterSystemInfo();
    void everythingIsReachedByTab();
};

void TestFrmAbout::showsProductVersionContactAndSystem()
{
    const AboutBox about;
    QCOMPARE(about.box->objectName(), QString("frmAbout"));
    QCOMPARE(about.box->windowTitle(), QString("About Morlen Utilities"));
    QCOMPARE(about.label("lblVersion"), QString("Version 1.5.4"));
    QCOMPARE(about.label("lblTitle"), QString("Morlen Utilities"));
    QCOMPARE(about.label("lblContact"),
             QString("Ostrel\nHelp: see the Help menu, or Docs\\MorlenEHelp.htm in the program "
                     "folder"));
    QCOMPARE(about.label("lblOsVersion"),
             QString("Operating system: Windows XP 5.1 Service Pack 2"));
    QCOMPARE(findControl<QPushButton>(*about.box, "cmdOK")->text(), QString("OK"));
    QCOMPARE(findControl<QPushButton>(*about.box, "cmdSysInfo")->text(), QString("System Info..."));
    for (const QLabel *label : about.box->findChildren<QLabel *>()) {
        QCOMPARE(label->textFormat(), Qt::PlainText);
    }
}

void TestFrmAbout::labelsAreWideEnoughForTheirTexts()
{
    NEEDS(usualFonts);
    AboutBox about;
    frmAbout box(about.outside.outside(),
                 QString("Terminal Services is installed , ").repeated(12));
    box.show();
    for (const QLabel *label : box.findChildren<QLabel *>()) {
        const int height = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                      : label->sizeHint().height();
        QVERIFY2(label->height() >= height, qPrintable(label->objectName()));
        QVERIFY2(label->wordWrap() || label->width() >= label->sizeHint().width(),
                 qPrintable(label->objectName()));
    }
    QVERIFY(box.width() < 640);
}

void TestFrmAbout::okClosesIt()
{
    const AboutBox about;
    about.press("cmdOK");
    QVERIFY(!about.box->isVisible());
}

void TestFrmAbout::enterAndEscapeCloseIt_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void TestFrmAbout::enterAndEscapeCloseIt()
{
    QFETCH(int, key);
    const AboutBox about;
    QTest::keyClick(about.box.get(), static_cast<Qt::Key>(key));
    QVERIFY(!about.box->isVisible());
    QCOMPARE(about.prompts(), QStringList());
}

void TestFrmAbout::registeredPathIsStartedAsANormalWindowWithoutWaiting()
{
    AboutBox about;
    about.registerPath("C:\\Program Files\\MSInfo\\MSInfo32.exe");
    about.outside.processes.whileRunning = [] { QFAIL("somebody waits for the tool"); };
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started,
             QStringList{"C:\\Program Files\\MSInfo\\MSInfo32.exe"});
    QCOMPARE(about.outside.processes.windowStyles, QList<int>{1});
    QCOMPARE(about.prompts(), QStringList());
}

void TestFrmAbout::pathWinsOverLocation()
{
    AboutBox about;
    about.sandbox.write("C:\\Tools\\MSINFO32.EXE", "MZ");
    about.registerPath("C:\\One\\info.exe");
    about.registerLocation("C:\\Tools");
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started, QStringList{"C:\\One\\info.exe"});
}

void TestFrmAbout::locationIsUsedOnlyWhenTheToolStandsThere_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("started");
    const QStringList tool = {"C:\\Shared Tools\\MSINFO32.EXE"};
    QTest::newRow("there") << "C:\\Shared Tools\\MSINFO32.EXE" << tool;
    QTest::newRow("in another case") << "C:\\Shared Tools\\MSInfo32.exe" << tool;
    QTest::newRow("another tool") << "C:\\Shared Tools\\WINMSD.EXE" << QStringList();
    QTest::newRow("a folder of that name")
        << "C:\\Shared Tools\\MSINFO32.EXE\\readme.txt" << QStringList();
    QTest::newRow("elsewhere") << "C:\\MSINFO32.EXE" << QStringList();
}

void TestFrmAbout::locationIsUsedOnlyWhenTheToolStandsThere()
{
    QFETCH(QString, file);
    QFETCH(QStringList, started);
    AboutBox about;
    about.sandbox.write(file, "MZ");
    about.registerLocation("C:\\Shared Tools");
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started, started);
    QCOMPARE(about.prompts().isEmpty(), !started.isEmpty());
}

void TestFrmAbout::numberBecomesHexadecimalText_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("nought") << quint32(0) << "&h0";
    QTest::newRow("letters") << quint32(0x1ABC) << "&h1ABC";
    QTest::newRow("largest") << quint32(0xFFFFFFFF) << "&hFFFFFFFF";
}

void TestFrmAbout::numberBecomesHexadecimalText()
{
    QFETCH(quint32, number);
    QFETCH(QString, text);
    AboutBox about;
    about.registerPath(number);
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started, QStringList{text});
}

void TestFrmAbout::numberAsLocationBecomesHexadecimalText()
{
    AboutBox about;
    about.sandbox.write("C:\\Morlen\\&h2A\\MSINFO32.EXE", "MZ");
    about.registerLocation(quint32(42));
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started, QStringList{"&h2A\\MSINFO32.EXE"});
}

void TestFrmAbout::emptyPathCountsAsNone()
{
    AboutBox about;
    about.sandbox.write("C:\\Tools\\MSINFO32.EXE", "MZ");
    about.registerPath(QString());
    about.registerLocation("C:\\Tools");
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started, QStringList{"C:\\Tools\\MSINFO32.EXE"});
}

void TestFrmAbout::valuesOfTheUserDoNotCount()
{
    AboutBox about;
    about.outside.registry.setValue(RegistryHive::CurrentUser, pathKey, "PATH",
                                    QString("C:\\info.exe"));
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started, QStringList());
}

void TestFrmAbout::nothingRegisteredIsReported()
{
    const AboutBox about;
    about.press("cmdSysInfo");
    QCOMPARE(about.outside.processes.started, QStringList());
    QCOMPARE(about.prompts(), QStringList{"System Information Is Unavailable At This Time"});
    QCOMPARE(about.outside.dialogs.boxes[0].title, QString("Morlen Utilities"));
    QCOMPARE(about.outside.dialogs.boxes[0].buttons, MessageBox::Buttons::Ok);
    QCOMPARE(about.outside.dialogs.boxes[0].icon, MessageBox::Icon::None);
}

void TestFrmAbout::toolThatCannotBeStartedIsReported()
{
    AboutBox about;
    about.registerPath("C:\\Gone\\MSInfo32.exe");
    about.outside.processes.failure = RuntimeError(ErrorNumber::FileNotFound);
    about.press("cmdSysInfo");
    QCOMPARE(about.prompts(), QStringList{"System Information Is Unavailable At This Time"});
}

void TestFrmAbout::boxStaysOpenAfterSystemInfo()
{
    AboutBox about;
    about.press("cmdSysInfo");
    about.registerPath("C:\\info.exe");
    about.press("cmdSysInfo");
    QVERIFY(about.box->isVisible());
}

void TestFrmAbout::everythingIsReachedByTab()
{
    const AboutBox about;
    about.box->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(about.box.get()));
    QCOMPARE(about.box->focusWidget()->objectName(), QString("cmdOK"));
    QTest::keyClick(about.box.get(), Qt::Key_Tab);
    QCOMPARE(about.box->focusWidget()->objectName(), QString("cmdSysInfo"));
}

QTEST_MAIN(TestFrmAbout)
#include "test_frm_about.moc"
