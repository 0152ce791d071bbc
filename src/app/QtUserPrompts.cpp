#include "QtUserPrompts.h"

#include <QApplication>
#include <QMessageBox>

void QtUserPrompts::showMessage(const QString& text)
{
    QMessageBox::information(m_parent, QApplication::applicationDisplayName(), text);
}
