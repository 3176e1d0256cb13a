// SPDX-License-Identifier: MIT
#include "app/services/link_label.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

LinkLabel::LinkLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::TabFocus);
    setForegroundRole(QPalette::Link);
}

QSize LinkLabel::sizeHint() const
{
    QFont bold = font();
    bold.setBold(true);
    return QFontMetrics(bold).size(Qt::TextSingleLine, text()) + QSize(8, 6);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        Q_EMIT clicked();
    }
}

void LinkLabel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
        event->key() == Qt::Key_Space) {
        Q_EMIT clicked();
    } else {
        QLabel::keyPressEvent(event);
    }
}

void LinkLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}
