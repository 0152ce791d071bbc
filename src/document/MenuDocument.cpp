#include "MenuDocument.h"

#include "NumberText.h"
#include "WorkingPaths.h"

void LanguageTable::clear()
{
    m_texts.fill(QString());
}

void LanguageTable::setDefaultLanguageNames()
{
    const char16_t* const names[] = { u"Portugues", u"English", u"Italiano", u"Frances", u"Espanol" };
    for (int language = 1; language <= Limits::LanguageCount; ++language) {
        at(TextKey::LanguageNames, language) = QString::fromUtf16(names[language - 1]);
    }
}

int LanguageTable::cell(int key, int language)
{
    if (key < 0 || key >= Limits::LanguageRowCount || language < 0 || language >= ColumnCount) {
        throw RangeFault();
    }
    return key * ColumnCount + language;
}

PrintSettings::PrintSettings()
{
    setDefaults();
}

void PrintSettings::setDefaults()
{
    Value1 = 47;
    Value2 = 165;
    Value3 = 59;
    CurrencySymbol = QStringLiteral("€");
    FontName = QStringLiteral("Arial");
    ColorBack[0] = QStringLiteral("33023");
    ColorFore[0] = QStringLiteral("0");
    ColorBack[1] = QStringLiteral("0");
    ColorFore[1] = QStringLiteral("16777215");
    ColorBack[2] = QStringLiteral("15724527");
    ColorFore[2] = QStringLiteral("0");
    DefaultPageColor = QStringLiteral("15724527");
    Value4 = 1;
    resetPageColors();
    PageValueA.fill(QString());
    PageValueB.fill(QString());
}

void PrintSettings::resetPageColors()
{
    PageColorA.fill(DefaultPageColor);
    PageColorB.fill(DefaultPageColor);
}

MenuDocument::MenuDocument()
    : FilePrefix(WorkingPaths::workingPrefix())
    , ProjectFolder(WorkingPaths::workingFolder() + u'/')
{ }

int MenuDocument::FindPluIndex(double n) const
{
    for (int i = 0; i <= PluCount; ++i) {
        if (pluNumber(Plus[i]) == n) {
            return i;
        }
    }
    return 0;
}

void MenuDocument::DeletePluNumber(double n)
{
    for (int i = 0; i <= PluCount; ++i) {
        if (pluNumber(Plus[i]) == n) {
            Plus[i].Code = QStringLiteral("0");
        }
    }
}

int MenuDocument::findLinePlu(std::int32_t n) const
{
    int found = -1;
    for (int i = 1; i < PluCount; ++i) {
        if (pluNumber(Plus[i]) == n) {
            found = i;
        }
    }
    return found;
}

double pluNumber(const PluRecord& plu)
{
    return NumberText::numericValue(plu.Code);
}
