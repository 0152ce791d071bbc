#include "PictureBox.h"

#include <QMouseEvent>
#include <QPainter>

PictureBox::PictureBox(Fit fit, QWidget* parent)
    : QWidget(parent)
    , m_fit(fit)
{
    setBackgroundRole(QPalette::Window);
}

void PictureBox::setColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, color);
    setPalette(colors);
    setAutoFillBackground(true);
}

QColor PictureBox::color() const
{
    return palette().color(QPalette::Window);
}

void PictureBox::setPicture(const QImage& picture)
{
    if (picture.isNull() && m_picture.isNull()) {
        return;
    }
    m_picture = picture;
    update();
}

void PictureBox::paintEvent(QPaintEvent*)
{
    if (m_picture.isNull()) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QRect target = rect();
    if (m_fit == Fit::KeepAspect) {
        const QSize size = m_picture.size().scaled(target.size(), Qt::KeepAspectRatio);
        target = QRect(QPoint(), size);
        target.moveCenter(rect().center());
    }
    painter.drawImage(target, m_picture);
}

// Press and release are kept here, not passed on: a group picture on the back side takes its own
// clicks, and the side around it never sees them.
void PictureBox::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
    event->accept();
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event)
{
    const bool click
        = m_pressed && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    m_pressed = false;
    event->accept();
    if (click) {
        emit clicked();
    }
}
