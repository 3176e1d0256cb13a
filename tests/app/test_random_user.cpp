// SPDX-License-Identifier: MIT
// A user who clicks, ticks, types and answers whatever is shown, for a minute under the sanitizers
// and some seconds otherwise ($RANDOM_USER_SECONDS says how long). The start value is printed;
// $RANDOM_USER_START repeats a run, as far as its timing allows.
#include "app/frm_morlen_editor.h"
#include "app/services/form_state.h"
#include "app/services/link_label.h"
#include "platform/controls/system_dialogs.h"
#include "tests/support/airport_list.h"
#include "tests/support/fakes.h"
#include "tests/support/lines.h"
#include "tests/support/sandbox.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTabBar>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace
{

const QString aircraftFile = QStringLiteral("C:\\Sets\\Aircraft_Mine.txt");
const QString airportFile = QStringLiteral("C:\\Sets\\Airports_Mine.txt");

qint64 defaultSeconds()
{
#ifdef __SANITIZE_ADDRESS__
    return 60;
#else
    return 5;
#endif
}

qint64 fromEnvironment(const char *name, qint64 otherwise)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariable(name).toLongLong() : otherwise;
}

class RandomUser : public SystemDialogs
{
    template <typename List>
    auto any(const List &list)
    {
        return list[m_random.bounded(static_cast<int>(list.size()))];
    }

    bool oneIn(int times) { return m_random.bounded(times) == 0; }

public:
    explicit RandomUser(quint32 start) : m_random(start) {}

    /// Uses the program again and again, until the time is over.
    void use(FakeOutside &outside, qint64 seconds)
    {
        m_outside = &outside;
        m_timeOver.setRemainingTime(seconds * 1000);
        outside.processes.whileRunning = [this] {
            m_editorOpen = true;
            if (oneIn(5)) {
                edit();
            }
        };
        while (!m_timeOver.hasExpired()) {
            m_window = std::make_unique<frmMorlenEditor>(
                Outside{outside.registry, outside.processes, *this, outside.clock});
            setParent(m_window.get());
            m_started = false;
            QTimer::singleShot(0, m_window.get(), [this] {
                m_window->Form_Load();
                m_started = true;
            });
            QTimer::singleShot(0, m_window.get(), [this] { act(); });
            QApplication::exec();
        }
        m_window.reset();
    }

    QString openFile(const OpenFileDialog & /*dialog*/) override
    {
        return any(QStringList{aircraftFile, aircraftFile, airportFile, airportFile, "",
                               "C:\\Sets\\planes.txt", "C:\\TTools\\TTools.exe",
                               "C:\\Gone\\Aircraft_1.txt", "C:\\TTools\\Aircraft_xx.txt"});
    }

    int actions = 0;
    std::function<void()> check; ///< now and then
    std::function<void()> edit;  ///< an editor changes a file

private:
    /// Does one thing. The next one is under way before it: this one may open a box.
    void act()
    {
        if (m_timeOver.hasExpired()) {
            QCoreApplication::exit();
            return;
        }
        QTimer::singleShot(1, m_window.get(), [this] { act(); });
        QWidget *const popup = QApplication::activePopupWidget();
        QWidget *const box = QApplication::activeModalWidget();
        if (popup != nullptr) {
            QTest::keyClick(popup, any(QList{Qt::Key_Escape, Qt::Key_Down, Qt::Key_Return}));
        } else if (box != nullptr) {
            answer(box);
        } else if (isIdle()) {
            work();
        } else {
            return;
        }
        if (++actions % 20 == 0) {
            check();
        }
    }

    /// Nobody's click gets through while a handler runs, unless it waits for another program.
    bool isIdle()
    {
        const QString &step = m_window->state().ErrMsg;
        const bool waiting = std::exchange(m_editorOpen, false);
        return m_started && (step.isEmpty() || waiting) && !m_window->state().ended;
    }

    void answer(QWidget *box)
    {
        const auto buttons = usable(box->findChildren<QAbstractButton *>());
        if (buttons.isEmpty() || oneIn(4)) {
            QTest::keyClick(box, any(QList{Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab}));
        } else {
            QTest::mouseClick(any(buttons), Qt::LeftButton);
        }
    }

