#include "BackgroundEffectsDialog.h"

#include "designer/PictureBox.h"
#include "document/ColorNumbers.h"
#include "document/MenuDocument.h"
#include "document/PicturePaths.h"
#include "ui/ColorButton.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

BackgroundEffectsDialog::BackgroundEffectsDialog(
    MenuDocument& document, int page, int side, PictureBox& area, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
    , m_page(page)
    , m_side(side)
    , m_area(area)
{
    setObjectName(QStringLiteral("BackgroundEffects"));
    setWindowTitle(QStringLiteral("Background effects"));
    setModal(true);

    m_backColor = named(new ColorButton(QString(), prompts, this), QStringLiteral("Command1"));
    m_picturePath = named(new QLineEdit(this), QStringLiteral("Text1"));
    m_picturePath->setMinimumWidth(260);
    auto* browse = commandButton(this, QStringLiteral("Command2"), QStringLiteral("B&rowse"));
    auto* close = named(new QPushButton(QStringLiteral("Close &Windows"), this), QStringLiteral("Command3"));
    auto* resolution
        = named(new QLabel(QStringLiteral("Resolution ( 465*516 px)"), this), QStringLiteral("Label3"));

    auto* grid = new QGridLayout;
    grid->addWidget(
        buddyLabel(this, QStringLiteral("Label1"), QStringLiteral("Backgound &Color"), m_backColor), 0, 0);
    grid->addWidget(m_backColor, 0, 1, Qt::AlignLeft);
    grid->addWidget(
        buddyLabel(this, QStringLiteral("Label2"), QStringLiteral("BackGround &Picture"), m_picturePath), 1,
        0);
    grid->addWidget(m_picturePath, 1, 1);
    grid->addWidget(browse, 1, 2);
    grid->addWidget(resolution, 2, 1);
    auto* commands = new QHBoxLayout;
    commands->addStretch();
    commands->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(commands);

    connect(m_backColor, &QPushButton::clicked, this, &BackgroundEffectsDialog::Command1_Click);
    connect(browse, &QPushButton::clicked, this, &BackgroundEffectsDialog::Command2_Click);
    connect(m_picturePath, &QLineEdit::textChanged, this, &BackgroundEffectsDialog::Text1_Change);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    guarded([this] {
        m_backColor->setColorNumber(numberOfColor(m_area.color()));
        const QSignalBlocker block(m_picturePath);
        m_picturePath->setText(storedPicture());
    });
}

QString& BackgroundEffectsDialog::storedColor()
{
    PrintSettings& print = m_document.PrintSettings;
    return m_side == 1 ? print.PageColorA[m_page] : print.PageColorB[m_page];
}

QString& BackgroundEffectsDialog::storedPicture()
{
    PrintSettings& print = m_document.PrintSettings;
    return m_side == 1 ? print.PageValueA[m_page] : print.PageValueB[m_page];
}

void BackgroundEffectsDialog::Command1_Click()
{
    guarded([this] {
        if (!m_backColor->askColor()) {
            return;
        }
        m_area.setColor(colorOfNumber(m_backColor->colorNumber()));
        storedColor() = QString::number(m_backColor->colorNumber());
    });
}

// Typing in the box stores the path as well: the text change does it.
void BackgroundEffectsDialog::Command2_Click()
{
    guarded([this] {
        const QString path = m_prompts.askOpenFile(QStringLiteral("*.JPG"));
        if (!path.isEmpty()) {
            m_picturePath->setText(PicturePaths::relativePicturePath(path, m_document.ProjectFolder));
        }
    });
}

void BackgroundEffectsDialog::Text1_Change(const QString& text)
{
    guarded([&] { storedPicture() = text; });
}
