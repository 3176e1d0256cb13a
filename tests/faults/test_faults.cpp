// SPDX-License-Identifier: MIT
// Every call that a writing procedure makes to the system meets every fault once: what was in the
// files before can be had again, the user is told, and the next try works.
#include "app/services/backup.h"
#include "app/services/form_state.h"
#include "app/services/step.h"
#include "app/services/trace_log.h"
#include "app/session.h"
#include "config_editor/listing_dump.h"
#include "fpset/fpset_files.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "tests/faults/faults.h"
#include "tests/support/environment.h"
#include "tests/support/failure.h"
#include "tests/support/fakes.h"
#include "tests/support/sandbox.h"

#include <QDirIterator>
#include <QFile>
#include <QtTest>

#include <algorithm>
#include <csignal>
#include <functional>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

const QString file = "C:\\TTools\\Aircraft_Set.txt";
const QString other = "C:\\TTools\\Aircraft_Other.txt";
const QString logFile = "C:\\Morlen\\TraceLog.txt";
const QString settingsFile = "C:\\Morlen\\MorlenE.ini";
const QString registryFile = "C:\\..\\user.reg";

const QByteArray before = QByteArray("AC#1,250,\"Boeing Blue\"\r\n").repeated(40);
const QByteArray line = "AC#41,300,\"Airbus Red\"\r\n";
const QByteArray replacement = QByteArray("AC#1,111,\"Cessna\"\r\n").repeated(60);
const QByteArray older = "an older state of it\r\n";
const QByteArray logBefore = QByteArray("14:03:27 - Adding Airports\r\n").repeated(20);
const QByteArray settingsBefore = "0\r\n\r\nc:\r\nC:\\FS9\\Aircraft\r\n\r\nTrue\r\n";
const QByteArray registry = "WINE REGISTRY Version 2\n\n[Software\\\\Old] 1\n\"Name\"=\"old\"\n";

/// What a procedure works with.
struct Desk {
    Desk() { state.MorlenEDir = "C:\\Morlen"; }

    void write(const QString &text)
    {
        state.TraceOn = true;
        log.write(text);
    }

    FormState state;
    Step step{state.ErrMsg};
    FakeClock clock;
    FakeDialogs dialogs;
    TraceLog log{state, clock, dialogs};
};

/// A prefix with all files that the procedures work on, and a trash.
class Place
{
public:
    Place()
    {
        sandbox.write(file, before);
        sandbox.write(file + ".Backup1", older);
        sandbox.write(other, replacement);
        sandbox.write(logFile, logBefore);
        sandbox.write(settingsFile, settingsBefore);
        sandbox.write(registryFile, registry);
        sandbox.makeFolder("C:\\..\\share");
    }

    /// Everything in the prefix that is a file.
    QByteArrayList contents() const
    {
        QByteArrayList all;
        QDirIterator files(sandbox.prefix(), QDir::Files | QDir::Hidden,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile one(files.next());
            all += one.open(QIODevice::ReadOnly) ? one.readAll() : QByteArray();
        }
        return all;
    }

    /// What is in a file; nothing, too, where there is none.
    QByteArray content(const QString &path) const
    {
        return sandbox.exists(path) ? sandbox.read(path) : QByteArray();
    }

    const Sandbox sandbox;
    const Environment dataHome{"XDG_DATA_HOME", QFile::encodeName(sandbox.host("C:\\..\\share"))};
};

/// What is promised of a procedure.
struct Procedure {
    const char *name;
    QString target; ///< the file it changes
    std::function<void(Desk &)> run;
    std::function<bool(const QByteArray &)> isDone; ///< by the target's content

    enum class Promise {
        Appends,   ///< what was there stays, in its place
        Keeps,     ///< what was there can be found again
        AllOrNone, ///< the old content or the new one
    } promise;
};

using Promise = Procedure::Promise;

auto is(const QByteArray &bytes)
{
    return [bytes](const QByteArray &now) { return now == bytes; };
}

auto endsWith(const QByteArray &bytes)
{
    return [bytes](const QByteArray &now) { return now.endsWith("\r\n" + bytes); };
}

