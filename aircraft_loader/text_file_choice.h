// SPDX-License-Identifier: MIT
// Page 0's aircraft text file: choosing it, editing it, and running the compiler beside it.
#pragma once

#include <QObject>

namespace Ui
{
class AircraftLoaderPage;
}

struct Services;

class TextFileChoice : public QObject
{
    Q_OBJECT

public:
    TextFileChoice(Ui::AircraftLoaderPage &ui, Services &services, QObject *parent);

    /// Shows the prompt, and disables Edit and Run TTools. The file in use stays in use until
    /// another one is: for the settings, and for a set that goes on with it.
    void ask();

    /// Shows a file and makes it the one in use; an empty path asks for one.
    void take(const QString &path);

    bool isShown() const; ///< a file; else it is asked for one

    /// The file is listed: it can be edited, and compiled when TTools stands beside it.
    void enableTools();

Q_SIGNALS:
    void changed(const QString &path); ///< the file in use, empty for none; be it the same again
    void chosen();                     ///< the user has chosen a file, or refused to
    void edited();                     ///< the user changed the file

private:
    // Handlers. The names are the product's.
    void cmdBrowseText_Click();
    void cmdEdit_Click();
    void cmdTtools_Click();

    void show(const QString &path, qsizetype limit);
    void setAircraftTextDir(const QString &path);

    Ui::AircraftLoaderPage &m_ui;
    Services &m_services;
};
