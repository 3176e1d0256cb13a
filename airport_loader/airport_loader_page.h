// SPDX-License-Identifier: MIT
// Page 1, the AI airport loader. Its place is held; what it does is not part of this version.
#pragma once

#include <QWidget>

#include <memory>

namespace Ui
{
class AirportLoaderPage;
}

class AirportLoaderPage : public QWidget
{
    Q_OBJECT

public:
    explicit AirportLoaderPage(QWidget *parent = nullptr);
    ~AirportLoaderPage() override;

Q_SIGNALS:
    void helpWanted();

private:
    std::unique_ptr<Ui::AirportLoaderPage> ui;
};
