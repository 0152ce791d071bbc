#include "SampleDocuments.h"

#include "texts/GroupTitles.h"

namespace SampleDocuments {

void addPlu(MenuDocument& document, const QString& code, const QString& description, const QString& price)
{
    PluRecord& plu = document.Plus[document.PluCount++];
    plu.Code = code;
    plu.AuxText.clear();
    plu.AltCode = code;
    plu.Price = price;
    plu.Description = description;
}

namespace {

void addDefinition(MenuDocument& document, const QString& name, std::initializer_list<int> pluIndices)
{
    ModifierDefinition& definition = document.ModifierLists[document.ModifierListCount++];
    definition.Name = name;
    definition.EntryCount = 0;
    for (int index : pluIndices) {
        definition.EntryPlu[definition.EntryCount] = document.Plus[index].Code.toInt();
        definition.EntryText[definition.EntryCount] = document.Plus[index].Description;
        ++definition.EntryCount;
    }
}

void attachList(ModifierAssignment& assignment, const QString& name, int minimum, int maximum, int defaults)
{
    const int list = assignment.ListCount++;
    assignment.ListName[list] = name;
    assignment.Minimum[list] = minimum;
    assignment.Maximum[list] = maximum;
    assignment.Default[list] = defaults;
}

void setTexts(MenuDocument& document, int key, const QString& base)
{
    for (int language = 1; language <= Limits::LanguageCount; ++language) {
        document.LanguageTable.at(key, language) = base + QStringLiteral(" (%1)").arg(language);
    }
}

} // namespace

std::unique_ptr<MenuDocument> richMenu()
{
    auto document = std::make_unique<MenuDocument>();
    MenuDocument& d = *document;
    addPlu(d, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));
    addPlu(
        d, QStringLiteral("1002"), QStringLiteral("Café com leite, grande, quente"), QStringLiteral("3.00"));
    addPlu(d, QStringLiteral("1003"), QStringLiteral("Água mineral"), QStringLiteral("1.20"));
    addPlu(d, QStringLiteral("0"), QStringLiteral("Produto apagado"), QStringLiteral("9.99"));
    addPlu(d, QStringLiteral("2001"), QStringLiteral("Açúcar"), QStringLiteral("0"));
    addPlu(d, QStringLiteral("2002"), QStringLiteral("Limão"), QStringLiteral(".50"));
    addPlu(d, QStringLiteral(" 3001"), QStringLiteral("Bife à portuguesa"), QStringLiteral("14.75"));
    d.Plus[6].AuxText = QStringLiteral("0");
    d.Plus[2].AuxText = QStringLiteral("7");

    addDefinition(d, QStringLiteral("Extras"), { 4, 5 });
    addDefinition(d, QStringLiteral("Tamanhos"), { 0, 1, 2 });

    ModifierAssignment& espresso = d.Assignments[d.AssignmentCount++];
    espresso.Key = QStringLiteral("Espresso");
    attachList(espresso, QStringLiteral("Extras"), 1, 2, 3);
    attachList(espresso, QStringLiteral("Tamanhos"), 0, 1, 0);
    ModifierAssignment& steak = d.Assignments[d.AssignmentCount++];
    steak.Key = QStringLiteral("Bife à portuguesa");
    attachList(steak, QStringLiteral("Extras"), 0, 0, 0);

    d.LinePlu[lineSlot(1, 0)] = 1001;
    d.LinePlu[lineSlot(1, 1)] = 1002;
    d.LinePlu[lineSlot(2, 1)] = 3001;
    d.LinePlu[lineSlot(14, 10)] = 2001;
    d.LineLayouts[lineSlot(1, 0)].kind = ProductLine;
    d.LineLayouts[lineSlot(1, 1)].kind = ProductLine;
    d.LineLayouts[lineSlot(1, 1)].backColor = QStringLiteral("255");
    d.LineLayouts[lineSlot(1, 1)].foreColor = QStringLiteral("16777215");

    LineLayout& title = d.LineLayouts[lineSlot(1, 2)];
    title.kind = TitleLine;
    title.text = QStringLiteral("Bebidas quentes");
    setTexts(d, TextKey::LineTextBase + lineSlot(1, 2), title.text);

    LineLayout& note = d.LineLayouts[lineSlot(1, 3)];
    note.kind = NoteLine;
    note.text = QStringLiteral("Preços com IVA, 23 %");

    LineLayout& group = d.LineLayouts[lineSlot(1, 4)];
    group.backText = QStringLiteral("Sobremesas");
    group.backBackColor = QStringLiteral("8421504");
    group.backForeColor = QStringLiteral("65535");
    group.picturePath = QStringLiteral("pictures\\doces.jpg");
    group.pictureRole = GroupStart;
    d.LineLayouts[lineSlot(1, 5)].pictureRole = CoveredByPicture;
    d.LineLayouts[lineSlot(1, 6)].pictureRole = CoveredByPicture;
    setTexts(d, TextKey::GroupTitleBase + lineSlot(1, 4), group.backText);

    d.LanguageTable.setDefaultLanguageNames();
    setTexts(d, 1001, QStringLiteral("Espresso"));
    setTexts(d, 1002, QStringLiteral("Café com leite"));

