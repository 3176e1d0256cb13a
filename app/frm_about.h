// SPDX-License-Identifier: MIT
// The About box.
#pragma once

#include "app/services/outside.h"

#include <QDialog>

#include <memory>

namespace Ui
{
class frmAbout;
}

class frmAbout : public QDialog
{
    Q_OBJECT

public:
    frmAbout(const Outside &outside, const QString &osVersion, QWidget *parent = nullptr);
    ~frmAbout() override;

private:
    void cmdSysInfo_Click();

    Outside m_outside;
    std::unique_ptr<Ui::frmAbout> ui;
};
