#pragma once

#include <QList>
#include <QString>

#include <cstdint>

class MenuDocument;

// Edits of the modifier lists and of their attachment to products. Lists and products with
// modifiers are named by text, as their lists on the screen show them. Past a table's end a
// RangeFault is raised before anything is stored.
namespace ModifierEditing {

// The first modifier list, or product with modifiers, with exactly this name; -1 when none.
int findDefinition(const MenuDocument& document, const QString& name);
int findAssignment(const MenuDocument& document, const QString& key);

// A new list under the name as given (empty and repeated names included).
void newList(MenuDocument& document, const QString& name);
// The last list takes the deleted one's place; attachments keep naming the deleted list.
void deleteList(MenuDocument& document, const QString& name);

// Adds a product to a list, with the code and description the catalogue has for its number.
void addOption(MenuDocument& document, const QString& listName, std::int32_t pluNumber);
// The list's last option takes the removed one's place.
void removeOption(MenuDocument& document, const QString& listName, const QString& optionText);

// Makes the product (by its description, trimmed) a product with modifiers unless it is one; returns
// its position, or -1 for an empty description.
int addProduct(MenuDocument& document, const QString& description);
// Only the key of the last product with modifiers moves into the removed one's place: the product
// there shows the removed product's lists from then on.
void removeProduct(MenuDocument& document, const QString& key);

// Attaches a list once, with at most one choice, no minimum and no defaults.
void attach(MenuDocument& document, int assignment, const QString& listName);
// The attached list's name becomes empty and the count shrinks by one; the lists after it stay where
// they are, so the last of them falls outside the count.
void detach(MenuDocument& document, int assignment, const QString& listName);

// The default choices of an attached list: bit i for option i. Only options 0 to 30 fit.
std::int32_t defaultMask(const QList<int>& checkedOptions);
bool isDefault(std::int32_t mask, int option);

} // namespace ModifierEditing
