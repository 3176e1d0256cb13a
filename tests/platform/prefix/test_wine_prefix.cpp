// SPDX-License-Identifier: MIT
// A prefix that Wine itself made: what this program writes Wine understands, and the other way
// round. Skipped where there is no Wine.
#include "app/services/services.h"
#include "app/services/suite_registry.h"
#include "platform/prefix/host_command.h"
#include "platform/prefix/wine_server.h"
#include "tests/support/environment.h"
#include "tests/support/fakes.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringDecoder>
#include <QtTest>

#include <list>
#include <memory>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr RegistryHive user = RegistryHive::CurrentUser;
constexpr RegistryHive machine = RegistryHive::LocalMachine;
constexpr int longest = 60'000; ///< milliseconds that anything of Wine's may take

const QString suite = QStringLiteral("Software\\Ostrel\\Morlen Utilities\\");
const QString caption = QStringLiteral("Morlen Utilities");

// Some of what the file format, a command line or a shell could get wrong.
const QStringList oddTexts = {R"("C:\a b\" \\server\x\)",
                              "%HOME% 100% %1",
                              QString::fromUtf8("Café à la Zürich éa"),
                              QString::fromUtf8("Żółw 日本 😀"),
                              "[a] @=#;';=dword:1, $(x) `y`",
                              "/f",
                              ""};

/// Runs a program to its end. Returns what it printed; nothing when it failed.
std::optional<QString> run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(longest) || process.exitCode() != 0) {
        process.kill();
        process.waitForFinished();
        return std::nullopt;
    }
    return QString::fromUtf8(process.readAllStandardOutput()).remove('\r');
}

/// Waits until Wine has saved the registry and gone.
bool hasWineEnded()
{
    return run("wineserver", {"-w"}).has_value();
}

bool addWithWine(const QString &key, const QString &name, const QString &type, const QString &data)
{
    return run("wine", {"reg", "add", key, "/v", name, "/t", type, "/d", data, "/f"}).has_value();
}

/// What Wine's own tool shows of a value: "TYPE    data"; empty when it finds none.
QString queryWithWine(const QString &key, const QString &name)
{
    const QString shown = run("wine", {"reg", "query", key, "/v", name}).value_or(QString());
    const QString start = "\n    " + name + "    ";
    const qsizetype found = shown.indexOf(start);
    return found < 0 ? QString() : shown.mid(found + start.size()).section('\n', 0, 0);
}

QString textOf(const QString &key, const QString &name, RegistryHive hive = user)
{
    return systemRegistry()->text(hive, key, name).value_or("(none)");
}

QByteArray without(const QByteArray &bytes, const char *pattern)
{
    return QString::fromLatin1(bytes).remove(QRegularExpression(pattern)).toLatin1();
}

/// A program of Windows that runs until it is dropped, and the Wine server with it.
class RunningWine
{
public:
    RunningWine()
    {
        m_shell.start("wine", {"cmd.exe"});
        QByteArray said;
        while (!said.contains('>') && m_shell.waitForReadyRead(longest)) {
            said += m_shell.readAllStandardOutput();
        }
    }

    ~RunningWine()
    {
        m_shell.write("exit\r\n");
        m_shell.closeWriteChannel();
        m_shell.waitForFinished(longest);
        hasWineEnded();
    }

    RunningWine(const RunningWine &) = delete;
    RunningWine &operator=(const RunningWine &) = delete;

private:
    QProcess m_shell;
};

/// For its lifetime what this process and its children print goes to a file.
class PrintedTo
{
public:
    explicit PrintedTo(const QString &path) : m_old(::dup(STDOUT_FILENO))
    {
        const int file = ::open(QFile::encodeName(path).constData(),
                                O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        ::dup2(file, STDOUT_FILENO);
        ::close(file);
    }

    ~PrintedTo()
    {
        ::dup2(m_old, STDOUT_FILENO);
        ::close(m_old);
    }

    PrintedTo(const PrintedTo &) = delete;
    PrintedTo &operator=(const PrintedTo &) = delete;

private:
    int m_old;
};

} // namespace

class TestWinePrefix : public QObject
{
    Q_OBJECT

