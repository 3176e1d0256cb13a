// SPDX-License-Identifier: MIT
// A label that can be clicked, and turns bold under the mouse.
#pragma once

#include <QLabel>

class LinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(QWidget *parent = nullptr);

    bool isBold() const { return font().bold(); }

    void setBold(bool bold);

    QSize sizeHint() const override; ///< room for the bold text, so that nothing moves

    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void clicked();
    void mouseMoved();

protected:
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
