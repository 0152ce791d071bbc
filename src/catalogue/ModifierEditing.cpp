#include "ModifierEditing.h"

#include "document/Blanks.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"

#include <cmath>

namespace ModifierEditing {

int findDefinition(const MenuDocument& document, const QString& name)
{
    for (int i = 0; i < document.ModifierListCount; ++i) {
        if (document.ModifierLists[i].Name == name) {
            return i;
        }
    }
    return -1;
}

int findAssignment(const MenuDocument& document, const QString& key)
{
    for (int i = 0; i < document.AssignmentCount; ++i) {
        if (document.Assignments[i].Key == key) {
            return i;
        }
    }
    return -1;
}

void newList(MenuDocument& document, const QString& name)
{
    ModifierDefinition& definition = document.ModifierLists[document.ModifierListCount];
    definition.Name = name;
    definition.EntryCount = 0;
    ++document.ModifierListCount;
}

void deleteList(MenuDocument& document, const QString& name)
{
    const int found = findDefinition(document, name);
    if (found < 0) {
        return;
    }
    const int last = document.ModifierListCount - 1;
    document.ModifierLists[found] = document.ModifierLists[last];
    document.ModifierListCount = last;
}

void addOption(MenuDocument& document, const QString& listName, std::int32_t pluNumber)
{
    const int found = findDefinition(document, listName);
    if (found < 0) {
        return;
    }
    ModifierDefinition& definition = document.ModifierLists[found];
    const PluRecord& plu = document.Plus[document.FindPluIndex(pluNumber)];
    const int option = definition.EntryCount;
    definition.EntryPlu[option] = NumberText::int32Value(plu.Code);
    definition.EntryText[option] = plu.Description;
    definition.EntryCount = option + 1;
}

void removeOption(MenuDocument& document, const QString& listName, const QString& optionText)
{
    const int found = findDefinition(document, listName);
    if (found < 0) {
        return;
    }
    ModifierDefinition& definition = document.ModifierLists[found];
    for (int option = 0; option < definition.EntryCount; ++option) {
        if (definition.EntryText[option] == optionText) {
            const int last = definition.EntryCount - 1;
            definition.EntryPlu[option] = definition.EntryPlu[last];
            definition.EntryText[option] = definition.EntryText[last];
            definition.EntryCount = last;
            return;
        }
    }
}

int addProduct(MenuDocument& document, const QString& description)
{
    const QString key = trimBlanks(description).toString();
    if (key.isEmpty()) {
        return -1;
    }
    if (const int found = findAssignment(document, key); found >= 0) {
        return found;
    }
    const int added = document.AssignmentCount;
    document.Assignments[added].Key = key;
    document.AssignmentCount = added + 1;
    return added;
}

void removeProduct(MenuDocument& document, const QString& key)
{
    const int found = findAssignment(document, key);
    if (found < 0) {
        return;
    }
    const int last = document.AssignmentCount - 1;
    document.Assignments[found].Key = document.Assignments[last].Key;
    document.AssignmentCount = last;
}

void attach(MenuDocument& document, int assignment, const QString& listName)
{
    ModifierAssignment& product = document.Assignments[assignment];
    for (int list = 0; list < product.ListCount; ++list) {
        if (product.ListName[list] == listName) {
            return;
        }
    }
    const int list = product.ListCount;
    product.ListName[list] = listName;
    product.Maximum[list] = 1;
    // A place a detached list left keeps its old limits; a new attachment starts without them.
    product.Minimum[list] = 0;
    product.Default[list] = 0;
    product.Mandatory[list] = 0;
    product.ListCount = list + 1;
}

void detach(MenuDocument& document, int assignment, const QString& listName)
{
    ModifierAssignment& product = document.Assignments[assignment];
    for (int list = 0; list < product.ListCount; ++list) {
        if (product.ListName[list] == listName) {
            product.ListName[list].clear();
            --product.ListCount;
            return;
        }
    }
}

std::int32_t defaultMask(const QList<int>& checkedOptions)
{
    double mask = 0;
    for (int option : checkedOptions) {
        mask += std::ldexp(1.0, option);
    }
    return NumberText::toInt32(mask);
}

bool isDefault(std::int32_t mask, int option)
{
    return option < 31 && (mask >> option) & 1;
}

} // namespace ModifierEditing
