#include "MenuTransmission.h"

#include "RadioLink.h"
#include "TerminalText.h"
#include "designer/PageRendering.h"
#include "document/Blanks.h"
#include "document/LineReader.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "document/PluNumberIndex.h"

#include <QFile>

#include <map>

namespace {

constexpr std::int32_t OpenMode = 1;
constexpr std::int32_t OpenFlag = 0xFFFF;
constexpr std::int32_t LanguageNamesEntry = 1530;
constexpr int FirstSearchedSlot = 1;
constexpr int LastSearchedSlot = Limits::LineSlotCount - 1;
constexpr int ThirteenPagesSlots = 288;
// Pages 13 and 14 are moved to follow the last lettered page in use, counted from this page.
constexpr int MovedPagesBase = 9;

QByteArray readDefinitionsFile(const QString& prefix)
{
    QFile file(prefix + QStringLiteral("_modifiers_definitions.txt"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

std::int32_t keyOfSlot(int slot, bool thirteenPages, int lastUsedPage)
{
    if (thirteenPages || slot < ThirteenPagesSlots) {
        return slot + 1;
    }
    const int page = slot / Limits::RowsPerPage;
    return (page + MovedPagesBase - lastUsedPage) * Limits::RowsPerPage + slot % Limits::RowsPerPage + 1;
}

std::int32_t GetBotao(const MenuDocument& document, std::int32_t plu, bool thirteenPages, int lastUsedPage)
{
    if (plu == 0) {
        return 0;
    }
    for (int slot = FirstSearchedSlot; slot <= LastSearchedSlot; ++slot) {
        if (document.LinePlu[slot] == plu) {
            return keyOfSlot(slot, thirteenPages, lastUsedPage);
        }
    }
    return 0;
}

// Makes the session's calls from the document, in the order the terminal builds its menu from them.
class MenuTransmission::Builder
{
public:
    Builder(const MenuDocument& document, bool thirteenPages, QList<Call>& calls)
        : m_document(document)
        , m_thirteenPages(thirteenPages)
        , m_lastUsedPage(PageRendering::LastUsedPage(document))
        , m_calls(calls)
    {
        for (int i = m_document.AssignmentCount - 1; i >= 0; --i) {
            m_assignmentOf.insert(m_document.Assignments[i].Key, i);
        }
        for (int slot = LastSearchedSlot; slot >= FirstSearchedSlot; --slot) {
            if (const std::int32_t plu = m_document.LinePlu[slot]; plu != 0) {
                m_firstSlotOf.insert(plu, slot);
            }
        }
    }

    void addModifierLists()
    {
        LineReader definitions(readDefinitionsFile(m_document.FilePrefix));
        const PluNumberIndex catalogue(m_document);
        int depth = 0;
        while (!definitions.atEnd()) {
            const QString name = definitions.next();
            if (!name.isEmpty()) {
                enterFolder(name);
                ++depth;
            }
            while (!definitions.atEnd()) {
                const QString line = definitions.next();
                if (isBlank(line)) {
                    if (depth > 0) {
                        --depth;
                        m_calls.append([](RadioLink& link) { link.radio_make_tree_cd_back(); });
                    }
                    break;
                }
                addModifier(catalogue, NumberText::numericValue(line));
            }
        }
    }

    void addProducts()
    {
        const int count = m_document.PluCount;
        QList<bool> sent(count, false);
        const auto members = folderMembers();
        for (int i = 0; i < count; ++i) {
            const PluRecord& folder = m_document.Plus[i];
            const double folderNumber = NumberText::numericValue(folder.AuxText);
            if (folderNumber == 0) {
                continue;
            }
            enterFolder(folder.Description);
            for (const int member : members.at(folderNumber)) {
                addProductInFolder(member);
                sent[member] = true;
            }
            m_calls.append([](RadioLink& link) { link.radio_make_tree_cd_back(); });
        }
        for (int i = 0; i < count; ++i) {
            if (!sent[i]) {
                addProductOutsideFolders(i);
            }
        }
    }

    void addLanguageNames()
    {
        m_calls.append([text = textOf(TextKey::LanguageNames)](
                           RadioLink& link) { link.radio_set_entry(LanguageNamesEntry, text); });
    }

private:
    QString textOf(int key) const
    {
        return terminalText(m_document.LanguageTable, key, m_document.OldFirmware);
    }

    void enterFolder(const QString& name)
    {
        m_calls.append([name](RadioLink& link) {
            link.radio_make_tree_mkdir(name);
            link.radio_make_tree_cd(name);
        });
    }

    void addModifier(const PluNumberIndex& catalogue, double number)
    {
        const int index = catalogue.FindPluIndex(number);
        if (index == 0 && pluNumber(m_document.Plus[0]) != number) {
            return; // no product has this number
        }
        const std::int32_t plu = NumberText::int32Value(m_document.Plus[index].Code);
        m_calls.append([plu, text = textOf(plu)](RadioLink& link) { link.menu_modifier(plu, text); });
    }

    // The products that belong in each folder, by folder number, in catalogue order; a folder itself
    // belongs in none.
    std::map<double, QList<int>> folderMembers() const
    {
        std::map<double, QList<int>> members;
        for (int i = 0; i < m_document.PluCount; ++i) {
            if (const double folder = NumberText::numericValue(m_document.Plus[i].AuxText); folder != 0) {
                members.try_emplace(folder);
            }
        }
        if (members.empty()) {
            return members;
        }
        for (int i = 0; i < m_document.PluCount; ++i) {
            const PluRecord& plu = m_document.Plus[i];
            if (NumberText::numericValue(plu.AuxText) == 0) {
                if (const auto folder = members.find(NumberText::numericValue(plu.AltCode));
                    folder != members.end()) {
                    folder->second.append(i);
                }
            }
        }
        return members;
    }

    void addProductInFolder(int index)
    {
        addItem(index);
        forEachAttachedList(index, [this](const ModifierAssignment& lists, int l) {
            m_calls.append([name = lists.ListName[l], mandatory = lists.Mandatory[l],
                               minimum = lists.Minimum[l], maximum = lists.Maximum[l]](RadioLink& link) {
                link.radio_make_tree_modifier_min_max(name, mandatory, minimum, maximum);
            });
        });
    }

    void addProductOutsideFolders(int index)
    {
        if (keyOf(index) == 0) {
            return;
        }
        addItem(index);
        forEachAttachedList(index, [this](const ModifierAssignment& lists, int l) {
            m_calls.append([name = lists.ListName[l], minimum = lists.Minimum[l], maximum = lists.Maximum[l],
                               defaults = lists.Default[l]](RadioLink& link) {
                link.menu_item_modifier_group(name, minimum, maximum, defaults);
            });
        });
    }

    // GetBotao, with the first slot of each number found once for the whole catalogue.
    std::int32_t keyOf(int index) const
    {
        const auto found = m_firstSlotOf.constFind(NumberText::int32Value(m_document.Plus[index].Code));
        return found == m_firstSlotOf.cend() ? 0 : keyOfSlot(*found, m_thirteenPages, m_lastUsedPage);
    }

    void addItem(int index)
    {
        const PluRecord& product = m_document.Plus[index];
        const std::int32_t plu = NumberText::int32Value(product.Code);
        m_calls.append([plu, text = textOf(plu), price = product.Price, key = keyOf(index)](
                           RadioLink& link) { link.menu_item(plu, text, price, key); });
    }

    // A product's lists are those of the assignment named exactly as the product's description.
    template<typename Visit>
    void forEachAttachedList(int index, Visit&& visit) const
    {
        const auto found = m_assignmentOf.constFind(m_document.Plus[index].Description);
        if (found == m_assignmentOf.cend()) {
            return;
        }
        const ModifierAssignment& lists = m_document.Assignments[*found];
        for (int l = 0; l < lists.ListCount; ++l) {
            visit(lists, l);
        }
    }

    const MenuDocument& m_document;
    const bool m_thirteenPages;
    const int m_lastUsedPage;
    QList<Call>& m_calls;
    QHash<QString, int> m_assignmentOf; // the first assignment with each key
    QHash<std::int32_t, int> m_firstSlotOf; // the first line slot searched that holds each PLU number
};

MenuTransmission::MenuTransmission(const MenuDocument& document, Options options)
    : m_options(std::move(options))
{
    Builder builder(document, m_options.thirteenPages, m_calls);
    builder.addModifierLists();
    builder.addProducts();
    builder.addLanguageNames();
}

std::int32_t MenuTransmission::send(RadioLink& link, std::int32_t port) const
{
    const std::int32_t opened = link.menu_init(port, OpenMode, OpenFlag);
    if (opened > 0) {
        return opened;
    }
    for (const Call& call : m_calls) {
        call(link);
    }
    if (m_options.uploadStarting) {
        m_options.uploadStarting();
    }
    link.menu_upload();
    if (m_options.uploadFinished) {
        m_options.uploadFinished();
    }
    link.menu_close();
    return opened;
}
