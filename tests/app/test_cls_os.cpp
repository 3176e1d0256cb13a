// SPDX-License-Identifier: MIT
// What the releases of Windows are called, by their version records.
#include "app/cls_os.h"

#include <QtTest>

Q_DECLARE_METATYPE(SystemVersion)

namespace
{

SystemVersion release(int platform, int major, int minor, const QString &servicePack = {})
{
    SystemVersion system;
    system.platform = platform;
    system.majorVersion = major;
    system.minorVersion = minor;
    system.servicePackText = servicePack;
    return system;
}

/// A Windows 2000 of some kind.
SystemVersion windows2000(std::uint32_t suites, int product)
{
    SystemVersion system = release(2, 5, 0);
    system.suiteMask = suites;
    system.productType = product;
    return system;
}

} // namespace

class TestClsOs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void releaseIsNamedByItsPublishedNumbers_data();
    void releaseIsNamedByItsPublishedNumbers();
    void servicePackIsAddedByNumber_data();
    void servicePackIsAddedByNumber();
    void nt4HasSuitesAndProductOnlyFromServicePack6On_data();
    void nt4HasSuitesAndProductOnlyFromServicePack6On();
    void suitesAreDescribed_data();
    void suitesAreDescribed();
    void productIsDescribed_data();
    void productIsDescribed();
    void suitesStandInAFixedOrderBeforeTheProduct();
    void windows9xHasNeitherSuitesNorProduct();
    void unknownSystemStillTellsItsSuites();
    void descriptionStandsForTheName();
    void emptyRecordIsUnknown();
};

void TestClsOs::releaseIsNamedByItsPublishedNumbers_data()
{
    QTest::addColumn<SystemVersion>("system");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("version");
    const auto row = [](const char *what, const SystemVersion &system, const QString &name,
                        const QString &version) {
        QTest::newRow(what) << system << name << version;
    };
    row("95", release(1, 4, 0), "Windows 95", "4.0");
    row("95, letter A", release(1, 4, 0, " A"), "Windows 95", "4.0");
    row("95 OSR2 by B", release(1, 4, 0, " B"), "Windows 95 OSR2", "4.0");
    row("95 OSR2 by C", release(1, 4, 0, "C"), "Windows 95 OSR2", "4.0");
    row("95 OSR2 by B, later edition", release(1, 4, 3, " B "), "Windows 95 OSR2", "4.3");
    row("98", release(1, 4, 10), "Windows 98", "4.10");
    row("98, letter B", release(1, 4, 10, " B"), "Windows 98", "4.10");
    row("98 SE", release(1, 4, 10, " A "), "Windows 98 SE", "4.10");
    row("ME", release(1, 4, 90), "Windows ME", "4.90");
    row("NT 3.1", release(2, 3, 10), "Windows NT 3.10", "");
    row("NT 3.51", release(2, 3, 51), "Windows NT 3.51", "");
    row("NT 4.0", release(2, 4, 0), "Windows NT 4.0", "");
    row("2000", release(2, 5, 0), "Windows 2000", "5.0");
    row("XP", release(2, 5, 1), "Windows XP", "5.1");
    row(".NET", release(2, 5, 2), "Windows .NET", "5.2");
    row("NT after .NET", release(2, 6, 0), "Unknown OS Version 6.0 Platform 2", "");
    row("two figures", release(2, 10, 1), "Unknown OS Version 10.1 Platform 2", "");
    SystemVersion ten = release(2, 10, 0);
    ten.build = 21999;
    row("10", ten, "Windows 10", "10.0");
    ten.build = 22000;
    row("11, by its build", ten, "Windows 11", "10.0");
    row("95 family, other number", release(1, 4, 1), "Unknown OS Version 4.1 Platform 1", "");
    row("no letter makes a 4.3", release(1, 4, 3), "Unknown OS Version 4.3 Platform 1", "");
    row("NT's numbers on platform 1", release(1, 5, 1), "Unknown OS Version 5.1 Platform 1", "");
    row("Win32s", release(0, 3, 1), "Unknown OS Version 3.1 Platform 0", "");
    row("platform to come", release(3, 6, 0), "Unknown OS Version 6.0 Platform 3", "");
}