    QByteArray fileOf(const QString &name) const;
    std::list<Environment> m_environment;
    std::unique_ptr<Sandbox> m_sandbox;

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void whatWasWrittenBeforeWineMadeThePrefixIsKept();
    void theSuitesEntriesAreAddedAndNoOtherByteChanges();
    void aNewCaptionChangesItsLineOnly();
    void wineShowsTheSuitesEntriesAndKeepsThem();
    void whatASimulatorsInstallerRegistersIsFound();
    void anyTextReachesWine();
    void anyTextComesFromWine();
    void textOfNoBytesComesFromWine();
    void aNumberGoesBothWays();
    void aRunningWineIsTold();
    void notepadIsTheOneOfThePrefix();
    void theRestOfTheLineArrivesAsOneArgument_data();
    void theRestOfTheLineArrivesAsOneArgument();
    void theExitCodeOfAWindowsProgramComesBack();
    void theWaitLastsAsLongAsAWindowsProgram();
};

void TestWinePrefix::initTestCase()
{
    for (const char *program : {"wine", "wineboot", "wineserver"}) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            QSKIP("Wine is not installed.");
        }
    }
    m_sandbox = std::make_unique<Sandbox>();
    m_environment.emplace_back("HOME", QFile::encodeName(m_sandbox->host("C:\\Home")));
    m_environment.emplace_back("TMPDIR", QFile::encodeName(m_sandbox->host("C:\\Home")));
    m_environment.emplace_back("LC_ALL", "C.UTF-8");
    m_environment.emplace_back("WINEDEBUG", "-all");
    m_environment.emplace_back("WINEDLLOVERRIDES", "mscoree,mshtml=;winemenubuilder.exe=d");
    m_environment.emplace_back("DISPLAY", QByteArray());
    m_environment.emplace_back("WAYLAND_DISPLAY", QByteArray());
    m_sandbox->makeFolder("C:\\Home");

    systemRegistry()->setValue(user, "Software\\Early", "A", QString("b"));
    QVERIFY(run("wineboot", {"-i"}));
    QVERIFY(hasWineEnded());
    QVERIFY(!isWineRunning(m_sandbox->prefix()));
    QVERIFY(fileOf("system.reg").contains("#arch=win"));
}

void TestWinePrefix::cleanupTestCase()
{
    if (m_sandbox) {
        run("wineserver", {"-k"}); // fails when none is left
        m_environment.clear();
        m_sandbox.reset();
    }
}

