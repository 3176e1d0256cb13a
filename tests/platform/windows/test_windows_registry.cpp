// SPDX-License-Identifier: MIT
// The registry of Windows, in a key of the test's own.
#include "platform/registry.h"
#include "tests/support/failure.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <windows.h>

namespace
{

const QString key = QStringLiteral("Software\\Morlen Utilities Test\\Deep");

void store(HKEY root, REGSAM view, const wchar_t *name, DWORD type, const void *bytes, DWORD size)
{
    HKEY opened = nullptr;
    QCOMPARE(::RegCreateKeyExW(root, key.toStdWString().c_str(), 0, nullptr, 0, KEY_WRITE | view,
                               nullptr, &opened, nullptr),
             ERROR_SUCCESS);
    QCOMPARE(::RegSetValueExW(opened, name, 0, type, static_cast<const BYTE *>(bytes), size),
             ERROR_SUCCESS);
    ::RegCloseKey(opened);
}

} // namespace

class TestWindowsRegistry : public QObject
{
    Q_OBJECT

    std::unique_ptr<Registry> m_registry = systemRegistry();

private Q_SLOTS:
    void cleanup();
    void whatIsMissingIsNothing();
    void valuesAreReadBack();
    void keyIsCreatedAndStays();
    void textsWindowsExpandsAreExpanded();
    void textWithoutItsEndIsReadWhole();
    void otherKindsAreNothing();
    void machineIsSeenAs32BitProgramsSeeIt();
    void systemsOwnToolAgrees();
};

void TestWindowsRegistry::cleanup()
{
    ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Morlen Utilities Test");
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Wow6432Node\\Morlen Utilities Test");
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Morlen Utilities Test");
}

void TestWindowsRegistry::whatIsMissingIsNothing()
{
    QVERIFY(!m_registry->value(RegistryHive::CurrentUser, key, "Path"));
    m_registry->createKey(RegistryHive::CurrentUser, key);
    QVERIFY(!m_registry->value(RegistryHive::CurrentUser, key, "Path"));
}

void TestWindowsRegistry::valuesAreReadBack()
{
    for (const QString &text : {QString(), QStringLiteral("C:\\A \"b\""),
                                QString::fromUtf8("Łódź 飛"), QString(5000, 'x')}) {
        m_registry->setValue(RegistryHive::CurrentUser, key, "Text", text);
        QVERIFY(m_registry->value(RegistryHive::CurrentUser, key, "text") == RegistryData(text));
    }
    m_registry->setValue(RegistryHive::CurrentUser, key, "Number", std::uint32_t{0xFFFF'FFFE});
    QVERIFY(m_registry->value(RegistryHive::CurrentUser, key, "Number") ==
            RegistryData(std::uint32_t{0xFFFF'FFFE}));
}

void TestWindowsRegistry::keyIsCreatedAndStays()
{
    m_registry->setValue(RegistryHive::CurrentUser, key, "Text", QString("kept"));
    m_registry->createKey(RegistryHive::CurrentUser, key);
    QVERIFY(m_registry->value(RegistryHive::CurrentUser, key, "Text") ==
            RegistryData(QString("kept")));
}

void TestWindowsRegistry::textsWindowsExpandsAreExpanded()
{
    ::SetEnvironmentVariableW(L"MORLEN_TEST", L"D:\\Sim");
    const wchar_t text[] = L"%MORLEN_TEST%\\FS9";
    store(HKEY_CURRENT_USER, 0, L"Text", REG_EXPAND_SZ, text, sizeof text);
    QVERIFY(m_registry->value(RegistryHive::CurrentUser, key, "Text") ==
            RegistryData(QString("D:\\Sim\\FS9")));
}

void TestWindowsRegistry::textWithoutItsEndIsReadWhole()
{
    const wchar_t text[] = L"C:\\FS9";
    store(HKEY_CURRENT_USER, 0, L"Text", REG_SZ, text, sizeof text - sizeof(wchar_t));
    QVERIFY(m_registry->value(RegistryHive::CurrentUser, key, "Text") ==
            RegistryData(QString("C:\\FS9")));
}

void TestWindowsRegistry::otherKindsAreNothing()
{
    store(HKEY_CURRENT_USER, 0, L"Bytes", REG_BINARY, "abc", 3);
    QVERIFY(!m_registry->value(RegistryHive::CurrentUser, key, "Bytes"));
}

void TestWindowsRegistry::machineIsSeenAs32BitProgramsSeeIt()
{
    const wchar_t text[] = L"C:\\FS9";
    store(HKEY_LOCAL_MACHINE, KEY_WOW64_64KEY, L"64", REG_SZ, text, sizeof text);
    QVERIFY(!m_registry->value(RegistryHive::LocalMachine, key, "64"));
    store(HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY, L"32", REG_SZ, text, sizeof text);
    QVERIFY(m_registry->value(RegistryHive::LocalMachine, key, "32") ==
            RegistryData(QString("C:\\FS9")));
}

void TestWindowsRegistry::systemsOwnToolAgrees()
{
    const auto reg = [](const QStringList &words) {
        QProcess tool;
        tool.start("reg", words);
        tool.waitForFinished();
        return QString::fromLocal8Bit(tool.readAllStandardOutput());
    };
    m_registry->setValue(RegistryHive::CurrentUser, key, "Ours", QString("C:\\A b"));
    m_registry->setValue(RegistryHive::CurrentUser, key, "Number", std::uint32_t{42});
    const QString told = reg({"query", "HKCU\\" + key});
    QVERIFY2(told.contains(QRegularExpression(R"(Ours\s+REG_SZ\s+C:\\A b\s)")), qPrintable(told));
    QVERIFY2(told.contains(QRegularExpression(R"(Number\s+REG_DWORD\s+0x2a\s)")), qPrintable(told));

    reg({"add", "HKCU\\" + key, "/v", "Theirs", "/d", "C:\\C d", "/f"});
    QVERIFY(m_registry->value(RegistryHive::CurrentUser, key, "Theirs") ==
            RegistryData(QString("C:\\C d")));
    reg({"add", "HKLM\\" + key, "/v", "Theirs", "/d", "C:\\FS9", "/f", "/reg:32"});
    QVERIFY(m_registry->value(RegistryHive::LocalMachine, key, "Theirs") ==
            RegistryData(QString("C:\\FS9")));
}

QTEST_GUILESS_MAIN(TestWindowsRegistry)
#include "test_windows_registry.moc"