void TestClsOs::releaseIsNamedByItsPublishedNumbers()
{
    QFETCH(SystemVersion, system);
    QFETCH(QString, name);
    QFETCH(QString, version);
    const clsOS os(system);
    QCOMPARE(os.name(), name);
    QCOMPARE(os.version(), version);
    QCOMPARE(os.text(), version.isEmpty() ? name : name + ' ' + version);
}

void TestClsOs::servicePackIsAddedByNumber_data()
{
    QTest::addColumn<SystemVersion>("system");
    QTest::addColumn<QString>("text");
    SystemVersion xp = release(2, 5, 1, "Service Pack 9");
    xp.servicePackMajor = 2;
    QTest::newRow("by the numbers from 2000 on") << xp << "Windows XP 5.1 Service Pack 2";
    xp.servicePackMinor = 1;
    QTest::newRow("with its minor number") << xp << "Windows XP 5.1 Service Pack 2.1";
    xp.servicePackMajor = 0;
    QTest::newRow("none") << xp << "Windows XP 5.1";
    QTest::newRow("by the text before")
        << release(2, 3, 51, "Service Pack 5") << "Windows NT 3.51 Service Pack 5";
    QTest::newRow("two figures") << release(2, 4, 0, "Service Pack 12, RC 1")
                                 << "Windows NT 4.0 Service Pack 12";
    QTest::newRow("text without a number") << release(2, 4, 0, "Beta") << "Windows NT 4.0";
    QTest::newRow("a letter is none") << release(1, 4, 10, " A") << "Windows 98 SE 4.10";
}

void TestClsOs::servicePackIsAddedByNumber()
{
    QFETCH(SystemVersion, system);
    QFETCH(QString, text);
    QCOMPARE(clsOS(system).text(), text);
}

void TestClsOs::nt4HasSuitesAndProductOnlyFromServicePack6On_data()
{
    QTest::addColumn<QString>("servicePack");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << ""
                          << "Windows NT 4.0";
    QTest::newRow("5") << "Service Pack 5"
                       << "Windows NT 4.0 Service Pack 5";
    QTest::newRow("6") << "Service Pack 6"
                       << "Windows NT 4.0 Service Pack 6 Terminal Services is installed , "
                          "Domain Controller";
    QTest::newRow("6, upper case") << "SERVICE PACK 6"
                                   << "Windows NT 4.0 Service Pack 6 Terminal Services is "
                                      "installed , Domain Controller";
}

void TestClsOs::nt4HasSuitesAndProductOnlyFromServicePack6On()
{
    QFETCH(QString, servicePack);
    QFETCH(QString, text);
    SystemVersion system = release(2, 4, 0, servicePack);
    system.servicePackMajor = 6;
    system.suiteMask = 0x10;
    system.productType = 2;
    QCOMPARE(clsOS(system).text(), text);
}

void TestClsOs::suitesAreDescribed_data()
{
    QTest::addColumn<int>("suite");
    QTest::addColumn<QString>("description");
    const auto row = [](int suite, const QString &description) {
        QTest::newRow(qPrintable(QString::number(suite, 16))) << suite << description;
    };
    row(0x001, "Microsoft Small Business Server is installed ,");
    row(0x004, "Microsoft BackOffice components are installed ,");
    row(0x008, "Communications Server installed ,");
    row(0x010, "Terminal Services is installed ,");
    row(0x020, "Microsoft Small Business Server is installed with the restrictive client license "
               "in force ,");
    row(0x040, "Embedded NT installed ,");
    row(0x080, "Datacenter Server is installed ,");
    row(0x100, "Single User ,");
    row(0x800, ""); // no suite of ours
}

