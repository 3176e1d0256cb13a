// SPDX-License-Identifier: MIT
#include "platform/controls/drag_list_box.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

namespace
{

/// What is dragged, as the pointer carries it.
QPixmap pictureOf(const QListView &list, const QModelIndex &entry)
{
    const QFontMetrics metrics = list.fontMetrics();
    constexpr int widest = 400; // pixels: it is to be recognised, not read to its end
    const QString text =
        metrics.elidedText(entry.data().toString().left(1000), Qt::ElideRight, widest);
    const QSize size(metrics.horizontalAdvance(text) + 12, metrics.height() + 6);
    const qreal ratio = list.devicePixelRatioF();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    QPainter painter(&picture);
    painter.setFont(list.font());
    painter.setPen(list.palette().color(QPalette::HighlightedText));
    painter.fillRect(QRect({}, size), list.palette().color(QPalette::Highlight));
    painter.drawText(QRect({}, size), Qt::AlignCenter | Qt::TextSingleLine, text);
    return picture;
}

} // namespace

DragListBox::DragListBox(QWidget *parent) : ListBox(parent)
{
    setAcceptDrops(true);
    setDropIndicatorShown(false); // an order is not chosen by dropping
}

void DragListBox::mousePressEvent(QMouseEvent *event)
{
    setDragging(false);
    ListBox::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) {
        Q_EMIT mouseDown();
        if (!indexAt(event->position().toPoint()).isValid()) {
            setDragging(false); // the bare part of the list carries nothing
        }
    }
}

void DragListBox::startDrag(Qt::DropActions /*actions*/)
{
    const QModelIndex entry = currentIndex();
    if (!entry.isValid()) {
        return;
    }
    auto *const content = new QMimeData;
    content->setText(entry.data().toString());
    auto *const drag = new QDrag(this);
    drag->setMimeData(content);
    drag->setPixmap(pictureOf(*this, entry));
    drag->setHotSpot({-12, -12}); // beside the pointer, so that the target stays in sight
    drag->exec(Qt::CopyAction);
}

bool DragListBox::takes(QDropEvent &event) const
{
    const bool taken = m_partner != nullptr && event.source() == m_partner && isEnabled();
    event.setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(taken);
    return taken;
}

void DragListBox::showTarget(bool on)
{
    m_isTarget = on;
    viewport()->update();
}

void DragListBox::dragEnterEvent(QDragEnterEvent *event)
{
    showTarget(takes(*event));
}

void DragListBox::dragMoveEvent(QDragMoveEvent *event)
{
    takes(*event);
}

void DragListBox::dragLeaveEvent(QDragLeaveEvent * /*event*/)
{
    showTarget(false);
}

void DragListBox::dropEvent(QDropEvent *event)
{
    showTarget(false);
    if (takes(*event)) {
        Q_EMIT dropped(event->mimeData()->text());
    }
}

void DragListBox::paintEvent(QPaintEvent *event)
{
    ListBox::paintEvent(event);
    if (m_isTarget) {
        constexpr int width = 2;
        QPainter painter(viewport());
        painter.setPen(QPen(palette().color(QPalette::Highlight), width));
        painter.drawRect(viewport()->rect().adjusted(1, 1, -width + 1, -width + 1));
    }
}
