#pragma once

#include <QImage>
#include <QWidget>

// A picture box of the page: a page side, or the picture of a group on the back column.
class PictureBox : public QWidget
{
    Q_OBJECT

public:
    enum class Fit
    {
        Fill, // stretched over the whole box, as a page side's background
        KeepAspect // as large as fits without distortion, centred
    };

    explicit PictureBox(Fit fit, QWidget* parent = nullptr);

    // Painted under the picture; a box without a colour lets its parent show through.
    void setColor(const QColor& color);
    QColor color() const;

    void setPicture(const QImage& picture);
    const QImage& picture() const { return m_picture; }

signals:
    // A click on the box itself; one on a box or label inside it is that control's own.
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Fit m_fit;
    QImage m_picture;
    bool m_pressed = false;
};