void TestClsOs::suitesAreDescribed()
{
    QFETCH(int, suite);
    QFETCH(QString, description);
    const clsOS os(windows2000(static_cast<std::uint32_t>(suite), 0));
    QCOMPARE(os.version(), description.isEmpty() ? QString("5.0") : "5.0 " + description);
}

void TestClsOs::productIsDescribed_data()
{
    QTest::addColumn<int>("suites");
    QTest::addColumn<int>("product");
    QTest::addColumn<QString>("version");
    QTest::newRow("workstation") << 0 << 1 << "5.0";
    QTest::newRow("home edition") << 0x200 << 1 << "5.0 Home Edition";
    QTest::newRow("server") << 0 << 3 << "5.0";
    QTest::newRow("home bit on a server") << 0x200 << 3 << "5.0";
    QTest::newRow("enterprise server") << 0x002 << 3 << "5.0 Enterprise Server";
    QTest::newRow("web server") << 0x400 << 3 << "5.0 Web Server";
    QTest::newRow("datacenter server")
        << 0x080 << 3 << "5.0 Datacenter Server is installed , DataCenter Server";
    QTest::newRow("datacenter and enterprise bits")
        << 0x082 << 3 << "5.0 Datacenter Server is installed , DataCenter Server";
    QTest::newRow("domain controller") << 0 << 2 << "5.0 Domain Controller";
    QTest::newRow("enterprise domain controller") << 0x002 << 2 << "5.0 Domain Controller";
    QTest::newRow("unknown product") << 0x602 << 4 << "5.0";
}

void TestClsOs::productIsDescribed()
{
    QFETCH(int, suites);
    QFETCH(int, product);
    QFETCH(QString, version);
    QCOMPARE(clsOS(windows2000(static_cast<std::uint32_t>(suites), product)).version(), version);
}

void TestClsOs::suitesStandInAFixedOrderBeforeTheProduct()
{
    SystemVersion system = windows2000(0x1FF, 3);
    system.servicePackMajor = 4;
    QCOMPARE(clsOS(system).text(),
             QString("Windows 2000 5.0 Service Pack 4 "
                     "Microsoft BackOffice components are installed , "
                     "Communications Server installed , Datacenter Server is installed , "
                     "Embedded NT installed , Single User , "
                     "Microsoft Small Business Server is installed , "
                     "Microsoft Small Business Server is installed with the restrictive client "
                     "license in force , Terminal Services is installed , DataCenter Server"));
}

void TestClsOs::windows9xHasNeitherSuitesNorProduct()
{
    SystemVersion system = release(1, 4, 10);
    system.suiteMask = 0x7FF;
    system.productType = 2;
    QCOMPARE(clsOS(system).text(), QString("Windows 98 4.10"));
}

void TestClsOs::unknownSystemStillTellsItsSuites()
{
    SystemVersion system = release(2, 6, 1);
    system.servicePackMajor = 1;
    system.suiteMask = 0x300;
    system.productType = 1;
    const clsOS os(system);
    QCOMPARE(os.name(), QString("Unknown OS Version 6.1 Platform 2"));
    QCOMPARE(os.version(), QString("Service Pack 1 Single User , Home Edition"));
}

void TestClsOs::descriptionStandsForTheName()
{
    SystemVersion system = release(0, 6, 12);
    system.description = "Debian GNU/Linux 12 (bookworm), kernel";
    QCOMPARE(clsOS(system).name(), QString("Debian GNU/Linux 12 (bookworm), kernel"));
    QCOMPARE(clsOS(system).version(), QString("6.12"));
    QCOMPARE(clsOS(system).text(), QString("Debian GNU/Linux 12 (bookworm), kernel 6.12"));
}

void TestClsOs::emptyRecordIsUnknown()
{
    QCOMPARE(clsOS(SystemVersion()).text(), QString("Unknown OS Version 0.0 Platform 0"));
}

QTEST_APPLESS_MAIN(TestClsOs)
#include "test_cls_os.moc"
