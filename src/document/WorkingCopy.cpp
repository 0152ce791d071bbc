#include "WorkingCopy.h"

#include "ComponentFiles.h"
#include "MenuDocument.h"
#include "WorkingPaths.h"

#include <QDir>
#include <QFileInfo>

namespace WorkingCopy {

namespace {

// A write cut off by a crash can leave its unfinished copy ("temp_pludata.txt.AbC123") beside the file
// it would have replaced; the file itself is whole, the copy is litter. Loading settles the staged files
// of a cut-off save first, which this pattern would take for litter too.
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
    document.FilePrefix = WorkingPaths::workingPrefix();
    document.ProjectFolder = WorkingPaths::workingFolder() + u'/';
    document.PagesVersion = QStringLiteral("0");
    ComponentFiles::load(document);
    removeUnfinishedSaves();
}

WriteFailures save(MenuDocument& document)
{
    WorkingPaths::ensureWorkingFolder();
    document.FilePrefix = WorkingPaths::workingPrefix();
    return ComponentFiles::save(document);
}

} // namespace WorkingCopy
