#include "MenuCheck.h"

#include "TerminalText.h"
#include "document/AnsiCodec.h"
#include "document/Blanks.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "document/PluNumberIndex.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <map>
#include <span>
#include <vector>

namespace MenuCheck {

namespace {

constexpr double HighestPlu = 9999;

QString productName(const PluRecord& product)
{
    return QStringLiteral("PLU %1 (%2)").arg(product.Code.trimmed(), product.Description.trimmed());
}

bool isPriceNumber(const QString& price)
{
    static const QRegularExpression decimal(QStringLiteral("^\\s*\\d+(\\.\\d+)?\\s*$"));
    return decimal.match(price).hasMatch();
}

bool isEncodable(const QString& text)
{
    return AnsiCodec::decode(AnsiCodec::encode(text)) == text;
}

class Checker
{
public:
    explicit Checker(const MenuDocument& document)
        : m_document(document)
        , m_catalogue(document)
    {
        m_firstWithDescription.reserve(document.PluCount);
        for (int slot = lineSlot(Limits::PageCount, Limits::RowsPerPage - 1); slot >= 0; --slot) {
            if (const std::int32_t plu = document.LinePlu[slot]; plu != 0) {
                m_firstSlotOf.insert(plu, slot);
            }
        }
    }

    QList<Problem> run()
    {
        checkRows();
        checkEmptyPages();
        checkCodes();
        checkDuplicates();
        checkModifiers();
        checkLanguageNames();
        return m_problems;
    }

private:
    void add(const QString& kind, int slot, const QString& plu, const QString& message)
    {
        Problem problem { kind, 0, Side::None, 0, plu, message };
        if (slot >= 0) {
            problem.page = slot / Limits::RowsPerPage + 1;
            problem.side = Side::Front;
            problem.row = slot % Limits::RowsPerPage + 1;
        }
        m_problems.append(problem);
    }

    int slotOf(const PluRecord& product) const
    {
        const double number = pluNumber(product);
        if (number != std::trunc(number) || std::abs(number) > INT32_MAX) {
            return -1;
        }
        return m_firstSlotOf.value(static_cast<std::int32_t>(number), -1);
    }

    // Each product once, where it first stands on the pages.
    void checkRows()
    {
        QList<bool> checked(m_document.PluCount, false);
        for (int slot = 0; slot < lineSlot(Limits::PageCount + 1, 0); ++slot) {
            const std::int32_t plu = m_document.LinePlu[slot];
            if (plu == 0) {
                continue;
            }
            const int index = m_catalogue.lastPluIndex(plu);
            if (index < 0) {
                add(QStringLiteral("missing-product"), slot, QString::number(plu),
                    QStringLiteral("The row is bound to PLU %1, which the catalogue does not hold").arg(plu));
            } else if (!checked[index]) {
                checked[index] = true;
                checkPlacedProduct(m_document.Plus[index], slot);
            }
        }
    }

    void checkPlacedProduct(const PluRecord& product, int slot)
    {
        const QString& code = product.Code;
        if (isBlank(product.Description)) {
            add(QStringLiteral("no-description"), slot, code,
                QStringLiteral("PLU %1 has no description").arg(code));
        }
        if (isBlank(product.Price)) {
            add(QStringLiteral("no-price"), slot, code,
                QStringLiteral("%1 has no price").arg(productName(product)));
        } else if (!isPriceNumber(product.Price)) {
            add(QStringLiteral("bad-price"), slot, code,
                QStringLiteral("%1: the price \"%2\" is not a number")
                    .arg(productName(product), product.Price));
        }
        const std::int32_t key = m_document.LinePlu[slot];
        if (key <= TextKey::LanguageNames || key >= Limits::LanguageRowCount) {
            return; // no texts of its own: the code check names it
        }
        checkTexts(product, slot, key);
    }