QByteArray TestWinePrefix::fileOf(const QString &name) const
{
    QFile file(m_sandbox->prefix() + '/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestWinePrefix::whatWasWrittenBeforeWineMadeThePrefixIsKept()
{
    QCOMPARE(textOf("Software\\Early", "A"), QString("b"));
    QCOMPARE(queryWithWine("HKCU\\Software\\Early", "A"), QString("REG_SZ    b"));
    QVERIFY(hasWineEnded());
}

void TestWinePrefix::theSuitesEntriesAreAddedAndNoOtherByteChanges()
{
    const QByteArray systemBefore = fileOf("system.reg");
    const QByteArray userBefore = fileOf("user.reg");
    Steps steps;
    suite_registry::CheckRegistry(*systemRegistry(), "C:\\Morlen\\", caption, steps.step);
    QCOMPARE(fileOf("system.reg"), systemBefore);
    const QByteArray userAfter = fileOf("user.reg");
    QVERIFY(userAfter.startsWith(userBefore));
    QCOMPARE(without(userAfter.sliced(userBefore.size()), "(?<=\\] )\\d+|(?<=#time=)[0-9a-f]+"),
             QByteArray("\n[SOFTWARE\\\\Ostrel\\\\Morlen Utilities\\\\Path] \n#time=\n"
                        "\"Exe_Path\"=\"C:\\\\Morlen\\\\MorlenEditor.exe\"\n"
                        "\n[SOFTWARE\\\\Ostrel\\\\Morlen Utilities\\\\Caption] \n#time=\n"
                        "\"Caption\"=\"Morlen Utilities\"\n"));
}

void TestWinePrefix::aNewCaptionChangesItsLineOnly()
{
    const QByteArray systemBefore = fileOf("system.reg");
    const QByteArray userBefore = fileOf("user.reg");
    Steps steps;
    const QString folder = "D:\\Elsewhere\\";
    suite_registry::CheckRegistry(*systemRegistry(), folder, "Another caption", steps.step);
    QCOMPARE(fileOf("system.reg"), systemBefore);
    QCOMPARE(fileOf("user.reg"), QByteArray(userBefore)
                                     .replace("\"Caption\"=\"Morlen Utilities\"\n",
                                              "\"Caption\"=\"Another caption\"\n"));
    suite_registry::CheckRegistry(*systemRegistry(), folder, caption, steps.step);
    QCOMPARE(fileOf("user.reg"), userBefore);
}

void TestWinePrefix::wineShowsTheSuitesEntriesAndKeepsThem()
{
    const QString path = "C:\\Morlen\\MorlenEditor.exe";
    for (int start = 0; start < 2; ++start) {
        QCOMPARE(queryWithWine("HKCU\\" + suite + "Path", "Exe_Path"), "REG_SZ    " + path);
        QCOMPARE(queryWithWine("HKCU\\" + suite + "Caption", "Caption"), "REG_SZ    " + caption);
        // A change of its own makes Wine write the whole file anew.
        QVERIFY(addWithWine("HKCU\\Software\\Change", "A", "REG_SZ", QString::number(start)));
        const QByteArray before = fileOf("user.reg");
        QVERIFY(hasWineEnded());
        QVERIFY(fileOf("user.reg") != before);
        QCOMPARE(textOf(suite + "Path", "Exe_Path"), path);
        QCOMPARE(textOf(suite + "Caption", "Caption"), caption);
    }
    Steps steps;
    const QByteArray before = fileOf("user.reg");
    suite_registry::CheckRegistry(*systemRegistry(), "C:\\Morlen\\", caption, steps.step);
    QCOMPARE(fileOf("user.reg"), before);
}

void TestWinePrefix::whatASimulatorsInstallerRegistersIsFound()
{
    // As a 32-bit installer sees it, and where a 32-bit prefix has it.
    const bool is64 = fileOf("system.reg").contains("#arch=win64");
    const QString root = is64 ? "HKLM\\Software\\Wow6432Node\\" : "HKLM\\Software\\";
    const QString key = "Microsoft\\Microsoft Games\\Flight Simulator\\9.0";
    QVERIFY(addWithWine(root + key, "EXE Path", "REG_SZ", "C:\\Games\\FS 9"));
    QVERIFY(hasWineEnded());
    QCOMPARE(textOf("SOFTWARE\\" + key.toUpper(), "EXE PATH", machine), QString("C:\\Games\\FS 9"));
}

void TestWinePrefix::anyTextReachesWine()
{
    const QString key = "Software\\Reaches " + oddTexts.join(' ').remove('\\');
    QStringList expected{"Windows Registry Editor Version 5.00",
                         "[HKEY_CURRENT_USER\\" + key + ']'};
    const auto registry = systemRegistry();
    for (const QString &text : oddTexts) {
        registry->setValue(user, key, "n " + text, text);
        const QString escaped = QString(text).replace('\\', "\\\\").replace('"', "\\\"");
        expected += "\"n " + escaped + "\"=\"" + escaped + '"';
    }
    // An export is UTF-16; what is printed would depend on the code page.
    QVERIFY(run("wine", {"regedit", "/E", "C:\\out.reg", "HKEY_CURRENT_USER\\" + key}));
    QVERIFY(hasWineEnded());
    const QString exported = QStringDecoder(QStringDecoder::Utf16)(m_sandbox->read("C:\\out.reg"));
    QStringList lines = exported.split("\r\n", Qt::SkipEmptyParts);
    lines.sort();
    expected.sort();
    QCOMPARE(lines, expected);
    for (const QString &text : oddTexts) { // from the file as Wine wrote it
        QCOMPARE(textOf(key, "n " + text), text);
    }
}

void TestWinePrefix::anyTextComesFromWine()
{
    const QString key = "Software\\Comes " + oddTexts.join(' ').remove('\\');
    {
        const RunningWine wine;
        for (const QString &text : oddTexts) {
            QVERIFY(addWithWine("HKCU\\" + key, "n " + text, "REG_SZ", text));
        }
    }
    for (const QString &text : oddTexts) {
        QCOMPARE(textOf(key, "n " + text), text);
    }
}

void TestWinePrefix::textOfNoBytesComesFromWine()
{
    m_sandbox->write("C:\\in.reg",
                     "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Raw]\r\n\"A\"=hex(1):\r\n\r\n");
    QVERIFY(run("wine", {"regedit", "C:\\in.reg"}));
    QVERIFY(hasWineEnded());
    QVERIFY(fileOf("user.reg").contains("\n\"A\"=hex(1):\n")); // unlike an empty text with its end
    QCOMPARE(textOf("Software\\Raw", "A"), QString());
}

void TestWinePrefix::aNumberGoesBothWays()
{
    systemRegistry()->setValue(user, "Software\\Number", "Ours", std::uint32_t{0xFFFFFFFE});
    QCOMPARE(queryWithWine("HKCU\\Software\\Number", "Ours"), QString("REG_DWORD    0xfffffffe"));
    QVERIFY(addWithWine("HKCU\\Software\\Number", "Wine's", "REG_DWORD", "42"));
    QVERIFY(hasWineEnded());
    const auto registry = systemRegistry();
    QVERIFY(registry->value(user, "Software\\Number", "Ours") ==
            RegistryData(std::uint32_t{0xFFFFFFFE}));
    QVERIFY(registry->value(user, "Software\\Number", "Wine's") == RegistryData(std::uint32_t{42}));
}

void TestWinePrefix::aRunningWineIsTold()
{
    const QString key = "SOFTWARE\\Told " + oddTexts.join(' ').remove('\\');
    {
        const RunningWine wine;
        QVERIFY(isWineRunning(m_sandbox->prefix()));
        const QByteArray before = fileOf("user.reg");
        const auto registry = systemRegistry();
        registry->createKey(user, key);
        registry->setValue(user, key, "Number", std::uint32_t{0xFFFFFFFE});
        for (const QString &text : oddTexts) {
            registry->setValue(user, key, "n " + text, text);
            QCOMPARE(registry->text(user, key, "n " + text).value_or("(none)"), text);
        }
        QCOMPARE(fileOf("user.reg"), before);
        QCOMPARE(queryWithWine("HKCU\\" + key, "Number"), QString("REG_DWORD    0xfffffffe"));
    }
    QVERIFY(!isWineRunning(m_sandbox->prefix()));
    QVERIFY(systemRegistry()->value(user, key, "Number") ==
            RegistryData(std::uint32_t{0xFFFFFFFE}));
    for (const QString &text : oddTexts) {
        QCOMPARE(textOf(key, "n " + text), text);
    }
}

void TestWinePrefix::notepadIsTheOneOfThePrefix()
{
    const HostCommand command = resolveCommand("NOTEPAD.EXE C:\\x y.txt", {});
    QCOMPARE(command.program, QStandardPaths::findExecutable("wine"));
    QCOMPARE(command.arguments,
             QStringList({m_sandbox->host("C:\\windows\\system32\\notepad.exe"), "C:\\x y.txt"}));
}

void TestWinePrefix::theRestOfTheLineArrivesAsOneArgument_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("printed");
    const auto addHostPath = [](const char *name, const QString &path) {
        QTest::newRow(name) << path << path;
    };
    addHostPath("blanks", "/home/a  b c.txt");
    addHostPath("what a shell would run", "/$(touch x)`touch y`; touch z && $HOME 'q'");
    addHostPath("what a Windows shell would replace", "/%HOME% ^& a");
    addHostPath("accents", QString::fromUtf8("/Żółw é"));
    QTest::newRow("a Windows path") << "C:\\Program Files\\a b.txt"
                                    << m_sandbox->prefix() + "/dosdevices/c:/Program Files/a b.txt";
    QTest::newRow("quotes, which no path can hold") << "\"; x\" y"
                                                    << "";
}

void TestWinePrefix::theRestOfTheLineArrivesAsOneArgument()
{
    QFETCH(QString, argument);
    QFETCH(QString, printed);
    // This one prints a line for each of its arguments: the path on the host.
    std::unique_ptr<Process> process;
    {
        const PrintedTo file(m_sandbox->host("C:\\printed"));
        process = SystemProcesses().start("winepath.exe " + argument, 1);
    }
    QTRY_COMPARE_WITH_TIMEOUT(process->exitCode(), 0, longest);
    QCOMPARE(QString::fromUtf8(m_sandbox->read("C:\\printed")), printed + '\n');
}

void TestWinePrefix::theExitCodeOfAWindowsProgramComesBack()
{
    const auto process = SystemProcesses().start("cmd /c exit 7", 1);
    QTRY_COMPARE_WITH_TIMEOUT(process->exitCode(), 7, longest);
}

void TestWinePrefix::theWaitLastsAsLongAsAWindowsProgram()
{
    FakeOutside fakes;
    SystemProcesses processes;
    Services services(Outside{fakes.registry, processes, fakes.dialogs, fakes.clock});
    QVERIFY(services.shell.Shellandwait("C:\\windows\\system32\\cmd.exe /c echo a b>C:\\done.txt",
                                        0, 1));
    QCOMPARE(m_sandbox->read("C:\\done.txt"), QByteArray("a b\r\n"));
}

QTEST_GUILESS_MAIN(TestWinePrefix)
#include "test_wine_prefix.moc"
