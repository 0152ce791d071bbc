#include "TranslationTestDialog.h"

#include "TranslationProgress.h"
#include "ui/HandlerGuard.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString CrLf = u"\r\n"_s;

QPlainTextEdit* makeTextBox(const QString& name, QWidget* parent)
{
    auto* box = new QPlainTextEdit(parent);
    box->setObjectName(name);
    box->setTabChangesFocus(true);
    box->setMinimumSize(320, 70);
    return box;
}

// The window's background is see-through, so a caption brings its own or it is lost on what lies
// behind.
void addRow(QFormLayout& layout, const QString& caption, QWidget* field)
{
    auto* label = new QLabel(caption, field->parentWidget());
    label->setAutoFillBackground(true);
    label->setBuddy(field);
    layout.addRow(label, field);
}

} // namespace

TranslationTestDialog::TranslationTestDialog(UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , m_prompts(prompts)
    , m_source(addLanguageList(u"Combo1"_s))
    , m_target(addLanguageList(u"Combo2"_s))
    , m_text(makeTextBox(u"Text1"_s, this))
    , m_result(makeTextBox(u"Text2"_s, this))
{
    setObjectName(u"TranslationTest"_s);
    setWindowTitle(tr("Translation Test"));
    m_result->setReadOnly(true);

    auto* translate = new QPushButton(tr("&Translate"), this);
    translate->setObjectName(u"Command1"_s);
    translate->setDefault(true);
    connect(translate, &QPushButton::clicked, this, &TranslationTestDialog::Command1_Click);

    auto* layout = new QFormLayout(this);
    addRow(*layout, tr("&From:"), m_source);
    addRow(*layout, tr("T&o:"), m_target);
    addRow(*layout, tr("Te&xt:"), m_text);
    layout->addRow(QString(), translate);
    addRow(*layout, tr("&Result:"), m_result);

    layerForm();
}

const QStringList& TranslationTestDialog::languageNames()
{
    static const QStringList names { u"none"_s, u"Urdu"_s, u"Persian"_s, u"Arabic"_s, u"Hindi"_s,
        u"bulgarsk"_s, u"danish"_s, u"English"_s, u"finsk"_s, u"french"_s, u"greek"_s, u"dutch"_s,
        u"italian"_s, u"japansk"_s, u"kinisisk"_s, u"norwegian"_s, u"polish"_s, u"portuguese"_s,
        u"romanian"_s, u"russian"_s, u"spanish"_s, u"swedish"_s, u"czech"_s, u"german"_s, u"detect"_s };
    return names;
}

// The boxes show line breaks as LF; the menu's texts and the service use CR LF. A result box left
// as it was would pass an earlier translation off as this one's, so a failure empties it.
void TranslationTestDialog::Command1_Click()
{
    runGuarded(m_prompts, [this] {
        m_result->clear();
        QString source = m_source->currentText();
        const QString target = m_target->currentText();
        const QString text = m_text->toPlainText().replace(u'\n', CrLf);
        TranslationProgress progress(this, text, target);
        const Translation translation = m_client.TranslateUnicode(text, source, target, &progress);
        for (const QString& message : translation.messages) {
            m_prompts.showMessage(message);
        }
        if (translation.text) {
            m_result->setPlainText(QString(*translation.text).replace(CrLf, u"\n"_s));
        }
    });
}

// With the red background keyed out nothing of the window but its controls is drawn: a translucent
// background that is never painted gives the same, and the opacity applies to the rest.
void TranslationTestDialog::layerForm()
{
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowOpacity(245.0 / 255.0);
}

QComboBox* TranslationTestDialog::addLanguageList(const QString& name)
{
    auto* list = new QComboBox(this);
    list->setObjectName(name);
    list->addItems(languageNames());
    return list;
}
