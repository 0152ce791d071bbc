#pragma once

#include "FixedTable.h"

#include <QString>

#include <cstdint>

// Table sizes of the menu document. They never change while the program runs.
namespace Limits {
constexpr int PluCapacity = 10000;
constexpr int ModifierListCapacity = 101;
constexpr int EntryCapacity = 101;
constexpr int AssignmentCapacity = 101;
constexpr int AttachedListCapacity = 11;
constexpr int PageCount = 14;
constexpr int RowsPerPage = 24;
constexpr int LineSlotCount = PageCount * RowsPerPage + 1; // the last slot is a spare that no page shows
constexpr int LanguageCount = 5;
constexpr int LanguageRowCount = 11337;
constexpr int ColorKindCount = 4; // text lines, titles, notes, and one unused entry
constexpr int LetteredPageCount = 12; // pages A to L; pages 13 and 14 have no magnet letter
} // namespace Limits

// Keys of the language table besides PLU numbers.
namespace TextKey {
constexpr int LanguageNames = 0;
constexpr int LineTextBase = 10000; // title and note lines: base + slot
constexpr int GroupTitleBase = 11000; // group titles: base + slot
} // namespace TextKey

// One product of the catalogue. Every field is kept exactly as typed or imported.
struct PluRecord
{
    QString Code; // the PLU number, compared by its numeric value; "0" marks a deleted product
    QString AuxText;
    QString AltCode;
    QString Price;
    QString Description;

    bool operator==(const PluRecord&) const = default;
};

// A named list of option products.
struct ModifierDefinition
{
    QString Name;
    FixedTable<std::int32_t, Limits::EntryCapacity> EntryPlu;
    FixedTable<QString, Limits::EntryCapacity> EntryText;
    std::int32_t EntryCount = 0;

    bool operator==(const ModifierDefinition&) const = default;
};

// The modifier lists attached to one product, which is named by its description.
struct ModifierAssignment
{
    QString Key;
    std::int32_t ListCount = 0;
    FixedTable<QString, Limits::AttachedListCapacity> ListName;
    FixedTable<std::int32_t, Limits::AttachedListCapacity> Mandatory;
    FixedTable<std::int32_t, Limits::AttachedListCapacity> Minimum;
    FixedTable<std::int32_t, Limits::AttachedListCapacity> Maximum;
    FixedTable<std::int32_t, Limits::AttachedListCapacity> Default; // bit i: entry i is chosen by default

    bool operator==(const ModifierAssignment&) const = default;
};

enum LineKind : std::int32_t
{
    EmptyLine = 0,
    ProductLine = 1,
    TitleLine = 2,
    NoteLine = 3
};
enum PictureRole : std::int32_t
{
    GroupStart = 4,
    CoveredByPicture = 5
};

// The layout half of a page line; the fields keep the order of the layout file.
struct LineLayout
{
    QString text; // own text of a title or note (its first-language text)
    std::int32_t kind = EmptyLine;
    QString backColor; // colours are decimal 0x00BBGGRR texts; empty means the default
    QString foreColor;
    std::int32_t field5 = 0; // written to the layout file, never read back
    QString backText; // group title shown on the back side
    QString backBackColor;
    QString backForeColor;
    QString picturePath;
    std::int32_t pictureRole = 0;

    bool operator==(const LineLayout&) const = default;
};

// Texts by text key (rows) and language (columns 1 to 5; column 0 exists but is not used).
class LanguageTable
{
public:
    QString& at(int key, int language) { return m_texts[cell(key, language)]; }
    const QString& at(int key, int language) const { return m_texts[cell(key, language)]; }

    void clear();
    void setDefaultLanguageNames();

    // Every cell in one run, for code that compares or copies the whole table.
    static constexpr int CellCount = Limits::LanguageRowCount * (Limits::LanguageCount + 1);
    QString& cellAt(int index) { return m_texts[index]; }
    const QString& cellAt(int index) const { return m_texts[index]; }

    bool operator==(const LanguageTable&) const = default;

private:
    static constexpr int ColumnCount = Limits::LanguageCount + 1;
    static int cell(int key, int language);

    FixedTable<QString, CellCount> m_texts;
};

template<typename T>
using PageTable = FixedTable<T, Limits::PageCount + 1>; // indexed by page number 1 to 14

struct PrintSettings
{
    float Value1 = 47; // margin of the price column
    float Value2 = 165; // vertical margin
    float Value3 = 59; // margin of the description column
    QString CurrencySymbol;
    QString FontName;
    FixedTable<QString, Limits::ColorKindCount> ColorBack; // by kind: 0 text lines, 1 titles, 2 notes
    FixedTable<QString, Limits::ColorKindCount> ColorFore;
    QString DefaultPageColor;
    std::int32_t Value4 = 1; // 1: print the row lines
    PageTable<QString> PageColorA; // front side background
    PageTable<QString> PageColorB; // back side background
    PageTable<QString> PageValueA; // front side picture
    PageTable<QString> PageValueB; // back side picture

    PrintSettings();

    // The values a project without a printer file takes.
    void setDefaults();
    // Every page side takes the default page colour.
    void resetPageColors();

    bool operator==(const PrintSettings&) const = default;
};

// The one open menu: fixed tables and the counters that say how much of each is in use.
class MenuDocument
{
public:
    MenuDocument();

    std::int32_t PluCount = 0;
    FixedTable<PluRecord, Limits::PluCapacity> Plus;
    std::int32_t ModifierListCount = 0;
    FixedTable<ModifierDefinition, Limits::ModifierListCapacity> ModifierLists;
    std::int32_t AssignmentCount = 0;
    FixedTable<ModifierAssignment, Limits::AssignmentCapacity> Assignments;
    FixedTable<std::int32_t, Limits::LineSlotCount> LinePlu;
    FixedTable<LineLayout, Limits::LineSlotCount> LineLayouts;
    class LanguageTable LanguageTable;
    struct PrintSettings PrintSettings;
    QString PagesVersion = QStringLiteral("0");
    QString FilePrefix;
    QString ProjectFolder;
    // Terminals with old firmware know one language; set from the Send dialog, not stored in files.
    bool OldFirmware = false;

    // The first index 0 to PluCount whose Code has the value n; 0 when there is none, so an absent
    // number cannot be told from the first product. The scan reaches one past the last product in use.
    int FindPluIndex(double n) const;

    // Marks every product 0 to PluCount with the value n as deleted (Code "0"); nothing is removed.
    void DeletePluNumber(double n);

    // The product a line bound to PLU number n shows: the last of indices 1 to PluCount - 1 with that
    // number, or -1. Index 0 is not looked at.
    int findLinePlu(std::int32_t n) const;

    bool operator==(const MenuDocument&) const = default;
};

// Line slot of row r (0 to 23) of page p (1 to 14).
constexpr int lineSlot(int page, int row)
{
    return (page - 1) * Limits::RowsPerPage + row;
}

double pluNumber(const PluRecord& plu);
