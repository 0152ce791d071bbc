#pragma once

#include "WebTranslationClient.h"

#include <QDialog>

class QComboBox;
class QPlainTextEdit;
class UserPrompts;

// The translation client's own dialog, for trying the service by hand: a text, a source and a target
// language, and the result. The menu editors do not show it.
class TranslationTestDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TranslationTestDialog(UserPrompts& prompts, QWidget* parent = nullptr);

    // The names the lists offer, in their order.
    static const QStringList& languageNames();

public slots:
    void Command1_Click(); // Translate

private:
    // The background is keyed out and the rest drawn nearly opaque.
    void layerForm();
    QComboBox* addLanguageList(const QString& name);

    UserPrompts& m_prompts;
    WebTranslationClient m_client;
    QComboBox* m_source;
    QComboBox* m_target;
    QPlainTextEdit* m_text;
    QPlainTextEdit* m_result;
};
