#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// Asks for the address of the web translation service and keeps it as the user's setting. OK takes
// only an address the client can use, or nothing, which removes the setting.
class TranslationServiceDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TranslationServiceDialog(QWidget* parent = nullptr);

public slots:
    void accept() override;

private:
    void updateOkButton();

    QLineEdit* m_address;
    QPushButton* m_ok;
};