const QList<Procedure> &procedures()
{
    static const QList<Procedure> all = {
        {"append", file,
         [](Desk &) {
             const files::Lock lock(file);
             files::appendLines(file, line);
             files::sync(file);
         },
         endsWith(line), Promise::Appends},
        {"replace", file, [](Desk &) { files::writeAll(file, replacement); }, is(replacement),
         Promise::AllOrNone},
        {"copy", file, [](Desk &) { files::copy(other, file); }, is(replacement),
         Promise::AllOrNone},
        {"copy of a set's file", file,
         [](Desk &desk) { fpset_files::copy(other, file, desk.step); }, is(replacement),
         Promise::Keeps},
        {"delete", file, [](Desk &) { files::remove(file); }, is({}), Promise::AllOrNone},
        {"trash", file, [](Desk &desk) { fpset_files::discard(file, desk.step); }, is({}),
         Promise::Keeps},
        {"no trash", file,
         [](Desk &desk) {
             const Environment none("XDG_DATA_HOME", "/proc/none");
             fpset_files::discard(file, desk.step);
         },
         is({}), Promise::Keeps},
        {"emptying", file, [](Desk &desk) { fpset_files::createEmpty(file, desk.step); }, is({}),
         Promise::Keeps},
        {"backup", file + ".Backup1", [](Desk &desk) { DoBackup(file, desk.step); }, is(before),
         Promise::Keeps},
        {"registry", registryFile,
         [](Desk &) {
             systemRegistry()->setValue(RegistryHive::CurrentUser, "Software\\New", "Name",
                                        QString("new"));
         },
         [](const QByteArray &now) {
             return now.startsWith(registry) && now.endsWith("\"Name\"=\"new\"\n");
         },
         Promise::AllOrNone},
        {"settings", settingsFile, [](Desk &desk) { Session(desk.state, desk.log).save("d:"); },
         [](const QByteArray &now) { return now.startsWith("\r\n\r\nd:\r\n"); },
         Promise::AllOrNone},
        {"log", logFile, [](Desk &desk) { desk.write("***Clear***"); },
         endsWith("14:03:27 - ***Clear***\r\n"), Promise::Appends},
        {"log beyond the code page", logFile, [](Desk &desk) { desk.write(u"Adding Łódź"_qs); },
         [](const QByteArray &now) { return now.startsWith("\xEF\xBB\xBF" + logBefore); },
         Promise::AllOrNone},
        {"listing", file,
         [](Desk &desk) {
             files::writeAll(file, listing_dump::compose({listing_dump::entry("a", "b")},
                                                         desk.clock.now(), QLocale::c()));
         },
         [](const QByteArray &now) { return now.contains(" \\b\r\n") && now.endsWith("\r\n"); },
         Promise::AllOrNone},
    };
    return all;
}

/// How a run of a procedure ended.
struct Run {
    enum class End { Done, Told, Killed, Odd } end = End::Odd;
    QByteArray told;
    QByteArrayList calls;
};

template <typename Function>
Function *ofFaults(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_DEFAULT, name));
}

/// Runs a procedure, whose call meets a fault.
Run runHere(const Place &place, const Procedure &procedure, int call, const QByteArray &kind)
{
    constexpr unsigned longest = 20; // seconds: what hangs is worse than what fails
    const QByteArray room = QFile::encodeName(place.sandbox.prefix());
    const QByteArray target = QFile::encodeName(place.sandbox.host(procedure.target));
    Desk desk;
    alarm(longest);
    ofFaults<decltype(faultsBegin)>("faultsBegin")(call, kind.constData(), room.constData(),
                                                   target.constData());
    QString told = failureOf([&] { procedure.run(desk); });
    const QByteArray calls = ofFaults<decltype(faultsEnd)>("faultsEnd")();
    alarm(0);
    for (const MessageBox &box : desk.dialogs.boxes) {
        told += box.title + ' ' + box.prompt;
    }
    return {told.isEmpty() ? Run::End::Done : Run::End::Told, told.toUtf8(),
            calls.trimmed().split(' ')};
}