    void checkTexts(const PluRecord& product, int slot, int key)
    {
        const LanguageTable& texts = m_document.LanguageTable;
        if (!m_document.OldFirmware) {
            for (const int language : cutLanguages(texts, key)) {
                add(QStringLiteral("text-cut"), slot, product.Code,
                    QStringLiteral("%1: the %2 text does not fit in the 90 characters a terminal shows")
                        .arg(productName(product), languageName(language)));
            }
        }
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            const QString& text = texts.at(key, language);
            if (!isEncodable(text)) {
                add(QStringLiteral("not-encodable"), slot, product.Code,
                    QStringLiteral("%1: the %2 text \"%3\" holds characters the terminals show as \"?\"")
                        .arg(productName(product), languageName(language), text));
            }
        }
    }

    QString languageName(int language) const
    {
        const QString name = m_document.LanguageTable.at(TextKey::LanguageNames, language).trimmed();
        return name.isEmpty() ? QStringLiteral("language %1").arg(language) : name;
    }

    // The terminals show a lettered page without products as an empty folder.
    void checkEmptyPages()
    {
        QList<int> used;
        for (int page = 1; page <= Limits::LetteredPageCount; ++page) {
            for (int row = 0; row < Limits::RowsPerPage; ++row) {
                if (m_document.LinePlu[lineSlot(page, row)] != 0) {
                    used.append(page);
                    break;
                }
            }
        }
        for (qsizetype i = 1; i < used.size(); ++i) {
            for (int page = used[i - 1] + 1; page < used[i]; ++page) {
                Problem problem { QStringLiteral("empty-page"), page, Side::None, 0, {},
                    QStringLiteral(
                        "Page %1 is empty between pages in use: the terminals show an empty folder")
                        .arg(page) };
                m_problems.append(problem);
            }
        }
    }

    void checkCodes()
    {
        for (int i = 0; i < m_document.PluCount; ++i) {
            const PluRecord& product = m_document.Plus[i];
            const double number = pluNumber(product);
            if (number == 0 || (number >= 1 && number <= HighestPlu && number == std::trunc(number))) {
                continue; // 0 marks a deleted product
            }
            QString message = QStringLiteral("PLU %1 of %2: a PLU number is 1 to 9999")
                                  .arg(product.Code.trimmed(), product.Description.trimmed());
            if (number < 0 || number >= Limits::LanguageRowCount) {
                message += QStringLiteral("; Send stops at it");
            }
            add(QStringLiteral("code-range"), slotOf(product), product.Code, message);
        }
    }

    // Each number and each description held by more than one product, in catalogue order.
    void checkDuplicates()
    {
        std::vector<std::pair<double, int>> numbers;
        numbers.reserve(static_cast<std::size_t>(m_document.PluCount));
        for (int i = 0; i < m_document.PluCount; ++i) {
            if (const double number = pluNumber(m_document.Plus[i]); number != 0) {
                numbers.emplace_back(number, i);
            }
        }
        std::sort(numbers.begin(), numbers.end());
        for (auto first = numbers.begin(); first != numbers.end();) {
            const auto next
                = std::find_if(first, numbers.end(), [&](const auto& n) { return n.first != first->first; });
            if (next - first > 1) {
                reportDuplicateCode(first->first, { first, next });
            }
            first = next;
        }
        std::map<int, QList<int>> sharing; // first product of a description, the others
        for (int i = 0; i < m_document.PluCount; ++i) {
            const QString& description = m_document.Plus[i].Description;
            if (isBlank(description)) {
                continue;
            }
            if (const auto first = m_firstWithDescription.constFind(description);
                first != m_firstWithDescription.cend()) {
                sharing[first.value()].append(i);
            } else {
                m_firstWithDescription.insert(description, i);
            }
        }
        for (const auto& [first, others] : sharing) {
            reportDuplicateDescription(first, others);
        }
    }

    void reportDuplicateCode(double number, std::span<const std::pair<double, int>> holders)
    {
        QStringList descriptions;
        for (const auto& holder : holders) {
            descriptions.append(m_document.Plus[holder.second].Description.trimmed());
        }
        const QString code = QString::number(number, 'g', 15);
        add(QStringLiteral("duplicate-code"), m_firstSlotOf.value(static_cast<std::int32_t>(number), -1),
            code,
            QStringLiteral("PLU %1 is held by %2 products: %3")
                .arg(code)
                .arg(descriptions.size())
                .arg(descriptions.join(QStringLiteral(", "))));
    }

