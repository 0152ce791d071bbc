#include "DocumentDiff.h"

#include <QStringList>

namespace {

// Lists every field as "name=value", in a fixed order, leaving out empty texts and zeros so that the
// list stays short; two documents are equal exactly when their lists are.
class FieldList
{
public:
    void add(const QString& name, const QString& value)
    {
        if (!value.isEmpty()) {
            m_lines.append(name + u'=' + value);
        }
    }
    void add(const QString& name, std::int32_t value)
    {
        if (value != 0) {
            m_lines.append(name + u'=' + QString::number(value));
        }
    }
    void add(const QString& name, float value) { m_lines.append(name + u'=' + QString::number(value)); }

    const QStringList& lines() const { return m_lines; }

private:
    QStringList m_lines;
};

QString indexed(const char* table, int index, const char* field)
{
    return QStringLiteral("%1[%2].%3").arg(QLatin1StringView(table)).arg(index).arg(QLatin1StringView(field));
}

void listPlus(FieldList& out, const MenuDocument& d)
{
    out.add(QStringLiteral("PluCount"), d.PluCount);
    for (int i = 0; i < Limits::PluCapacity; ++i) {
        const PluRecord& plu = d.Plus[i];
        out.add(indexed("Plus", i, "Code"), plu.Code);
        out.add(indexed("Plus", i, "AuxText"), plu.AuxText);
        out.add(indexed("Plus", i, "AltCode"), plu.AltCode);
        out.add(indexed("Plus", i, "Price"), plu.Price);
        out.add(indexed("Plus", i, "Description"), plu.Description);
    }
}

void listModifiers(FieldList& out, const MenuDocument& d)
{
    out.add(QStringLiteral("ModifierListCount"), d.ModifierListCount);
    for (int i = 0; i < Limits::ModifierListCapacity; ++i) {
        const ModifierDefinition& definition = d.ModifierLists[i];
        out.add(indexed("ModifierLists", i, "Name"), definition.Name);
        out.add(indexed("ModifierLists", i, "EntryCount"), definition.EntryCount);
        for (int entry = 0; entry < Limits::EntryCapacity; ++entry) {
            out.add(indexed("ModifierLists", i, "EntryPlu") + QStringLiteral("[%1]").arg(entry),
                definition.EntryPlu[entry]);
            out.add(indexed("ModifierLists", i, "EntryText") + QStringLiteral("[%1]").arg(entry),
                definition.EntryText[entry]);
        }
    }
    out.add(QStringLiteral("AssignmentCount"), d.AssignmentCount);
    for (int i = 0; i < Limits::AssignmentCapacity; ++i) {
        const ModifierAssignment& assignment = d.Assignments[i];
        out.add(indexed("Assignments", i, "Key"), assignment.Key);
        out.add(indexed("Assignments", i, "ListCount"), assignment.ListCount);
        for (int list = 0; list < Limits::AttachedListCapacity; ++list) {
            const QString at = QStringLiteral("[%1]").arg(list);
            out.add(indexed("Assignments", i, "ListName") + at, assignment.ListName[list]);
            out.add(indexed("Assignments", i, "Mandatory") + at, assignment.Mandatory[list]);
            out.add(indexed("Assignments", i, "Minimum") + at, assignment.Minimum[list]);
            out.add(indexed("Assignments", i, "Maximum") + at, assignment.Maximum[list]);
            out.add(indexed("Assignments", i, "Default") + at, assignment.Default[list]);
        }
    }
}

void listLines(FieldList& out, const MenuDocument& d)
{
    for (int slot = 0; slot < Limits::LineSlotCount; ++slot) {
        const LineLayout& line = d.LineLayouts[slot];
        out.add(QStringLiteral("LinePlu[%1]").arg(slot), d.LinePlu[slot]);
        out.add(indexed("LineLayouts", slot, "text"), line.text);
        out.add(indexed("LineLayouts", slot, "kind"), line.kind);
        out.add(indexed("LineLayouts", slot, "backColor"), line.backColor);
        out.add(indexed("LineLayouts", slot, "foreColor"), line.foreColor);
        out.add(indexed("LineLayouts", slot, "field5"), line.field5);
        out.add(indexed("LineLayouts", slot, "backText"), line.backText);
        out.add(indexed("LineLayouts", slot, "backBackColor"), line.backBackColor);
        out.add(indexed("LineLayouts", slot, "backForeColor"), line.backForeColor);
        out.add(indexed("LineLayouts", slot, "picturePath"), line.picturePath);
        out.add(indexed("LineLayouts", slot, "pictureRole"), line.pictureRole);
    }
}

void listTexts(FieldList& out, const MenuDocument& d)
{
    for (int key = 0; key < Limits::LanguageRowCount; ++key) {
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            out.add(QStringLiteral("LanguageTable(%1,%2)").arg(key).arg(language),
                d.LanguageTable.at(key, language));
        }
    }
}

void listSettings(FieldList& out, const MenuDocument& d)
{
    const PrintSettings& p = d.PrintSettings;
    out.add(QStringLiteral("Value1"), p.Value1);
    out.add(QStringLiteral("Value2"), p.Value2);
    out.add(QStringLiteral("Value3"), p.Value3);
    out.add(QStringLiteral("Value4"), p.Value4);
    out.add(QStringLiteral("CurrencySymbol"), p.CurrencySymbol);
    out.add(QStringLiteral("FontName"), p.FontName);
    for (int kind = 0; kind < Limits::ColorKindCount; ++kind) {
        out.add(QStringLiteral("ColorBack[%1]").arg(kind), p.ColorBack[kind]);
        out.add(QStringLiteral("ColorFore[%1]").arg(kind), p.ColorFore[kind]);
    }
    out.add(QStringLiteral("DefaultPageColor"), p.DefaultPageColor);
    for (int page = 0; page <= Limits::PageCount; ++page) {
        out.add(QStringLiteral("PageColorA[%1]").arg(page), p.PageColorA[page]);
        out.add(QStringLiteral("PageColorB[%1]").arg(page), p.PageColorB[page]);
        out.add(QStringLiteral("PageValueA[%1]").arg(page), p.PageValueA[page]);
        out.add(QStringLiteral("PageValueB[%1]").arg(page), p.PageValueB[page]);
    }
    out.add(QStringLiteral("PagesVersion"), d.PagesVersion);
    out.add(QStringLiteral("FilePrefix"), d.FilePrefix);
    out.add(QStringLiteral("ProjectFolder"), d.ProjectFolder);
}

QStringList fields(const MenuDocument& d)
{
    FieldList out;
    listPlus(out, d);
    listModifiers(out, d);
    listLines(out, d);
    listTexts(out, d);
    listSettings(out, d);
    return out.lines();
}

} // namespace

QString firstDifference(const MenuDocument& expected, const MenuDocument& actual)
{
    const QStringList want = fields(expected);
    const QStringList got = fields(actual);
    for (qsizetype i = 0; i < std::max(want.size(), got.size()); ++i) {
        const QString a = want.value(i, QStringLiteral("(nothing)"));
        const QString b = got.value(i, QStringLiteral("(nothing)"));
        if (a != b) {
            return QStringLiteral("expected %1, got %2").arg(a, b);
        }
    }
    return {};
}
