#include "TranslationServiceDialog.h"

#include "TranslationService.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

TranslationServiceDialog::TranslationServiceDialog(QWidget* parent)
    : QDialog(parent)
    , m_address(new QLineEdit(TranslationService::savedAddress(), this))
{
    setObjectName(QStringLiteral("TranslationServiceDialog"));
    setWindowTitle(tr("Translation Service"));

    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(tr("&Address of the translation service (scheme, host and port):"), this);
    label->setBuddy(m_address);
    layout->addWidget(label);
    m_address->setObjectName(QStringLiteral("ServiceAddress"));
    m_address->setPlaceholderText(QStringLiteral("http://127.0.0.1:8080"));
    m_address->setMinimumWidth(360);
    layout->addWidget(m_address);

    // The environment wins over the setting; say so, or the user wonders why a change does nothing.
    if (qEnvironmentVariableIsSet("QUORVEL_TRANSLATE_URL")) {
        auto* note = new QLabel(tr("QUORVEL_TRANSLATE_URL is set and is used instead: %1")
                                    .arg(qEnvironmentVariable("QUORVEL_TRANSLATE_URL")),
            this);
        note->setObjectName(QStringLiteral("EnvironmentNote"));
        note->setWordWrap(true);
        layout->addWidget(note);
    }

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &TranslationServiceDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &TranslationServiceDialog::reject);
    connect(m_address, &QLineEdit::textChanged, this, &TranslationServiceDialog::updateOkButton);
    updateOkButton();
}

void TranslationServiceDialog::accept()
{
    TranslationService::saveAddress(m_address->text().trimmed());
    QDialog::accept();
}

void TranslationServiceDialog::updateOkButton()
{
    const QString address = m_address->text().trimmed();
    m_ok->setEnabled(address.isEmpty() || TranslationService::isValidAddress(address));
}
