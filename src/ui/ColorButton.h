#pragma once

#include <QPushButton>

#include <cstdint>

class UserPrompts;

// A button whose face shows a colour and that asks for a new one when clicked. The colour is a number
// with red in the low byte (0x00BBGGRR), as the document keeps it.
class ColorButton : public QPushButton
{
    Q_OBJECT

public:
    ColorButton(const QString& caption, UserPrompts& prompts, QWidget* parent = nullptr);

    std::int32_t colorNumber() const { return m_color; }
    void setColorNumber(std::int32_t color);

    // Opens the colour dialog on the button's colour; the button takes what the user chose.
    // Returns whether a colour was chosen.
    bool askColor();

private:
    UserPrompts& m_prompts;
    std::int32_t m_color = 0;
};
