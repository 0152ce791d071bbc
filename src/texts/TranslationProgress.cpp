#include "TranslationProgress.h"

#include <QProgressDialog>

using namespace Qt::StringLiterals;

TranslationProgress::TranslationProgress(QWidget* window, const QString& text, const QString& targetLanguage)
    : m_window(window)
    , m_label(u"Translating \"%1\" into %2 ..."_s.arg(text, targetLanguage))
{ }

TranslationProgress::~TranslationProgress() = default;

// Window-modal, so that the window it was asked from cannot start another translation meanwhile; the
// range 0 to 0 shows that nobody knows how long the service will take.
void TranslationProgress::started(std::function<void()> cancel)
{
    m_dialog = std::make_unique<QProgressDialog>(m_label, u"Cancel"_s, 0, 0, m_window);
    m_dialog->setObjectName(u"TranslationProgress"_s);
    m_dialog->setWindowTitle(u"Translation"_s);
    m_dialog->setWindowModality(Qt::WindowModal);
    m_dialog->setMinimumDuration(0);
    QObject::connect(m_dialog.get(), &QProgressDialog::canceled, m_dialog.get(), std::move(cancel));
    m_dialog->show();
}

void TranslationProgress::ended()
{
    m_dialog.reset();
}
