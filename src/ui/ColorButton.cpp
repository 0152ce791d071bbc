#include "ui/ColorButton.h"

#include "document/ColorNumbers.h"
#include "ui/UserPrompts.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr QSize SwatchSize(40, 14);

QIcon swatch(const QColor& color)
{
    QPixmap face(SwatchSize);
    face.fill(color);
    QPainter painter(&face);
    painter.setPen(Qt::darkGray);
    painter.drawRect(face.rect().adjusted(0, 0, -1, -1));
    return QIcon(face);
}

} // namespace

ColorButton::ColorButton(const QString& caption, UserPrompts& prompts, QWidget* parent)
    : QPushButton(caption, parent)
    , m_prompts(prompts)
{
    // Enter in a dialog's boxes closes the dialog; it never opens the colour dialog.
    setAutoDefault(false);
    setIconSize(SwatchSize);
    setColorNumber(0);
}

void ColorButton::setColorNumber(std::int32_t color)
{
    m_color = color;
    // An icon rather than a style sheet keeps the style's own focus frame.
    setIcon(swatch(colorOfNumber(color)));
}

bool ColorButton::askColor()
{
    const std::optional<std::int32_t> chosen = m_prompts.askColor(m_color);
    if (!chosen) {
        return false;
    }
    setColorNumber(*chosen);
    return true;
}
