// SPDX-License-Identifier: MIT
// One page in the hands of its user: real files, real mouse and keys, everything outside faked.
#pragma once

#include "tests/support/find_control.h"
#include "tests/support/services_on_fakes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QtTest>

#include <memory>
#include <stdexcept>

template <typename Page>
class PageDriver : public ServicesOnFakes
{
public:
    // What the user does.

    /// Presses a button, or clicks an option where its mark is.
    void press(const QString &name) const
    {
        auto *const button = visible<QAbstractButton>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(12, button->height() / 2));
    }

    void pressKey(const QString &name, Qt::Key key) const
    {
        visible<QWidget>(name)->setFocus();
        QTest::keyClick(visible<QWidget>(name), key);
    }

    // What the user sees.

    template <typename Control>
    Control *find(const QString &name) const
    {
        return findControl<Control>(*window, name);
    }

    QString label(const QString &name) const { return find<QLabel>(name)->text(); }

    QString caption(const QString &button) const { return find<QAbstractButton>(button)->text(); }

    QString toolTip(const QString &name) const { return find<QWidget>(name)->toolTip(); }

    bool isShown(const QString &name) const { return find<QWidget>(name)->isVisible(); }

    bool isEnabled(const QString &name) const { return find<QWidget>(name)->isEnabled(); }

    /// Those of some controls that are enabled themselves, whatever the frame around them is.
    QStringList enabledOf(const QStringList &names) const
    {
        QStringList enabled;
        for (const QString &name : names) {
            if (!find<QWidget>(name)->testAttribute(Qt::WA_ForceDisabled)) {
                enabled += name;
            }
        }
        return enabled;
    }

    static QString focus()
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }

    std::unique_ptr<Page> window;

protected:
    /// Shows the page, which is there already, in a window of its own.
    void show() const
    {
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowExposed(window.get()) ||
            !QTest::qWaitForWindowActive(window.get())) {
            throw std::runtime_error("the page does not show");
        }
    }

    /// A control that the user can see: what is hidden cannot be clicked.
    template <typename Control>
    Control *visible(const QString &name) const
    {
        auto *const control = find<Control>(name);
        if (!control->isVisible()) {
            throw std::runtime_error(name.toStdString() + " is hidden");
        }
        return control;
    }
};
