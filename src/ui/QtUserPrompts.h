#pragma once

#include "UserPrompts.h"

class QWidget;

// The prompts as Qt's own dialogs, over the given window.
class QtUserPrompts : public UserPrompts
{
public:
    void setParentWindow(QWidget* window) { m_parent = window; }

    void showMessage(const QString& text) override;
    QString askText(const QString& title) override;
    QString askOpenFile(const QString& preset) override;
    QString askSaveFile(const QString& preset) override;
    std::optional<std::int32_t> askColor(std::int32_t initialColor) override;

private:
    QWidget* m_parent = nullptr;
};
