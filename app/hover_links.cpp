// SPDX-License-Identifier: MIT
#include "app/hover_links.h"

#include "app/services/look.h"

#include <QMouseEvent>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

HoverLinks::HoverLinks(QWidget *form)
    : QObject(form),
      m_handlers({{u"lblAbout"_s, &HoverLinks::lblAbout_MouseMove},
                  {u"lblHelp"_s, &HoverLinks::lblHelp_MouseMove},
                  {u"lblPellara"_s, &HoverLinks::lblPellara_MouseMove},
                  {u"Tab0Help"_s, &HoverLinks::Tab0Help_MouseMove},
                  {u"tab1Help"_s, &HoverLinks::tab1Help_MouseMove},
                  {u"Tab2lblHelp"_s, &HoverLinks::Tab2lblHelp_MouseMove},
                  {u"tab3VarloHelp"_s, &HoverLinks::tab3VarloHelp_MouseMove},
                  {u"frmLeveler"_s, &HoverLinks::frmLeveler_MouseMove}})
{
    // The bare form shows through its pages too.
    for (const QString &area : {u"centralWidget"_s, u"SSTab1"_s, u"aircraftLoaderPage"_s,
                                u"airportLoaderPage"_s, u"fpSetPage"_s, u"configEditorPage"_s}) {
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

void HoverLinks::heat(const char *link)
{
    auto *const label = parent()->findChild<QWidget *>(QString::fromLatin1(link));
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
