#include "UndoHistory.h"

#include "MenuDocument.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

template<typename T>
struct Cell
{
    int index;
    T before;
    T after;
};

// Entry i of a part of the document: tables by index, single values as a table of one.
template<typename T, int Size>
T& entry(FixedTable<T, Size>& table, int index)
{
    return table[index];
}
template<typename T, int Size>
constexpr int entryCount(const FixedTable<T, Size>&)
{
    return Size;
}
QString& entry(LanguageTable& table, int index)
{
    return table.cellAt(index);
}
constexpr int entryCount(const LanguageTable&)
{
    return LanguageTable::CellCount;
}
template<typename T>
T& entry(T& value, int)
{
    return value;
}
template<typename T>
constexpr int entryCount(const T&)
{
    return 1;
}

// Calls visit on every string of an entry.
template<typename Visit>
void forEachString(std::int32_t, Visit&&)
{ }
template<typename Visit>
void forEachString(const QString& text, Visit&& visit)
{
    visit(text);
}
template<typename T, int Size, typename Visit>
void forEachString(const FixedTable<T, Size>& table, Visit&& visit)
{
    for (int i = 0; i < Size; ++i) {
        forEachString(table[i], visit);
    }
}
template<typename Visit>
void forEachString(const PluRecord& plu, Visit&& visit)
{
    for (const QString* text : { &plu.Code, &plu.AuxText, &plu.AltCode, &plu.Price, &plu.Description }) {
        visit(*text);
    }
}
template<typename Visit>
void forEachString(const LineLayout& line, Visit&& visit)
{
    for (const QString* text : { &line.text, &line.backColor, &line.foreColor, &line.backText,
             &line.backBackColor, &line.backForeColor, &line.picturePath }) {
        visit(*text);
    }
}
template<typename Visit>
void forEachString(const ModifierDefinition& list, Visit&& visit)
{
    visit(list.Name);
    forEachString(list.EntryText, visit);
}
template<typename Visit>
void forEachString(const ModifierAssignment& assignment, Visit&& visit)
{
    visit(assignment.Key);
    forEachString(assignment.ListName, visit);
}
template<typename Visit>
void forEachString(const PrintSettings& settings, Visit&& visit)
{
    for (const QString* text : { &settings.CurrencySymbol, &settings.FontName, &settings.DefaultPageColor }) {
        visit(*text);
    }
    for (const auto* colors : { &settings.ColorBack, &settings.ColorFore }) {
        forEachString(*colors, visit);
    }
    for (const auto* pages :
        { &settings.PageColorA, &settings.PageColorB, &settings.PageValueA, &settings.PageValueB }) {
        forEachString(*pages, visit);
    }
}

// The tables inside an entry are its own, not shared like its strings.
std::size_t ownTableBytes(const ModifierDefinition&)
{
    return Limits::EntryCapacity * (sizeof(std::int32_t) + sizeof(QString));
}
std::size_t ownTableBytes(const ModifierAssignment&)
{
    return Limits::AttachedListCapacity * (sizeof(QString) + 4 * sizeof(std::int32_t));
}
std::size_t ownTableBytes(const PrintSettings&)
{
    return 2 * Limits::ColorKindCount * sizeof(QString) + 4 * (Limits::PageCount + 1) * sizeof(QString);
}
template<typename T>
std::size_t ownTableBytes(const T&)
{
    return 0;
}

// What a step keeps alive. The texts it changed to are the document's, and so are the texts it changed
// from that only moved (an inserted page moves every row below it): only the texts the document no
// longer holds are the step's own.
template<typename T>
std::size_t bytesOf(const std::vector<Cell<T>>& cells)
{
    std::unordered_set<const QChar*> kept;
    for (const Cell<T>& cell : cells) {
        forEachString(cell.after, [&](const QString& text) {
            if (!text.isEmpty()) {
                kept.insert(text.constData());
            }
        });
    }
    std::size_t bytes = cells.capacity() * sizeof(Cell<T>);
    for (const Cell<T>& cell : cells) {
        bytes += 2 * ownTableBytes(cell.before);
        forEachString(cell.before, [&](const QString& text) {
            if (!text.isEmpty() && !kept.count(text.constData())) {
                bytes += static_cast<std::size_t>(text.size()) * sizeof(QChar);
            }
        });
    }
    return bytes;
}

// Entries the document has not touched since the last checkpoint still share their strings with the
// baseline: that is seen without reading the characters.
bool same(const QString& now, const QString& was)
{
    return (now.constData() == was.constData() && now.size() == was.size()) || now == was;
}
bool same(const PluRecord& now, const PluRecord& was)
{
    return same(now.Description, was.Description) && same(now.Code, was.Code) && same(now.Price, was.Price)
        && same(now.AuxText, was.AuxText) && same(now.AltCode, was.AltCode);
}
template<typename T>
bool same(const T& now, const T& was)
{
    return now == was;
}