/// The same in a process of its own, which the fault ends.
Run runUntilKilled(const Place &place, const Procedure &procedure, int call, const QByteArray &kind)
{
    const pid_t child = fork();
    if (child == 0) {
        runHere(place, procedure, call, kind);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    return {isKilled ? Run::End::Killed : Run::End::Odd, {}, {}};
}

bool stands(const QByteArrayList &contents, const QByteArray &bytes)
{
    return std::any_of(contents.begin(), contents.end(),
                       [&](const QByteArray &one) { return one.startsWith(bytes); });
}

/// What is wrong after a run that met a fault; empty when nothing is.
QByteArray judge(const Place &place, const Place &untouched, const Procedure &procedure,
                 const Run &run, const QByteArray &kind)
{
    const QByteArray old = untouched.content(procedure.target);
    const QByteArray now = place.content(procedure.target);
    const bool isDone = procedure.isDone(now);
    const bool othersWrote = kind.startsWith("others");
    const QByteArrayList contents = place.contents();
    if (run.end == Run::End::Odd) {
        return "ended oddly";
    }
    if (run.end == Run::End::Done && !isDone && !othersWrote) {
        return "said nothing, and did nothing";
    }
    if (procedure.promise == Promise::AllOrNone && now != old && !isDone) {
        return "half done: " + now;
    }
    if (procedure.promise == Promise::Appends && !now.startsWith(old)) {
        return "changed what was there before";
    }
    // Where not even a cut is possible half a line stays.
    if (procedure.promise == Promise::Appends && run.end == Run::End::Told && !othersWrote &&
        kind != "gone" && now != old && !isDone) {
        return "left half a line: " + now.sliced(old.size());
    }
    if (othersWrote && !std::any_of(contents.begin(), contents.end(), [](const QByteArray &one) {
            return one.contains(faultsOthersLine);
        })) {
        return "lost what another program wrote";
    }
    for (const QByteArray &one : untouched.contents()) {
        if (!stands(contents, one) && !(procedure.promise == Promise::AllOrNone && one == old)) {
            return "lost " + one.left(30);
        }
    }
    return {};
}

/// What is wrong when the procedure is tried again.
QByteArray judgeNextTry(const Place &place, const Procedure &procedure)
{
    const Run run = runHere(place, procedure, 0, {});
    if (run.end != Run::End::Done || !procedure.isDone(place.content(procedure.target))) {
        return "the next try does not work: " + run.told;
    }
    const QDir folder = QFileInfo(place.sandbox.host(procedure.target)).dir();
    const QStringList left = folder.entryList({"*.new"}, QDir::Files | QDir::Hidden);
    return left.isEmpty() ? QByteArray() : "left " + left.join(' ').toUtf8();
}

} // namespace

class TestFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingIsLostAndTheUserIsTold_data();
    void nothingIsLostAndTheUserIsTold();
};

void TestFaults::initTestCase()
{
    if (QFileInfo("/dev/shm").isWritable()) {
        qputenv("TMPDIR", "/dev/shm"); // thousands of prefixes: not on a disk
    }
    QVERIFY2(ofFaults<decltype(faultsBegin)>("faultsBegin") != nullptr,
             "the library of faults must be loaded: LD_PRELOAD, as ctest does");
}

void TestFaults::nothingIsLostAndTheUserIsTold_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("kind");
    for (int i = 0; i < procedures().size(); ++i) {
        for (const char *kind : {"full", "broken", "denied", "readonly", "toomany", "half", "gone",
                                 "kill", "killhalf"}) {
            QTest::addRow("%s, %s", procedures()[i].name, kind) << i << QByteArray(kind);
        }
        if (procedures()[i].promise == Promise::Appends) {
            for (const char *kind : {"others", "othershalf"}) {
                QTest::addRow("%s, %s", procedures()[i].name, kind) << i << QByteArray(kind);
            }
        }
    }
}

void TestFaults::nothingIsLostAndTheUserIsTold()
{
    QFETCH(int, index);
    QFETCH(QByteArray, kind);
    const Procedure &procedure = procedures()[index];
    const Place untouched;
    const Place plainPlace;
    const Run plain = runHere(plainPlace, procedure, 0, {});
    QCOMPARE(plain.told, QByteArray());
    QVERIFY(procedure.isDone(plainPlace.content(procedure.target)));
    QByteArrayList wrong;
    for (int call = 1; call <= plain.calls.size(); ++call) {
        if (kind.endsWith("half") && plain.calls[call - 1] != "write") {
            continue;
        }
        const Place place;
        const Run run =
            (kind.startsWith("kill") ? runUntilKilled : runHere)(place, procedure, call, kind);
        QByteArray problem = judge(place, untouched, procedure, run, kind);
        if (problem.isEmpty() && run.end != Run::End::Done) {
            problem = judgeNextTry(place, procedure);
        }
        if (!problem.isEmpty()) {
            wrong += QByteArray::number(call) + ' ' + plain.calls[call - 1] + ": " + problem +
                     " [" + run.told + ']';
        }
    }
    QVERIFY2(wrong.isEmpty(), wrong.join('\n').constData());
}

QTEST_GUILESS_MAIN(TestFaults)
#include "test_faults.moc"
