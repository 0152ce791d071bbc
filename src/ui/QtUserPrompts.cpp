#include "QtUserPrompts.h"

#include "document/ColorNumbers.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QSettings>

namespace {

const QString LastFolderKey = QStringLiteral("Paths/LastFolder");

// "*.QV1" filters by its pattern; "DATA.XLS" is offered as the name and filters by its extension.
QString nameFilter(const QString& preset)
{
    const QString suffix = QFileInfo(preset).suffix();
    if (suffix.isEmpty()) {
        return QFileDialog::tr("All files (*)");
    }
    return QFileDialog::tr("%1 files (*.%2 *.%3);;All files (*)")
        .arg(suffix.toUpper(), suffix.toUpper(), suffix.toLower());
}

QString startPath(const QString& preset)
{
    const QString folder = QSettings().value(LastFolderKey).toString();
    const bool presetIsName = !preset.contains(u'*');
    if (folder.isEmpty()) {
        return presetIsName ? preset : QString();
    }
    return presetIsName ? folder + u'/' + preset : folder;
}

QString remembered(const QString& path)
{
    if (!path.isEmpty()) {
        QSettings().setValue(LastFolderKey, QFileInfo(path).absolutePath());
    }
    return path;
}

} // namespace

void QtUserPrompts::showMessage(const QString& text)
{
    QMessageBox::information(m_parent, QApplication::applicationDisplayName(), text);
}

QString QtUserPrompts::askText(const QString& title)
{
    return QInputDialog::getText(m_parent, title, title);
}

QString QtUserPrompts::askOpenFile(const QString& preset)
{
    return remembered(
        QFileDialog::getOpenFileName(m_parent, QString(), startPath(preset), nameFilter(preset)));
}

QString QtUserPrompts::askSaveFile(const QString& preset)
{
    return remembered(
        QFileDialog::getSaveFileName(m_parent, QString(), startPath(preset), nameFilter(preset)));
}

std::optional<std::int32_t> QtUserPrompts::askColor(std::int32_t initialColor)
{
    const QColor chosen = QColorDialog::getColor(colorOfNumber(initialColor), m_parent);
    if (!chosen.isValid()) {
        return std::nullopt;
    }
    return numberOfColor(chosen);
}
