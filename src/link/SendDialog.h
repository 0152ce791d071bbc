#pragma once

#include <QDialog>

class MenuDocument;
class QCheckBox;
class QLabel;
class QLineEdit;
class RadioLink;
class UserPrompts;

// "Send": sends the whole menu to the terminals through the radio link on the port typed in
// "ComPort". Sending keeps the window painted but takes no input until the link is done.
class SendDialog : public QDialog
{
    Q_OBJECT

public:
    SendDialog(MenuDocument& document, RadioLink& link, UserPrompts& prompts, QWidget* parent = nullptr);

public slots:
    void Command1_Click(); // Send
    void Command2_Click(); // Close Window
    void Check2_Click(bool checked);

private:
    void send();
    void showCaptionLater(const QString& caption);

    MenuDocument& m_document;
    RadioLink& m_link;
    UserPrompts& m_prompts;
    QLineEdit* m_port;
    QCheckBox* m_thirteenPages;
    QCheckBox* m_oldFirmware;
    QLabel* m_status;
};