    void work()
    {
        m_outside->processes.exitCodes = oneIn(3) ? QList<int>{259, 259, 259, 0} : QList<int>{0};
        switch (m_random.bounded(12)) {
        case 0:
            clickTab();
            break;
        case 1:
            pressKey();
            break;
        case 2:
            type();
            break;
        case 3:
            if (oneIn(10)) {
                oneIn(2) ? static_cast<void>(m_window->close()) : chooseFromMenu();
            }
            break;
        case 4:
            changeCombo();
            break;
        case 5:
        case 6:
        case 7:
            clickButton();
            break;
        default:
            clickList();
        }
    }

    template <typename Widget>
    static QList<Widget *> usable(QList<Widget *> widgets)
    {
        widgets.removeIf(
            [](const Widget *widget) { return !widget->isVisible() || !widget->isEnabled(); });
        return widgets;
    }

    template <typename Widget>
    Widget *anyOnWindow()
    {
        const auto widgets = usable(m_window->findChildren<Widget *>());
        return widgets.isEmpty() ? nullptr : any(widgets);
    }

    void clickTab()
    {
        if (auto *const tabs = anyOnWindow<QTabBar>()) {
            const QRect tab = tabs->tabRect(m_random.bounded(tabs->count()));
            QTest::mouseClick(tabs, Qt::LeftButton, {}, tab.center());
        }
    }

    void pressKey()
    {
        QWidget *const focus = m_window->focusWidget();
        const QList keys = {Qt::Key_Tab,  Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape,
                            Qt::Key_Down, Qt::Key_Up,    Qt::Key_Insert, Qt::Key_Delete,
                            Qt::Key_F2,   Qt::Key_A,     Qt::Key_End,    Qt::Key_Home};
        QTest::keyClick(focus != nullptr ? focus : m_window.get(), any(keys));
    }

    void type()
    {
        if (auto *const box = anyOnWindow<QLineEdit>()) {
            QTest::keyClicks(box, any(QStringList{"x", "ab", " ", "\\", ".txt", "FlightPlans_"}));
            if (oneIn(5)) {
                box->clear();
                QTest::keyClicks(box, "FlightPlans_" + any(QStringList{"xx", "yy", "z z"}));
            }
        }
    }

    void chooseFromMenu()
    {
        const auto menus = m_window->menuBar()->findChildren<QMenu *>();
        any(any(menus)->actions())->trigger();
    }

    void changeCombo()
    {
        if (auto *const box = anyOnWindow<QComboBox>()) {
            QTest::keyClick(box, oneIn(2) ? Qt::Key_Down : Qt::Key_Up);
        }
    }

    void clickButton()
    {
        if (auto *const link = oneIn(10) ? anyOnWindow<LinkLabel>() : nullptr) {
            QTest::mouseClick(link, Qt::LeftButton);
        } else if (auto *const button = anyOnWindow<QAbstractButton>()) {
            QTest::mouseClick(button, Qt::LeftButton, {}, {8, button->height() / 2});
        }
    }

    /// Clicks an entry or its check mark, now and then twice.
    void clickList()
    {
        auto *const list = anyOnWindow<QAbstractItemView>();
        if (list == nullptr || list->model() == nullptr || list->model()->rowCount() == 0) {
            return;
        }
        const QModelIndex entry =
            list->model()->index(m_random.bounded(list->model()->rowCount()), 0);
        list->scrollTo(entry);
        const QRect place = list->visualRect(entry);
        const QPoint where(place.left() + (oneIn(3) ? 40 : 8), place.center().y());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, where);
        if (oneIn(5)) {
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, where);
        }
    }

    QRandomGenerator m_random;
    FakeOutside *m_outside = nullptr;
    std::unique_ptr<frmMorlenEditor> m_window;
    QDeadlineTimer m_timeOver;
    bool m_started = false;
    bool m_editorOpen = false;
};

/// Files that only ever grow at their end.
class GrowingFiles
{
public:
    explicit GrowingFiles(const Sandbox &sandbox) : m_sandbox(sandbox) {}

    void check()
    {
        for (const QString &path : {aircraftFile, airportFile}) {
            const QByteArray now = m_sandbox.read(path);
            if (!now.startsWith(m_before[path])) {
                spoilt += path;
            }
            m_before[path] = now;
        }
    }

