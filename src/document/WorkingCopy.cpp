#include "WorkingCopy.h"

#include "ComponentFiles.h"
#include "MenuDocument.h"
#include "WorkingPaths.h"

namespace WorkingCopy {

void open(MenuDocument& document)
{
    document.PluCount = 0;
    WorkingPaths::ensureWorkingFolder();
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
