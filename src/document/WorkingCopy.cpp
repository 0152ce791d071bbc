#include "WorkingCopy.h"

#include "ComponentFiles.h"
#include "MenuDocument.h"
#include "WorkingPaths.h"

#include <QDir>
#include <QFileInfo>

namespace WorkingCopy {

namespace {

// A save cut off by a crash leaves its unfinished copy ("temp_pludata.txt.AbC123") beside the file it
// would have replaced; the file itself is whole, the copy is litter.
void removeUnfinishedSaves()
{
    QDir folder(WorkingPaths::workingFolder());
    const QString pattern = QFileInfo(WorkingPaths::workingPrefix()).fileName() + QStringLiteral("*.txt.*");
    for (const QString& name : folder.entryList({ pattern }, QDir::Files | QDir::Hidden)) {
        folder.remove(name);
    }
}

} // namespace

void open(MenuDocument& document)
{
    document.PluCount = 0;
    WorkingPaths::ensureWorkingFolder();
    removeUnfinishedSaves();
    document.FilePrefix = WorkingPaths::workingPrefix();
    document.ProjectFolder = WorkingPaths::workingFolder() + u'/';
    document.PagesVersion = QStringLiteral("0");
    ComponentFiles::load(document);
}

void save(MenuDocument& document)
{
    WorkingPaths::ensureWorkingFolder();
    document.FilePrefix = WorkingPaths::workingPrefix();
    ComponentFiles::save(document);
}

} // namespace WorkingCopy
