// SPDX-License-Identifier: MIT
// A label that can be clicked, with room to turn bold.
#pragma once

#include <QLabel>

class LinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override; ///< room for the bold text, so that nothing moves

    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
