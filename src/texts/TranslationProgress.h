#pragma once

#include "TranslationWaiting.h"

#include <QString>

#include <memory>

class QProgressDialog;
class QWidget;

// A translation that keeps the user waiting, shown in a progress dialog over the window it was asked
// from: what is translated into which language, and Cancel. The window takes no input meanwhile.
class TranslationProgress : public TranslationWaiting
{
public:
    TranslationProgress(QWidget* window, const QString& text, const QString& targetLanguage);
    ~TranslationProgress() override;
    TranslationProgress(const TranslationProgress&) = delete;
    TranslationProgress& operator=(const TranslationProgress&) = delete;

    void started(std::function<void()> cancel) override;
    void ended() override;

private:
    QWidget* m_window;
    QString m_label;
    std::unique_ptr<QProgressDialog> m_dialog;
};