// The entries of one part that differ, as they were and as they are. They are counted first, so that
// the cells of a change to every entry (New) are allocated once.
template<typename Part, typename T>
void takeDifferences(Part& current, Part& baseline, std::vector<Cell<T>>& cells)
{
    std::size_t changed = 0;
    for (int i = 0; i < entryCount(current); ++i) {
        changed += same(entry(current, i), entry(baseline, i)) ? 0U : 1U;
    }
    if (changed == 0) {
        return;
    }
    cells.reserve(changed);
    for (int i = 0; i < entryCount(current); ++i) {
        T& now = entry(current, i);
        T& was = entry(baseline, i);
        if (!same(now, was)) {
            cells.push_back({ i, std::move(was), now });
            was = now;
        }
    }
}

enum class Side
{
    Before,
    After
};

template<typename Part, typename T>
void putBack(Part& current, Part& baseline, const std::vector<Cell<T>>& cells, Side side)
{
    for (const Cell<T>& cell : cells) {
        const T& value = side == Side::Before ? cell.before : cell.after;
        entry(current, cell.index) = value;
        entry(baseline, cell.index) = value;
    }
}

// Later changes of the same entries replace the earlier ones' result; their starting point stays.
template<typename T>
void join(std::vector<Cell<T>>& earlier, std::vector<Cell<T>>& later)
{
    std::unordered_map<int, std::size_t> at;
    for (std::size_t i = 0; i < earlier.size(); ++i) {
        at.emplace(earlier[i].index, i);
    }
    for (Cell<T>& cell : later) {
        if (const auto found = at.find(cell.index); found != at.end()) {
            earlier[found->second].after = std::move(cell.after);
        } else {
            earlier.push_back(std::move(cell));
        }
    }
}

// Everything the user can change, part by part. The old-firmware switch belongs to the Send dialog, not
// to the menu; the file prefix only says where the last save went, and every autosave moves it.
auto partsOf(MenuDocument& document)
{
    return std::tie(document.PluCount, document.Plus, document.ModifierListCount, document.ModifierLists,
        document.AssignmentCount, document.Assignments, document.LinePlu, document.LineLayouts,
        document.LanguageTable, document.PrintSettings, document.PagesVersion, document.ProjectFolder);
}

template<typename Part>
using EntryOf = std::remove_reference_t<decltype(entry(std::declval<Part&>(), 0))>;

template<typename Parts>
struct CellsFor;
template<typename... Parts>
struct CellsFor<std::tuple<Parts&...>>
{
    using Type = std::tuple<std::vector<Cell<EntryOf<Parts>>>...>;
};

// The changed entries of every part, in the order of partsOf.
using Delta = CellsFor<decltype(partsOf(std::declval<MenuDocument&>()))>::Type;

template<std::size_t... I, typename Visit, typename... Tuples>
void forEachPartAt(std::index_sequence<I...>, Visit& visit, Tuples&... tuples)
{
    const auto visitPart = [&](auto part) { visit(std::get<decltype(part)::value>(tuples)...); };
    (..., visitPart(std::integral_constant<std::size_t, I> {}));
}

// Calls visit with the same part of each tuple (parts of documents, cells of deltas), part by part.
template<typename Visit, typename First, typename... Rest>
void forEachPart(Visit&& visit, First&& first, Rest&&... rest)
{
    constexpr std::size_t size = std::tuple_size_v<std::remove_reference_t<First>>;
    forEachPartAt(std::make_index_sequence<size> {}, visit, first, rest...);
}

bool isEmpty(const Delta& delta)
{
    return std::apply([](const auto&... cells) { return (cells.empty() && ...); }, delta);
}

std::size_t bytesOf(const Delta& delta)
{
    return std::apply([](const auto&... cells) { return (sizeof(Delta) + ... + bytesOf(cells)); }, delta);
}

void moveFiles(const QString& from, const QString& to, const QStringList& names)
{
    for (const QString& name : names) {
        const QString target = to + u'/' + name;
        QFile::remove(target);
        QFile::rename(from + u'/' + name, target);
    }
}

} // namespace

struct UndoHistory::Baseline
{
    MenuDocument document;
};

struct UndoHistory::KeptFiles
{
    QString folder;
    QString keptIn;
    QStringList names;
};

struct UndoHistory::Step
{
    QString name;
    const void* foldKey = nullptr;
    Delta delta;
    std::unique_ptr<KeptFiles> files;
    std::size_t bytes = 0;
};