    void reportDuplicateDescription(int first, const QList<int>& others)
    {
        QStringList codes { m_document.Plus[first].Code.trimmed() };
        for (const int other : others) {
            codes.append(m_document.Plus[other].Code.trimmed());
        }
        add(QStringLiteral("duplicate-description"), -1, codes.first(),
            QStringLiteral("\"%1\" describes %2 products (PLU %3): their modifiers cannot be told apart")
                .arg(m_document.Plus[first].Description.trimmed())
                .arg(codes.size())
                .arg(codes.join(QStringLiteral(", "))));
    }

    void checkModifiers()
    {
        QHash<QString, const ModifierDefinition*> lists;
        for (int i = 0; i < m_document.ModifierListCount; ++i) {
            lists.insert(m_document.ModifierLists[i].Name, &m_document.ModifierLists[i]);
        }
        for (int a = 0; a < m_document.AssignmentCount; ++a) {
            const ModifierAssignment& assignment = m_document.Assignments[a];
            if (!m_firstWithDescription.contains(assignment.Key)) {
                add(QStringLiteral("modifier-limits"), -1, {},
                    QStringLiteral("Modifier lists are attached to \"%1\", which no product is called")
                        .arg(assignment.Key));
            }
            for (int l = 0; l < assignment.ListCount; ++l) {
                checkAttachedList(assignment, l, lists.value(assignment.ListName[l]));
            }
        }
    }

    void checkAttachedList(const ModifierAssignment& assignment, int l, const ModifierDefinition* list)
    {
        const QString where
            = QStringLiteral("\"%1\" with the list \"%2\"").arg(assignment.Key, assignment.ListName[l]);
        const auto report = [&](const QString& what) {
            add(QStringLiteral("modifier-limits"), -1, {}, where + QStringLiteral(": ") + what);
        };
        if (!list) {
            report(QStringLiteral("no such list"));
            return;
        }
        const std::int32_t options = list->EntryCount;
        if (assignment.Minimum[l] > assignment.Maximum[l]) {
            report(QStringLiteral("Minimum %1 is above Maximum %2")
                       .arg(assignment.Minimum[l])
                       .arg(assignment.Maximum[l]));
        }
        if (assignment.Maximum[l] > options) {
            report(
                QStringLiteral("Maximum %1 is above its %2 options").arg(assignment.Maximum[l]).arg(options));
        }
        if (assignment.Mandatory[l] != 0 && options == 0) {
            report(QStringLiteral("Mandatory, but the list has no options"));
        }
    }

    void checkLanguageNames()
    {
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            const QString& name = m_document.LanguageTable.at(TextKey::LanguageNames, language);
            if (!isEncodable(name)) {
                add(QStringLiteral("not-encodable"), -1, {},
                    QStringLiteral("The language name \"%1\" holds characters the terminals show as \"?\"")
                        .arg(name));
            }
        }
    }

    const MenuDocument& m_document;
    const PluNumberIndex m_catalogue;
    QHash<std::int32_t, int> m_firstSlotOf;
    QHash<QString, int> m_firstWithDescription; // filled by checkDuplicates
    QList<Problem> m_problems;
};

QString sideName(Side side)
{
    switch (side) {
    case Side::Front:
        return QStringLiteral("front");
    case Side::Back:
        return QStringLiteral("back");
    default:
        return QStringLiteral("-");
    }
}

QString numberOrDash(int number)
{
    return number == 0 ? QStringLiteral("-") : QString::number(number);
}

} // namespace

QList<Problem> check(const MenuDocument& document)
{
    return Checker(document).run();
}

QString line(const Problem& problem)
{
    return QStringList { problem.kind, numberOrDash(problem.page), sideName(problem.side),
        numberOrDash(problem.row), problem.plu.isEmpty() ? QStringLiteral("-") : problem.plu.trimmed(),
        problem.message }
        .join(u'\t');
}

} // namespace MenuCheck
