#include "SendDialog.h"

#include "MenuTransmission.h"
#include "PortSetting.h"
#include "TransmissionSession.h"
#include "document/MenuDocument.h"
#include "ui/BlockingWork.h"
#include "ui/BusyCursor.h"
#include "ui/HandlerGuard.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

SendDialog::SendDialog(MenuDocument& document, RadioLink& link, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , m_document(document)
    , m_link(link)
    , m_prompts(prompts)
    , m_port(new QLineEdit(PortSetting::saved(), this))
    , m_thirteenPages(new QCheckBox(QStringLiteral("13 Pages from 1 - 13"), this))
    , m_oldFirmware(new QCheckBox(QStringLiteral("Old firmware without language option"), this))
    , m_status(new QLabel(this))
{
    setObjectName(QStringLiteral("SendDialog"));
    setWindowTitle(QStringLiteral("Send"));

    m_port->setObjectName(QStringLiteral("Text2"));
    m_port->setToolTip(tr("Number of the serial port the radio link is attached to"));
    m_port->setPlaceholderText(tr("e.g. 3"));
    m_thirteenPages->setObjectName(QStringLiteral("Check1"));
    m_thirteenPages->setToolTip(
        tr("Keys follow the pages 1 to 13 as they are, without moving the last pages"));
    m_oldFirmware->setObjectName(QStringLiteral("Check2"));
    m_oldFirmware->setToolTip(tr("Sends the first language only, for terminals that know one language"));
    m_oldFirmware->setChecked(m_document.OldFirmware);
    connect(m_oldFirmware, &QCheckBox::clicked, this, &SendDialog::Check2_Click);
    m_status->setObjectName(QStringLiteral("Status"));
    m_status->setWordWrap(true);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* sendButton = buttons->addButton(QStringLiteral("Send"), QDialogButtonBox::AcceptRole);
    sendButton->setObjectName(QStringLiteral("Command1"));
    sendButton->setDefault(true);
    QPushButton* closeButton
        = buttons->addButton(QStringLiteral("Close Window"), QDialogButtonBox::RejectRole);
    closeButton->setObjectName(QStringLiteral("Command2"));
    // The buttons act through their slots; the box must not close the dialog on its own.
    connect(sendButton, &QPushButton::clicked, this, &SendDialog::Command1_Click);
    connect(closeButton, &QPushButton::clicked, this, &SendDialog::Command2_Click);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("ComPort"), m_port);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_thirteenPages);
    layout->addWidget(m_oldFirmware);
    layout->addWidget(m_status);
    layout->addWidget(buttons);
}

void SendDialog::Command1_Click()
{
    runGuarded(m_prompts, [this] { send(); });
}

void SendDialog::Command2_Click()
{
    close();
}

void SendDialog::Check2_Click(bool checked)
{
    m_document.OldFirmware = checked;
}

void SendDialog::send()
{
    const QString portText = m_port->text();
    PortSetting::save(portText);
    const MenuTransmission transmission(m_document,
        { m_thirteenPages->isChecked(), [this] { showCaptionLater(QStringLiteral("Sending")); },
            [this] { showCaptionLater(QStringLiteral("Sended")); } });
    const std::int32_t port = PortSetting::portNumber(portText);
    std::int32_t opened = 0;
    {
        const BusyCursor busy;
        const TransmissionSession session;
        runBlockingWork([&] { opened = transmission.send(m_link, port); });
    }
    m_status->setText(opened > 0
            ? tr("Port %1 did not open (the radio link answered %2); nothing was sent.").arg(port).arg(opened)
            : tr("The menu was sent on port %1.").arg(port));
}

// The upload is announced from the sending thread; the caption changes on the window's own thread.
void SendDialog::showCaptionLater(const QString& caption)
{
    QMetaObject::invokeMethod(
        this, [this, caption] { setWindowTitle(caption); }, Qt::QueuedConnection);
}
