// SPDX-License-Identifier: MIT
// Finding controls by the product's names.
#pragma once

#include <QWidget>

#include <stdexcept>

/// The control of this name and type below a window. Throws std::runtime_error with the name when
/// there is none: a test must not go on with a null pointer.
template <typename Control>
Control *findControl(const QWidget &window, const QString &name)
{
    auto *const control = window.findChild<Control *>(name);
    if (control == nullptr) {
        throw std::runtime_error("no control " + name.toStdString());
    }
    return control;
}
