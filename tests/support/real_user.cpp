// SPDX-License-Identifier: MIT
#include "tests/support/real_user.h"

#include "tests/support/hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QThread>

#include <stdexcept>

namespace
{

constexpr int patience = 10000; // milliseconds a step waits for what it needs

/// Runs in the program's own thread, also while a box is open there.
template <typename Work>
auto inProgram(Work work)
{
    decltype(work()) result{};
    QMetaObject::invokeMethod(
        qApp, [&] { result = work(); }, Qt::BlockingQueuedConnection);
    return result;
}

QMessageBox *openBox()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

} // namespace

QString RealUser::run(QMainWindow &window, const std::function<void(RealUser &)> &steps)
{
    QString problem;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            RealUser user(window);
            user.await("the window in front", [&] { return window.isActiveWindow(); });
            steps(user);
        } catch (const std::exception &error) {
            shoot("failed");
            problem = QString::fromLocal8Bit(error.what());
        }
        // A box that nobody answers would keep the program from ending.
        QMetaObject::invokeMethod(qApp, [] {
            if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
                dialog->reject();
            }
            QCoreApplication::exit();
        });
    }));
    thread->start();
    QApplication::exec();
    while (!thread->wait(10)) {
        QCoreApplication::processEvents();
    }
    return problem;
}

void RealUser::await(const QString &what, const std::function<bool()> &isSo)
{
    QElapsedTimer timer;
    timer.start();
    while (!inProgram(isSo)) {
        if (timer.elapsed() > patience) {
            throw std::runtime_error("waited in vain for " + what.toStdString());
        }
        QThread::msleep(10);
    }
}

void RealUser::clickAt(const QPoint &global, int times)
{
    hands::movePointer(global);
    hands::click(times);
}

QPoint RealUser::centre(QWidget *widget)
{
    return inProgram([=] { return widget->mapToGlobal(widget->rect().center()); });
}

QWidget *RealUser::shown(const QString &control)
{
    QWidget *widget = nullptr;
    await(control, [&] {
        QWidget *const modal = QApplication::activeModalWidget();
        widget = (modal != nullptr ? modal : &m_window)->findChild<QWidget *>(control);
        return widget != nullptr && widget->isVisible() && widget->isEnabled();
    });
    return widget;
}

void RealUser::click(const QString &control)
{
    clickAt(centre(shown(control)));
}

void RealUser::moveTo(const QString &control)
{
    const QPoint place = centre(m_window.findChild<QWidget *>(control));
    hands::movePointer(place);
}

QPoint RealUser::entryPosition(const QString &list, int row, bool checkBox)
{
    QPoint place;
    await(list + " entry " + QString::number(row), [&] {
        auto *view = m_window.findChild<QAbstractItemView *>(list);
        if (view == nullptr || !view->isVisible() || view->model()->rowCount() <= row) {
            return false;
        }
        const QRect entry = view->visualRect(view->model()->index(row, 0));
        const int box = view->style()->pixelMetric(QStyle::PM_IndicatorWidth);
        place = view->viewport()->mapToGlobal(QPoint(
            checkBox ? entry.left() + box / 2 + 3 : entry.left() + 3 * box, entry.center().y()));
        return true;
    });
    return place;
}

void RealUser::clickCheckBox(const QString &list, int row)
{
    clickAt(entryPosition(list, row, true));
}

void RealUser::clickEntry(const QString &list, int row)
{
    clickAt(entryPosition(list, row, false));
}

void RealUser::doubleClickEntry(const QString &list, int row)
{
    clickAt(entryPosition(list, row, false), 2);
}

void RealUser::beginDrag(const QString &list, int row, const QString &target)
{
    const QPoint start = entryPosition(list, row, false);
    const QPoint end = centre(shown(target));
    hands::movePointer(start);
    hands::mouseDown();
    // In steps, as a hand does: the first one starts the drag, the others tell the target of it.
    for (int step = 1; step <= 8; ++step) {
        hands::movePointer(start + (end - start) * step / 8);
    }
    hands::movePointer(end + QPoint(3, 3));
}

void RealUser::drop()
{
    hands::mouseUp();
}

void RealUser::dragEntry(const QString &list, int row, const QString &target)
{
    beginDrag(list, row, target);
    drop();
}

void RealUser::clickTab(int page)
{
    const QPoint place = inProgram([&] {
        auto *bar = m_window.findChild<QTabWidget *>("SSTab1")->tabBar();
        return bar->mapToGlobal(bar->tabRect(page).center());
    });
    clickAt(place);
}

void RealUser::press(const QString &keys)
{
    hands::press(keys);
}

void RealUser::type(const QString &text)
{
    hands::type(text);
}

QString RealUser::box()
{
    QString text;
    await("a message box", [&] {
        const QMessageBox *box = openBox();
        if (box == nullptr || !box->isActiveWindow()) {
            return false;
        }
        text = box->windowTitle() + '|' + box->text();
        return true;
    });
    return text;
}

void RealUser::answer(const QString &button)
{
    box();
    QWidget *found = nullptr;
    await("the button " + button, [&] {
        for (QAbstractButton *candidate : openBox()->buttons()) {
            if (candidate->text().remove('&') == button) {
                found = candidate;
            }
        }
        return found != nullptr;
    });
    const QMessageBox *before = inProgram([] { return openBox(); });
    clickAt(centre(found));
    await("the box to close", [&] { return openBox() != before; });
}

void RealUser::chooseFile(const QString &hostPath)
{
    const auto isOpen = [] {
        const auto *const own = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        return hands::isFileDialogOpen() || (own != nullptr && own->isActiveWindow());
    };
    await("the file dialog", isOpen);
    type(hostPath);
    press("Return");
    await("the file dialog to close", [&] { return !isOpen(); });
}

void RealUser::closeWindow()
{
    hands::press("alt+F4");
}

void RealUser::shoot(const QString &name)
{
    const QString folder = qEnvironmentVariable("SCREENSHOTS");
    if (!folder.isEmpty()) {
        hands::shoot(folder + '/' + name + ".png");
    }
}
