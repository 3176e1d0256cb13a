// SPDX-License-Identifier: MIT
// The boxes as the user sees them.
#pragma once

#include "platform/dialogs.h"

class QWidget;

class SystemDialogs : public Dialogs
{
public:
    /// The window the boxes stand before, once there is one.
    void setParent(QWidget *parent) { m_parent = parent; }

    MessageBox::Answer show(const MessageBox &box) override;
    QString openFile(const OpenFileDialog &dialog) override;

private:
    QWidget *m_parent = nullptr;
};
