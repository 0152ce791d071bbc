#include "ChangeNames.h"

#include "HandlerGuard.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>

namespace {

// "&Delete" and "MOVE UP" read "Delete" and "Move Up"; "Translation Service..." reads without its dots.
QString plainCaption(QString caption)
{
    caption.remove(u'&');
    if (caption.endsWith(QStringLiteral("..."))) {
        caption.chop(3);
    }
    if (caption == caption.toUpper()) {
        caption = caption.toLower();
        for (qsizetype i = 0; i < caption.size(); ++i) {
            if (i == 0 || caption[i - 1] == u' ') {
                caption[i] = caption[i].toUpper();
            }
        }
    }
    const bool hasLetters = std::any_of(caption.begin(), caption.end(), [](QChar c) { return c.isLetter(); });
    return hasLetters ? caption.trimmed() : QString();
}

} // namespace

void nameChangeAfter(const QObject* control)
{
    if (const auto* action = qobject_cast<const QAction*>(control)) {
        HandlerGuard::nameChange(plainCaption(action->text()));
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
        if (const QString name = plainCaption(button->text()); !name.isEmpty()) {
            HandlerGuard::nameChange(name);
        }
    } else if (qobject_cast<const QLineEdit*>(control)) {
        HandlerGuard::nameChange(QObject::tr("Typing"), control);
    } else if (const auto* widget = qobject_cast<const QWidget*>(control);
               widget && !widget->accessibleName().isEmpty()) {
        HandlerGuard::nameChange(widget->accessibleName());
    }
}
