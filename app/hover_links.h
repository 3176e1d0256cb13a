// SPDX-License-Identifier: MIT
// The links of the form: each turns bold under the mouse, until the mouse is over the bare form.
#pragma once

#include <QHash>
#include <QObject>

class HoverLinks : public QObject
{
public:
    /// For a form that has its controls already.
    explicit HoverLinks(QWidget *form);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Handlers. The names are the product's.
    void lblAbout_MouseMove() { heat("lblAbout"); }

    void lblHelp_MouseMove() { heat("lblHelp"); }

    void lblPellara_MouseMove() { heat("lblPellara"); }

    void Tab0Help_MouseMove() { heat("Tab0Help"); }

    void tab1Help_MouseMove() { heat("tab1Help"); }

    void Tab2lblHelp_MouseMove() { heat("Tab2lblHelp"); }

    void tab3VarloHelp_MouseMove() { heat("tab3VarloHelp"); }

    void frmLeveler_MouseMove() { Form_MouseMove(); }

    void Form_MouseMove();

    void heat(const char *link);

    QHash<QString, void (HoverLinks::*)()> m_handlers; ///< by the control under the mouse
    QList<QWidget *> m_hotLinks;
};
