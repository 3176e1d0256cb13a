// SPDX-License-Identifier: MIT
// The reminder of how airports are added.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui
{
class frmAddAirportHelp;
}

/// Shown before airports are chosen, for as long as ShowAddAirportHelp says so. Any click on its
/// check box turns it off for good; ticking it and unticking it again does not turn it back on.
class frmAddAirportHelp : public QDialog
{
    Q_OBJECT

public:
    explicit frmAddAirportHelp(bool &ShowAddAirportHelp, QWidget *parent = nullptr);
    ~frmAddAirportHelp() override;

private:
    void Form_Load();
    void Check1_Click();
    void Command1_Click();

    bool &m_isStillDue;
    std::unique_ptr<Ui::frmAddAirportHelp> ui;
};