    PrintSettings& print = d.PrintSettings;
    print.Value1 = 50.5F;
    print.Value2 = 160;
    print.Value3 = 0.25F;
    print.FontName = QStringLiteral("DejaVu Sans");
    print.ColorBack[1] = QStringLiteral("128");
    print.DefaultPageColor = QStringLiteral("16777215");
    print.Value4 = 0;
    print.resetPageColors();
    print.PageColorA[1] = QStringLiteral("14745599");
    print.PageColorB[3] = QStringLiteral("255");
    print.PageValueA[1] = QStringLiteral("capa.jpg");
    print.PageValueB[14] = QStringLiteral("/menus/verso.png");

    d.PagesVersion = QStringLiteral("1");
    return document;
}

std::unique_ptr<MenuDocument> printedMenu()
{
    auto document = std::make_unique<MenuDocument>();
    MenuDocument& d = *document;
    d.LanguageTable.setDefaultLanguageNames();
    const auto placeProduct = [&](int page, int row, int plu, const QString& description,
                                  const QString& price, const QString& english) {
        addPlu(d, QString::number(plu), description, price);
        d.LinePlu[lineSlot(page, row)] = plu;
        d.LineLayouts[lineSlot(page, row)].kind = ProductLine;
        d.LanguageTable.at(plu, 1) = description;
        d.LanguageTable.at(plu, 2) = english;
    };
    const auto placeLine = [&](int row, LineKind kind, const QString& text, const QString& english) {
        LineLayout& line = d.LineLayouts[lineSlot(1, row)];
        line.kind = kind;
        line.text = text;
        d.LanguageTable.at(TextKey::LineTextBase + lineSlot(1, row), 1) = text;
        d.LanguageTable.at(TextKey::LineTextBase + lineSlot(1, row), 2) = english;
    };
    addPlu(d, QStringLiteral("1"), QStringLiteral("Index zero is never shown"), QStringLiteral("0"));
    placeLine(0, TitleLine, QStringLiteral("Entradas"), QStringLiteral("Starters"));
    placeProduct(
        1, 1, 101, QStringLiteral("Sopa do dia"), QStringLiteral("3.50"), QStringLiteral("Soup of the day"));
    placeProduct(1, 2, 102, QStringLiteral("Pão caseiro"), QStringLiteral("1.20"), QString());
    placeLine(3, NoteLine, QStringLiteral("Com IVA"), QStringLiteral("VAT included"));
    placeProduct(1, 5, 103, QStringLiteral("Bacalhau"), QStringLiteral("12.75"), QStringLiteral("Cod"));
    placeProduct(
        13, 0, 113, QStringLiteral("Queijo da serra"), QStringLiteral("6.00"), QStringLiteral("Cheese"));
    placeProduct(
        14, 0, 114, QStringLiteral("Prato secreto"), QStringLiteral("9.00"), QStringLiteral("Secret dish"));

    GroupTitles::createGroup(d, lineSlot(1, 12), { QStringLiteral("Vinhos"), 0xFFFFFF, 0, {}, false });
    GroupTitles::createGroup(
        d, lineSlot(1, 8), { QStringLiteral("Sobremesas"), 0xFF0000, 0xFFFFFF, {}, true });
    d.LanguageTable.at(GroupTitles::textKey(lineSlot(1, 8)), 2) = QStringLiteral("Desserts");
    d.PrintSettings.PageColorB[1] = QStringLiteral("65535");
    return document;
}

std::unique_ptr<MenuDocument> largestMenu()
{
    auto document = std::make_unique<MenuDocument>();
    MenuDocument& d = *document;
    for (int i = 0; i < Limits::PluCapacity; ++i) {
        addPlu(d, QString::number(1000 + i), QStringLiteral("Product number %1, house style").arg(i),
            QString::number((i % 400) / 4.0, 'f', 2));
    }
    for (int list = 0; list < Limits::ModifierListCapacity; ++list) {
        ModifierDefinition& definition = d.ModifierLists[d.ModifierListCount++];
        definition.Name = QStringLiteral("Modifier list %1").arg(list);
        for (int entry = 0; entry < Limits::EntryCapacity; ++entry) {
            const PluRecord& plu = d.Plus[(list * 97 + entry * 13) % Limits::PluCapacity];
            definition.EntryPlu[entry] = plu.Code.toInt();
            definition.EntryText[entry] = plu.Description;
        }
        definition.EntryCount = Limits::EntryCapacity;
    }
    for (int i = 0; i < Limits::AssignmentCapacity; ++i) {
        ModifierAssignment& assignment = d.Assignments[d.AssignmentCount++];
        assignment.Key = d.Plus[i * 7].Description;
        for (int list = 0; list < Limits::AttachedListCapacity; ++list) {
            attachList(assignment, d.ModifierLists[(i + list) % Limits::ModifierListCapacity].Name, list % 3,
                list % 9 + 1, list);
        }
    }
    for (int slot = 0; slot < Limits::PageCount * Limits::RowsPerPage; ++slot) {
        d.LinePlu[slot] = 1000 + slot * 29;
        LineLayout& line = d.LineLayouts[slot];
        line.kind = slot % 8 == 0 ? TitleLine : ProductLine;
        line.text = QStringLiteral("Line %1").arg(slot);
        line.backColor = QString::number(slot * 1021);
        line.backText = QStringLiteral("Group %1").arg(slot);
    }
    const QString filler
        = QStringLiteral("Texto de menu com acentuação àéíõü, 90 caracteres de comprimento para medir")
              .leftJustified(86, u'.');
    for (int key = 0; key < Limits::LanguageRowCount; ++key) {
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            d.LanguageTable.at(key, language)
                = filler + QStringLiteral("%1").arg(key % 10000, 4, 10, QChar(u'0'));
        }
    }
    return document;
}

} // namespace SampleDocuments