UndoHistory::UndoHistory(MenuDocument& document, QString keepingRoot, std::size_t memoryLimit)
    : m_document(document)
    , m_baseline(std::make_unique<Baseline>(Baseline { document }))
    , m_memoryLimit(memoryLimit)
    , m_keepingRoot(std::move(keepingRoot))
{ }

UndoHistory::~UndoHistory() = default;

void UndoHistory::reset()
{
    for (Step& step : m_steps) {
        forget(step);
    }
    m_steps.clear();
    m_done = 0;
    m_memoryUse = 0;
    m_baseline->document = m_document;
}

namespace {

Delta takeChanges(MenuDocument& document, MenuDocument& baseline)
{
    Delta delta;
    forEachPart([](auto& current, auto& base, auto& cells) { takeDifferences(current, base, cells); },
        partsOf(document), partsOf(baseline), delta);
    return delta;
}

void putBack(MenuDocument& document, MenuDocument& baseline, const Delta& delta, Side side)
{
    forEachPart([side](auto& current, auto& base, const auto& cells) { putBack(current, base, cells, side); },
        partsOf(document), partsOf(baseline), delta);
}

} // namespace

bool UndoHistory::record(const QString& name, const void* foldKey)
{
    Delta delta = takeChanges(m_document, m_baseline->document);
    if (isEmpty(delta) && !m_pendingFiles) {
        return false;
    }
    const bool joins = foldKey && !m_pendingFiles && m_done > 0 && m_done == m_steps.size()
        && m_steps.back().foldKey == foldKey;
    if (joins) {
        Step& last = m_steps.back();
        m_memoryUse -= last.bytes;
        forEachPart([](auto& earlier, auto& later) { join(earlier, later); }, last.delta, delta);
        last.bytes = bytesOf(last.delta);
        m_memoryUse += last.bytes;
        dropOldestSteps();
        return true;
    }
    push(Step { name, foldKey, std::move(delta), std::move(m_pendingFiles) });
    return true;
}

void UndoHistory::absorb()
{
    takeChanges(m_document, m_baseline->document);
}

void UndoHistory::push(Step&& step)
{
    dropRedoSteps();
    step.bytes = bytesOf(step.delta);
    m_memoryUse += step.bytes;
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
    dropOldestSteps();
}

void UndoHistory::dropRedoSteps()
{
    while (m_steps.size() > m_done) {
        forget(m_steps.back());
        m_memoryUse -= m_steps.back().bytes;
        m_steps.pop_back();
    }
}

// The newest step always stays, however large.
void UndoHistory::dropOldestSteps()
{
    while (m_memoryUse > m_memoryLimit && m_steps.size() > 1) {
        forget(m_steps.front());
        m_memoryUse -= m_steps.front().bytes;
        m_steps.erase(m_steps.begin());
        --m_done;
    }
}

// Files a step kept are gone for good once the step cannot bring them back.
void UndoHistory::forget(Step& step)
{
    if (step.files) {
        QDir(step.files->keptIn).removeRecursively();
    }
}

QString UndoHistory::newKeepingFolder()
{
    if (!m_keeping) {
        QDir().mkpath(m_keepingRoot);
        m_keeping = std::make_unique<QTemporaryDir>(m_keepingRoot + QStringLiteral("/.undo-XXXXXX"));
    }
    if (!m_keeping->isValid()) {
        return {};
    }
    const QString folder = m_keeping->filePath(QString::number(++m_keepingFolders));
    return QDir().mkpath(folder) ? folder : QString();
}

void UndoHistory::keepFiles(const QString& folder, const QString& keptIn, const QStringList& names)
{
    m_pendingFiles = std::make_unique<KeptFiles>(KeptFiles { folder, keptIn, names });
}

int UndoHistory::stepCount() const
{
    return static_cast<int>(m_steps.size());
}

bool UndoHistory::canUndo() const
{
    return m_done > 0;
}

bool UndoHistory::canRedo() const
{
    return m_done < m_steps.size();
}

QString UndoHistory::undoName() const
{
    return canUndo() ? m_steps[m_done - 1].name : QString();
}

QString UndoHistory::redoName() const
{
    return canRedo() ? m_steps[m_done].name : QString();
}

void UndoHistory::undo()
{
    if (!canUndo()) {
        return;
    }
    Step& step = m_steps[--m_done];
    putBack(m_document, m_baseline->document, step.delta, Side::Before);
    if (step.files) {
        moveFiles(step.files->keptIn, step.files->folder, step.files->names);
    }
}

void UndoHistory::redo()
{
    if (!canRedo()) {
        return;
    }
    Step& step = m_steps[m_done++];
    putBack(m_document, m_baseline->document, step.delta, Side::After);
    if (step.files) {
        moveFiles(step.files->folder, step.files->keptIn, step.files->names);
    }
}
