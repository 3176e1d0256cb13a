// SPDX-License-Identifier: MIT
#include "app/hover_links.h"

#include "app/services/look.h"

#include <QMouseEvent>
#include <QWidget>

#include <utility>

HoverLinks::HoverLinks(QWidget *form)
    : QObject(form),
      m_handlers({{"lblAbout", &HoverLinks::lblAbout_MouseMove},
                  {"lblHelp", &HoverLinks::lblHelp_MouseMove},
                  {"lblPellara", &HoverLinks::lblPellara_MouseMove},
                  {"Tab0Help", &HoverLinks::Tab0Help_MouseMove},
                  {"tab1Help", &HoverLinks::tab1Help_MouseMove},
                  {"Tab2lblHelp", &HoverLinks::Tab2lblHelp_MouseMove},
                  {"tab3VarloHelp", &HoverLinks::tab3VarloHelp_MouseMove},
                  {"frmLeveler", &HoverLinks::frmLeveler_MouseMove}})
{
    // The bare form shows through its pages too.
    for (const char *area : {"centralWidget", "SSTab1", "aircraftLoaderPage", "airportLoaderPage",
                             "fpSetPage", "configEditorPage"}) {
        m_handlers.insert(area, &HoverLinks::Form_MouseMove);
    }
    for (const QString &name : m_handlers.keys()) {
        auto *const widget = form->findChild<QWidget *>(name);
        widget->setMouseTracking(true);
        widget->installEventFilter(this);
    }
}

bool HoverLinks::eventFilter(QObject *watched, QEvent *event)
{
    // A move that a control on it lets through is none over the bare form.
    if (event->type() == QEvent::MouseMove &&
        static_cast<QWidget *>(watched)->childAt(
            static_cast<QMouseEvent *>(event)->position().toPoint()) == nullptr) {
        (this->*m_handlers[watched->objectName()])();
    }
    return false;
}

void HoverLinks::heat(const QString &link)
{
    auto *const label = parent()->findChild<QWidget *>(link);
    if (!m_hotLinks.contains(label)) {
        setBold(label, true);
        m_hotLinks += label;
    }
}

void HoverLinks::Form_MouseMove()
{
    for (QWidget *label : std::exchange(m_hotLinks, {})) {
        setBold(label, false);
    }
}
