// SPDX-License-Identifier: MIT
// Page 2, the flight plan set creator. Its controls follow the start-up; creating sets is not part
// of this version, so they are not shown.
#pragma once

#include "app/services/services.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class FpSetPage;
}

class FpSetPage : public QWidget
{
    Q_OBJECT

public:
    explicit FpSetPage(Services &services, QWidget *parent = nullptr);
    ~FpSetPage() override;

    /// Gives the name box the default name and forgets any set in progress.
    void prepare();

    /// Shows where TTools is; a path that does not name it changes nothing.
    void showTTools(const QString &path);

    /// Lets a set be named, once TTools is known.
    void enableNaming();

    /// The name box, when it can be used.
    void focusNameBox();

    /// The aircraft of a new set were added: back to its name and the button that creates it.
    void continueWithSet();

Q_SIGNALS:
    void quitPressed();
    void helpWanted();

private:
    std::unique_ptr<Ui::FpSetPage> ui;
    FormState &m_state;
    QString m_setName; ///< the name kept for the set in progress
};
