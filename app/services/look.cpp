// SPDX-License-Identifier: MIT
#include "app/services/look.h"

#include <QGroupBox>

void setBold(QWidget *control, bool bold)
{
    QFont font = control->font();
    font.setBold(bold);
    control->setFont(font);
}

namespace
{

/// Gives the controls in a frame their own look for good: what is set for the frame is for its
/// caption alone.
void detachChildren(const QWidget &frame)
{
    for (QWidget *child : frame.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        QPalette palette = child->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
                palette.setBrush(group, role, child->palette().brush(group, role));
            }
        }
        child->setPalette(palette);
        setBold(child, child->font().bold());
    }
}

} // namespace

void showCurrentStep(QWidget *control)
{
    if (qobject_cast<QGroupBox *>(control) != nullptr) {
        detachChildren(*control);
    }
    QPalette palette = control->palette();
    palette.setColor(QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::ButtonText, Qt::red);
    control->setPalette(palette);
    setBold(control, true);
}

void showDone(QWidget *control)
{
    control->setPalette(QPalette());
    setBold(control, false);
}
