#include "Project.h"

#include "ComponentFiles.h"
#include "MenuDocument.h"
#include "WorkingPaths.h"

#include <QDir>

#include <algorithm>

namespace {

qsizetype lastSeparator(const QString& path)
{
    return std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
}

// Moves the working files into keepIn, or deletes them when there is no such folder. Returns the names
// of the files moved.
QStringList removeWorkingFiles(const QString& keepIn)
{
    QDir folder(WorkingPaths::workingFolder());
    QStringList moved;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        // A file that is locked or already gone is passed over.
        if (keepIn.isEmpty()) {
            folder.remove(name);
        } else if (folder.rename(name, keepIn + u'/' + name)) {
            moved.append(name);
        }
    }
    return moved;
}

void clearLines(MenuDocument& document)
{
    for (int slot = 0; slot < Limits::LineSlotCount; ++slot) {
        document.LinePlu[slot] = 0;
        LineLayout& line = document.LineLayouts[slot];
        // The own text and field 5 stay as they were.
        line.kind = EmptyLine;
        line.pictureRole = 0;
        line.backColor.clear();
        line.foreColor.clear();
        line.backText.clear();
        line.backBackColor.clear();
        line.backForeColor.clear();
        line.picturePath.clear();
    }
}

void clearModifiers(MenuDocument& document)
{
    document.ModifierListCount = 0;
    document.AssignmentCount = 0;
    // The last record of each table keeps its count.
    for (int i = 0; i < Limits::ModifierListCapacity - 1; ++i) {
        document.ModifierLists[i].EntryCount = 0;
        document.Assignments[i].ListCount = 0;
    }
}

void clearCatalogue(MenuDocument& document)
{
    // Prices and the other fields stay; without a code and a description nothing shows them.
    for (int i = 0; i < Limits::PluCapacity; ++i) {
        document.Plus[i].Description.clear();
        document.Plus[i].Code.clear();
    }
    document.PluCount = 0;
}

} // namespace

namespace Project {

QString folderOf(const QString& path)
{
    return path.left(lastSeparator(path) + 1);
}

QString openedPrefix(const QString& path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot < 0 ? path : path.left(dot);
}

QString savedPrefix(const QString& path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot < lastSeparator(path) ? path : path.left(dot);
}

void open(MenuDocument& document, const QString& markerPath)
{
    document.ProjectFolder = folderOf(markerPath);
    document.FilePrefix = openedPrefix(markerPath);
    ComponentFiles::load(document);
}

WriteFailures save(MenuDocument& document, const QString& chosenPath)
{
    document.ProjectFolder = folderOf(chosenPath);
    document.FilePrefix = savedPrefix(chosenPath);
    WriteFailures failures;
    if (std::optional<WriteFailure> marker
        = SafeWrite::writeFile(document.FilePrefix + QStringLiteral(".QV1"), QByteArrayLiteral("OK\r\n"))) {
        failures.append(*marker);
    }
    return failures + ComponentFiles::save(document);
}

QStringList clear(MenuDocument& document, const QString& keepIn)
{
    const QStringList moved = removeWorkingFiles(keepIn);
    clearTables(document);
    return moved;
}

void clearTables(MenuDocument& document)
{
    document.PagesVersion = QStringLiteral("1");
    PrintSettings& settings = document.PrintSettings;
    for (int page = 1; page <= Limits::PageCount; ++page) {
        settings.PageColorA[page].clear();
        settings.PageColorB[page].clear();
        settings.PageValueA[page].clear();
        settings.PageValueB[page].clear();
    }
    clearLines(document);
    clearModifiers(document);
    clearCatalogue(document);
    document.LanguageTable.clear();
}

} // namespace Project
