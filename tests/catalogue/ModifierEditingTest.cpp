#include "catalogue/ModifierEditing.h"

#include "document/Fault.h"
#include "document/MenuDocument.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"

#include <gtest/gtest.h>

using namespace ModifierEditing;
using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

namespace {

MenuDocument sauces()
{
    MenuDocument document;
    addPlu(document, u"10"_s, u"Hamburguer"_s, u"8.00"_s);
    addPlu(document, u"50"_s, u"Ketchup"_s, u"0"_s);
    addPlu(document, u"51"_s, u"Mostarda"_s, u"0"_s);
    addPlu(document, u"52"_s, u"Maionese"_s, u"0"_s);
    for (const QString& name : { u"Molhos"_s, u"Bebidas"_s, u"Extras"_s }) {
        newList(document, name);
    }
    return document;
}

} // namespace

TEST(ModifierEditing, TheLastOptionAndTheLastListTakeTheRemovedOnesPlace)
{
    MenuDocument document = sauces();
    for (const int plu : { 50, 51, 52 }) {
        addOption(document, u"Molhos"_s, plu);
    }
    const ModifierDefinition& molhos = document.ModifierLists[0];
    EXPECT_EQ(molhos.EntryCount, 3);
    EXPECT_EQ(molhos.EntryPlu[2], 52);
    EXPECT_EQ(molhos.EntryText[2], u"Maionese");

    removeOption(document, u"Molhos"_s, u"Ketchup"_s);
    EXPECT_EQ(molhos.EntryCount, 2);
    EXPECT_EQ(molhos.EntryText[0], u"Maionese");

    deleteList(document, u"Molhos"_s);
    EXPECT_EQ(document.ModifierListCount, 2);
    EXPECT_EQ(document.ModifierLists[0].Name, u"Extras");
    EXPECT_EQ(findDefinition(document, u"Molhos"_s), -1);
    EXPECT_EQ(findDefinition(document, u"Bebidas"_s), 1);
}

TEST(ModifierEditing, AttachingTwiceLeavesOneAttachmentWithItsStartingLimits)
{
    MenuDocument document = sauces();
    EXPECT_EQ(addProduct(document, QString()), -1);
    const int burger = addProduct(document, u" Hamburguer "_s);
    EXPECT_EQ(addProduct(document, u"Hamburguer"_s), burger);
    EXPECT_EQ(findAssignment(document, u"Hamburguer"_s), burger);
    attach(document, burger, u"Molhos"_s);
    attach(document, burger, u"Molhos"_s);
    const ModifierAssignment& assignment = document.Assignments[burger];
    EXPECT_EQ(document.AssignmentCount, 1);
    EXPECT_EQ(assignment.ListCount, 1);
    EXPECT_EQ(assignment.Minimum[0], 0);
    EXPECT_EQ(assignment.Maximum[0], 1);
    EXPECT_EQ(assignment.Default[0], 0);
}

TEST(ModifierEditing, DetachingLeavesAnEmptyNameAndTheNextAttachmentStartsAfresh)
{
    MenuDocument document = sauces();
    const int pizza = addProduct(document, u"Pizza"_s);
    for (const QString& name : { u"Molhos"_s, u"Bebidas"_s, u"Extras"_s }) {
        attach(document, pizza, name);
    }
    ModifierAssignment& assignment = document.Assignments[pizza];
    assignment.Minimum[2] = 4;
    detach(document, pizza, u"Molhos"_s);
    EXPECT_EQ(assignment.ListCount, 2);
    EXPECT_EQ(assignment.ListName[0], QString());
    EXPECT_EQ(assignment.ListName[1], u"Bebidas");
    EXPECT_EQ(assignment.ListName[2], u"Extras"); // outside the count now

    attach(document, pizza, u"Molhos"_s);
    EXPECT_EQ(assignment.ListName[2], u"Molhos");
    EXPECT_EQ(assignment.Minimum[2], 0);
}

TEST(ModifierEditing, RemovingAProductMovesOnlyTheLastKey)
{
    MenuDocument document = sauces();
    attach(document, addProduct(document, u"Hamburguer"_s), u"Molhos"_s);
    attach(document, addProduct(document, u"Salada"_s), u"Extras"_s);
    removeProduct(document, u"Hamburguer"_s);
    EXPECT_EQ(document.AssignmentCount, 1);
    EXPECT_EQ(document.Assignments[0].Key, u"Salada");
    EXPECT_EQ(document.Assignments[0].ListName[0], u"Molhos");
}

TEST(ModifierEditing, DefaultsAreABitMaskOfTheFirst31Options)
{
    EXPECT_EQ(defaultMask({}), 0);
    EXPECT_EQ(defaultMask({ 0, 2 }), 5);
    EXPECT_EQ(defaultMask({ 30 }), 1 << 30);
    EXPECT_TRUE(isDefault(5, 2));
    EXPECT_FALSE(isDefault(5, 1));
}

TEST(ModifierEditing, TablesAtTheirEndRefuseMoreAndKeepWhatTheyHold)
{
    MenuDocument document;
    for (int i = 0; i < Limits::ModifierListCapacity; ++i) {
        newList(document, u"List %1"_s.arg(i));
    }
    EXPECT_THROW(newList(document, u"One too many"_s), RangeFault);
    EXPECT_EQ(document.ModifierListCount, Limits::ModifierListCapacity);
    EXPECT_EQ(document.ModifierLists[100].Name, u"List 100");

    const int pizza = addProduct(document, u"Pizza"_s);
    for (int i = 0; i < Limits::AttachedListCapacity; ++i) {
        attach(document, pizza, u"List %1"_s.arg(i));
    }
    EXPECT_THROW(attach(document, pizza, u"List 11"_s), RangeFault);
    EXPECT_EQ(document.Assignments[pizza].ListCount, Limits::AttachedListCapacity);
    EXPECT_EQ(document.Assignments[pizza].ListName[10], u"List 10");
}
