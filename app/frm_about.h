// SPDX-License-Identifier: MIT
// The About box.
#pragma once

#include "app/services/services.h"

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
    explicit frmAbout(Services &services, QWidget *parent = nullptr);
    ~frmAbout() override;

private:
    void cmdSysInfo_Click();

    Services &m_services;
    std::unique_ptr<Ui::frmAbout> ui;
};