    /// Adds a line as an editor does.
    void addByHand()
    {
        QByteArray bytes = m_sandbox.read(aircraftFile);
        const int number = bytes.mid(bytes.lastIndexOf("AC#") + 3).split(',').first().toInt();
        bytes += bytes.endsWith('\n') ? "" : "\r\n";
        bytes += "AC#" + QByteArray::number(number + 2) + ",120,\"By hand\"\r\n";
        m_sandbox.write(aircraftFile, bytes);
    }

    QStringList spoilt;

private:
    const Sandbox &m_sandbox;
    QMap<QString, QByteArray> m_before;
};

void layOut(const Sandbox &sandbox, FakeOutside &outside)
{
    outside.registry.installFs9("C:\\FS9");
    for (int i = 0; i < 40; ++i) {
        const QByteArray number = QByteArray::number(i);
        sandbox.write("C:\\FS9\\Aircraft\\A" + number + "\\aircraft.cfg",
                      "[fltsim.0]\r\ntitle=Airbus " + number +
                          "\r\nui_manufacturer=M\r\nui_type=T\r\nui_variation=V\r\n"
                          "[fltsim.1]\r\ntitle=Boeing " +
                          number + "\r\ncruise_speed=450\r\n");
    }
    sandbox.write("C:\\FS9\\Aircraft\\A1\\panel\\panel.cfg", "alias=A2\\panel\r\n");
    sandbox.write("C:\\FS9\\Aircraft\\Bad\\aircraft.cfg", "[fltsim.0]");
    sandbox.write("C:\\FSX\\Airplanes\\C172\\aircraft.cfg",
                  "[fltsim.0]\r\ntitle=Cessna\r\ncruise_speed=120\r\n");
    sandbox.write(aircraftFile, "; mine\r\nAC#4,450,\"Airbus 3\"\r\nAC#9,120,\"Not installed\"");
    sandbox.write(airportFile, "// mine\r\nEDDH,N53* 37.82',E09* 59.30',53\r\n");
    sandbox.write("C:\\TTools\\TTools.exe", "MZ");
    sandbox.write("C:\\windows\\system32\\ZENTAM.OCX", smallAirportList);
    sandbox.write("C:\\Morlen\\MorlenE.ini", "0\r\nC:\\TTools\\TTools.exe\r\nc:\r\n"
                                             "C:\\FS9\\Aircraft\r\n" +
                                                 aircraftFile.toLatin1() + "\r\nTrue\r\n");
}

} // namespace

class TestRandomUser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whateverIsDoneTheOldLinesStayInFront();
};

void TestRandomUser::whateverIsDoneTheOldLinesStayInFront()
{
    const auto start = static_cast<quint32>(
        fromEnvironment("RANDOM_USER_START", QRandomGenerator::global()->generate()));
    qInfo("RANDOM_USER_START=%u", start);
    const Sandbox sandbox;
    FakeOutside outside;
    layOut(sandbox, outside);
    GrowingFiles files(sandbox);
    RandomUser user(start);
    user.check = [&] { files.check(); };
    user.edit = [&] { files.addByHand(); };
    user.use(outside, fromEnvironment("RANDOM_USER_SECONDS", defaultSeconds()));
    files.check();
    qInfo("%d actions", user.actions);
    QCOMPARE(files.spoilt, QStringList());
    QVERIFY(user.actions > 100);

    int number = 0;
    int added = 0;
    static const QRegularExpression aircraftLine("^AC#(\\d+),\\d+,\"[^\"]+\"$");
    for (const QString &line : linesOf(sandbox.read(aircraftFile))) {
        const QRegularExpressionMatch match = aircraftLine.match(line);
        QVERIFY2(match.hasMatch() || line.startsWith("; mine") || line.startsWith("//AI "),
                 qPrintable(line));
        if (match.hasMatch()) {
            QVERIFY2(match.captured(1).toInt() > number, qPrintable(line));
            number = match.captured(1).toInt();
            ++added;
        }
    }
    qInfo("%d aircraft in the file", added);
}

QTEST_MAIN(TestRandomUser)
#include "test_random_user.moc"
