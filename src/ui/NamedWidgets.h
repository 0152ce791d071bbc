#pragma once

#include <QLabel>
#include <QPushButton>
#include <QString>

// Dialogs name their widgets after the controls they stand for, so that tests and the keyboard find
// them.
template<typename Widget>
Widget* named(Widget* widget, const QString& name)
{
    widget->setObjectName(name);
    return widget;
}

// The name of member i of a control array: "Linhas_0".
inline QString arrayName(QStringView name, int index)
{
    return name.toString() + u'_' + QString::number(index);
}

// A label whose mnemonic moves the focus to the widget it names.
inline QLabel* buddyLabel(QWidget* parent, const QString& name, const QString& caption, QWidget* buddy)
{
    auto* label = named(new QLabel(caption, parent), name);
    label->setBuddy(buddy);
    return label;
}

// A button that Enter in a text box does not press.
inline QPushButton* commandButton(QWidget* parent, const QString& name, const QString& caption)
{
    auto* button = named(new QPushButton(caption, parent), name);
    button->setAutoDefault(false);
    return button;
}

// A command button whose click runs a handler of the window it sits in.
template<typename Window>
QPushButton* connectedButton(
    Window* window, const QString& name, const QString& caption, void (Window::*handler)())
{
    auto* button = commandButton(window, name, caption);
    QObject::connect(button, &QPushButton::clicked, window, handler);
    return button;
}
