// SPDX-License-Identifier: MIT
// A list box whose entries can be dragged into its partner, and dropped into from there.
#pragma once

#include "platform/controls/list_box.h"

/// A press on the list asks its owner, who may let the entry be dragged; moving the mouse then
/// starts the drag. A plain click still selects. Nothing else moves entries: what a drop means is
/// the owner's.
class DragListBox : public ListBox
{
    Q_OBJECT

public:
    explicit DragListBox(QWidget *parent = nullptr);

    /// The only list whose entries may be dropped here.
    void setDropPartner(const DragListBox *partner) { m_partner = partner; }

    /// Lets the pressed entry be dragged; said in answer to mouseDown.
    void setDragging(bool on) { setDragEnabled(on); }

Q_SIGNALS:
    void mouseDown();                  ///< a press, with the entry below it current
    void dropped(const QString &text); ///< the text of an entry of the partner

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool takes(QDropEvent &event) const;
    void showTarget(bool on);

    const DragListBox *m_partner = nullptr;
    bool m_isTarget = false;
};
