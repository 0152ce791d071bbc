#include "ComponentFiles.h"

#include "AnsiCodec.h"
#include "Blanks.h"
#include "LineReader.h"
#include "MenuDocument.h"
#include "NumberText.h"
#include "PluLine.h"
#include "PluNumberIndex.h"
#include "SafeWrite.h"

#include <QFile>
#include <QThread>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <exception>
#include <functional>
#include <numeric>
#include <optional>
#include <thread>
#include <vector>

namespace {

const QString DefinitionsSuffix = QStringLiteral("_modifiers_definitions.txt");
const QString AssignmentsSuffix = QStringLiteral("_modifiers.txt");
const QString ButtonsSuffix = QStringLiteral("_botoes.txt");
const QString PluSuffix = QStringLiteral("_pludata.txt");
const QString PrinterSuffix = QStringLiteral("_printer.txt");
const QString LayoutSuffix = QStringLiteral("_Layout.txt");
const QString LanguagesSuffix = QStringLiteral("_Languages.txt");
const QString PagesVersionSuffix = QStringLiteral("_PagesVersion.txt");

// A save writes the new files aside under this ending, then the journal that says they are all there,
// then moves them into place and removes the journal. The files they replace keep a hidden second name
// until a worker thread removes it.
const QString StagedEnding = QStringLiteral(".staged");
const QString JournalEnding = QStringLiteral(".saving");
const QString ReplacedEnding = QStringLiteral(".replaced");
const QByteArray JournalText = QByteArrayLiteral("complete\r\n");

// Each file is made and then written on one thread: writing waits on the disk, so more threads than
// cores let those waits overlap with the making of other files.
constexpr qsizetype WriterThreads = 8;

// The layout file stops at this slot; the slots after it are not stored.
constexpr int LastStoredLayoutSlot = 312;

QString pageFileSuffix(const char16_t* name, int page)
{
    return QString::fromUtf16(name) + QString::number(page) + QStringLiteral(".txt");
}

// Builds one file: one value a line, CR LF, windows-1252.
class LineWriter
{
public:
    void write(QStringView value)
    {
        const qsizetype start = m_bytes.size();
        AnsiCodec::appendEncoded(m_bytes, value);
        replaceLineBreaks(start);
        m_bytes.append("\r\n", 2);
    }
    void write(const QString& value) { write(QStringView(value)); }
    template<typename A, typename B>
    void write(const QStringBuilder<A, B>& value)
    {
        write(QString(value));
    }
    void write(std::int32_t value) { write(NumberText::fileNumber(value)); }
    void write(float value) { write(NumberText::fileNumber(value)); }

    QByteArray take() { return std::move(m_bytes); }

private:
    // A line break inside a value would shift every value after it; it is stored as a blank.
    void replaceLineBreaks(qsizetype from)
    {
        const auto length = static_cast<std::size_t>(m_bytes.size() - from);
        const char* const value = m_bytes.constData() + from;
        if (std::memchr(value, '\r', length) || std::memchr(value, '\n', length)) {
            std::replace_if(
                m_bytes.begin() + from, m_bytes.end(), [](char byte) { return byte == '\r' || byte == '\n'; },
                ' ');
        }
    }

    QByteArray m_bytes;
};

// The printer, layout and language files hold values in a fixed order that writing and reading
// walk alike, so that the two cannot drift apart.
template<typename Settings, typename Visit>
void visitPrinterValues(Settings& settings, Visit&& visit)
{
    visit(settings.Value1);
    visit(settings.Value2);
    visit(settings.Value3);
    visit(settings.CurrencySymbol);
    visit(settings.FontName);
    for (int kind : { 1, 2, 0 }) {
        visit(settings.ColorBack[kind]);
        visit(settings.ColorFore[kind]);
    }
    visit(settings.DefaultPageColor);
    visit(settings.Value4);
}

template<typename Settings, typename Visit>
void visitPageSides(Settings& settings, Visit&& visit)
{
    for (int page = 1; page <= Limits::PageCount; ++page) {
        visit(settings.PageColorA[page]);
        visit(settings.PageColorB[page]);
    }
    for (int page = 1; page <= Limits::PageCount; ++page) {
        visit(settings.PageValueA[page]);
        visit(settings.PageValueB[page]);
    }
}

// Field 5 goes to its own visitor: it is written but not read back.
template<typename Document, typename Visit, typename VisitField5>
void visitLayout(Document& document, Visit&& visit, VisitField5&& visitField5)
{
    for (int slot = 0; slot <= LastStoredLayoutSlot; ++slot) {
        auto& line = document.LineLayouts[slot];
        visit(line.text);
        visit(line.kind);
        visit(line.backColor);
        visit(line.foreColor);
        visitField5(line.field5);
        visit(line.backText);
        visit(line.backBackColor);
        visit(line.backForeColor);
        visit(line.picturePath);
    }
    for (int slot = 0; slot <= LastStoredLayoutSlot; ++slot) {
        visit(document.LineLayouts[slot].pictureRole);
    }
}

template<typename Texts, typename Visit>
void visitLanguageTexts(Texts& texts, Visit&& visit, int firstKey = 0, int endKey = Limits::LanguageRowCount)
{
    for (int key = firstKey; key < endKey; ++key) {
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            visit(texts.at(key, language));
        }
    }
}

QByteArray renderDefinitions(const MenuDocument& document)
{
    LineWriter out;
    for (int i = 0; i < document.ModifierListCount; ++i) {
        const ModifierDefinition& definition = document.ModifierLists[i];
        out.write(definition.Name);
        for (int entry = 0; entry < definition.EntryCount; ++entry) {
            out.write(definition.EntryPlu[entry]);
        }
        out.write(QString());
    }
    return out.take();
}

QByteArray renderAssignments(const MenuDocument& document)
{
    LineWriter out;
    for (int i = 0; i < document.AssignmentCount; ++i) {
        const ModifierAssignment& assignment = document.Assignments[i];
        out.write(assignment.Key);
        for (int list = 0; list < assignment.ListCount; ++list) {
            out.write(assignment.ListName[list]);
            // The mandatory flag is not written, though the reader takes it.
            if (assignment.Minimum[list] != 0) {
                out.write(QStringLiteral("minimo ") + NumberText::str(assignment.Minimum[list]));
            }
            if (assignment.Maximum[list] != 0) {
                out.write(QStringLiteral("maximo ") + NumberText::str(assignment.Maximum[list]));
            }
            if (assignment.Default[list] != 0) {
                out.write(QStringLiteral("default ") + NumberText::str(assignment.Default[list]));
            }
        }
        out.write(QString());
    }
    return out.take();
}

QByteArray renderButtons(const MenuDocument& document)
{
    LineWriter out;
    for (int slot = 0; slot < Limits::PageCount * Limits::RowsPerPage; ++slot) {
        if (slot % Limits::RowsPerPage == 0) {
            out.write(QStringLiteral("- Page ") + NumberText::str(slot / Limits::RowsPerPage));
        }
        const std::int32_t plu = document.LinePlu[slot];
        out.write(plu > 0 ? NumberText::str(plu) : QStringLiteral("0"));
    }
    return out.take();
}

// One line per row of the page: the given field of the product on the line, or an empty line.
QByteArray renderPageColumn(
    const MenuDocument& document, const PluNumberIndex& index, int page, QString PluRecord::*field)
{
    LineWriter out;
    for (int row = 0; row < Limits::RowsPerPage; ++row) {
        const std::int32_t plu = document.LinePlu[lineSlot(page, row)];
        const int found = plu != 0 ? index.findLinePlu(plu) : -1;
        out.write(found >= 0 ? document.Plus[found].*field : QString());
    }
    return out.take();
}

QByteArray renderPlus(const MenuDocument& document)
{
    LineWriter out;
    for (int i = 0; i < document.PluCount; ++i) {
        out.write(PluLine::format(document.Plus[i]));
    }
    return out.take();
}

QByteArray renderPrinter(const PrintSettings& settings)
{
    LineWriter out;
    const auto write = [&out](const auto& value) { out.write(value); };
    visitPrinterValues(settings, write);
    visitPageSides(settings, write);
    return out.take();
}

QByteArray renderLayout(const MenuDocument& document)
{
    LineWriter out;
    const auto write = [&out](const auto& value) { out.write(value); };
    visitLayout(document, write, write);
    return out.take();
}

// Runs work(i) for every i below count on a few threads at once.
template<typename Work>
void runSideBySide(qsizetype count, qsizetype threads, const Work& work)
{
    std::atomic<qsizetype> next = 0;
    const auto worker = [&] {
        for (qsizetype i = next++; i < count; i = next++) {
            work(i);
        }
    };
    std::vector<std::jthread> workers;
    for (qsizetype i = 0; i < std::min(threads, count); ++i) {
        workers.emplace_back(worker);
    }
}

// The language file is by far the largest, so its rows are made in parts side by side.
QByteArray renderLanguages(const LanguageTable& texts)
{
    constexpr int Parts = 4;
    std::array<QByteArray, Parts> parts;
    runSideBySide(Parts, Parts, [&](qsizetype part) {
        LineWriter out;
        const auto firstKey = static_cast<int>(Limits::LanguageRowCount * part / Parts);
        const auto endKey = static_cast<int>(Limits::LanguageRowCount * (part + 1) / Parts);
        visitLanguageTexts(
            texts, [&out](const QString& text) { out.write(text); }, firstKey, endKey);
        parts[static_cast<std::size_t>(part)] = out.take();
    });
    QByteArray bytes;
    bytes.reserve(std::accumulate(parts.begin(), parts.end(), qsizetype(0),
        [](qsizetype size, const QByteArray& part) { return size + part.size(); }));
    for (const QByteArray& part : parts) {
        bytes += part;
    }
    return bytes;
}

QByteArray renderPagesVersion(const MenuDocument& document)
{
    LineWriter out;
    out.write(document.PagesVersion);
    return out.take();
}

std::optional<QByteArray> readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}

template<typename Store>
void ignoringFaults(Store&& store)
{
    try {
        store();
    } catch (const Fault&) {
        // A value that does not fit is passed over; the line after it is read as usual.
    }
}

void readPlus(LineReader& in, MenuDocument& document)
{
    int count = 0;
    while (!in.atEnd() && count < Limits::PluCapacity) {
        const QString line = in.next();
        if (isBlank(line)) {
            break;
        }
        document.Plus[count++] = PluLine::parse(line);
    }
    document.PluCount = count;
}

void storeNumber(std::int32_t& target, QStringView text)
{
    ignoringFaults([&] { target = NumberText::int32Value(text); });
}

// Reads the options that follow a list name, up to the blank line that ends the product or the next
// list name, which it returns. Only the last character of "minimo" and "maximo" lines counts.
QString readListOptions(LineReader& in, ModifierAssignment& assignment, int list)
{
    for (;;) {
        const QString line = in.next();
        if (line == u"obrigatorio") {
            assignment.Mandatory[list] = 1;
        } else if (line.startsWith(u"minimo")) {
            storeNumber(assignment.Minimum[list], QStringView(line).last(1));
        } else if (line.startsWith(u"maximo")) {
            storeNumber(assignment.Maximum[list], QStringView(line).last(1));
        } else if (line.startsWith(u"default")) {
            storeNumber(assignment.Default[list], QStringView(line).sliced(7));
        } else {
            return line;
        }
        if (in.atEnd()) {
            return {};
        }
    }
}

void startList(ModifierAssignment& assignment, const QString& name)
{
    const int list = assignment.ListCount++;
    assignment.ListName[list] = name;
    assignment.Mandatory[list] = 0;
    assignment.Minimum[list] = 0;
    assignment.Maximum[list] = 0;
    assignment.Default[list] = 0;
}

void readAssignments(LineReader& in, MenuDocument& document)
{
    int count = 0;
    while (!in.atEnd() && count < Limits::AssignmentCapacity) {
        ModifierAssignment& assignment = document.Assignments[count++];
        assignment.Key = in.next();
        assignment.ListCount = 0;
        QString line = in.next();
        // A list name on the file's last line is not taken.
        while (!isBlank(line) && !in.atEnd()) {
            if (assignment.ListCount < Limits::AttachedListCapacity) {
                startList(assignment, line);
                line = readListOptions(in, assignment, assignment.ListCount - 1);
            } else {
                ModifierAssignment dropped; // lists past the table's end are read and left out
                line = readListOptions(in, dropped, 0);
            }
        }
    }
    document.AssignmentCount = count;
}

// A definition's entries take the code and description of the product with their number; of the
// first product when the number is not in the catalogue.
void readDefinitions(LineReader& in, MenuDocument& document)
{
    const PluNumberIndex plus(document);
    int count = 0;
    while (!in.atEnd() && count < Limits::ModifierListCapacity) {
        const QString name = in.next();
        // End of file is tested after each read, so the file's last line is never taken.
        if (isBlank(name) || in.atEnd()) {
            break;
        }
        ModifierDefinition& definition = document.ModifierLists[count++];
        definition.Name = name;
        definition.EntryCount = 0;
        for (QString line = in.next(); !isBlank(line) && !in.atEnd(); line = in.next()) {
            if (definition.EntryCount == Limits::EntryCapacity) {
                continue;
            }
            ignoringFaults([&] {
                const PluRecord& plu = document.Plus[plus.FindPluIndex(NumberText::numericValue(line))];
                definition.EntryPlu[definition.EntryCount] = NumberText::int32Value(plu.Code);
                definition.EntryText[definition.EntryCount] = plu.Description;
                ++definition.EntryCount;
            });
        }
    }
    document.ModifierListCount = count;
}

void readButtons(LineReader& in, MenuDocument& document)
{
    for (int slot = 0; !in.atEnd() && slot < Limits::LineSlotCount;) {
        const QString line = in.next();
        if (!line.startsWith(u'-')) {
            storeNumber(document.LinePlu[slot++], line);
        }
    }
}

void readPrinter(LineReader& in, PrintSettings& settings)
{
    const auto read = [&in](auto& value) { in.read(value); };
    visitPrinterValues(settings, read);
    // The pages start from the default page colour; the colours the file gives them win.
    settings.resetPageColors();
    visitPageSides(settings, read);
}

void readLayout(LineReader& in, MenuDocument& document)
{
    visitLayout(
        document, [&in](auto& value) { in.read(value); }, [&in](std::int32_t&) { in.skip(); });
}

void readLanguages(LineReader& in, LanguageTable& texts)
{
    visitLanguageTexts(texts, [&in](QString& text) { in.read(text); });
}

// One component file: its suffix and how to make its bytes. Makers only read the document, so that
// several can run at once.
struct FileMaker
{
    QString suffix;
    std::function<QByteArray()> make;
};

// The component files in the order the format lists them.
QList<FileMaker> fileMakers(const MenuDocument& document, const PluNumberIndex& plus)
{
    QList<FileMaker> makers;
    makers.append({ DefinitionsSuffix, [&] { return renderDefinitions(document); } });
    makers.append({ AssignmentsSuffix, [&] { return renderAssignments(document); } });
    makers.append({ ButtonsSuffix, [&] { return renderButtons(document); } });
    for (int page = 1; page <= Limits::PageCount; ++page) {
        makers.append({ pageFileSuffix(u"_Page_Description_", page),
            [&, page] { return renderPageColumn(document, plus, page, &PluRecord::Description); } });
    }
    for (int page = 1; page <= Limits::PageCount; ++page) {
        makers.append({ pageFileSuffix(u"_Page_Price_", page),
            [&, page] { return renderPageColumn(document, plus, page, &PluRecord::Price); } });
    }
    makers.append({ PluSuffix, [&] { return renderPlus(document); } });
    makers.append({ PrinterSuffix, [&] { return renderPrinter(document.PrintSettings); } });
    makers.append({ LayoutSuffix, [&] { return renderLayout(document); } });
    makers.append({ LanguagesSuffix, [&] { return renderLanguages(document.LanguageTable); } });
    makers.append({ PagesVersionSuffix, [&] { return renderPagesVersion(document); } });
    return makers;
}

// Every component file's suffix, whatever the document holds.
QStringList componentSuffixes()
{
    QStringList suffixes { DefinitionsSuffix, AssignmentsSuffix, ButtonsSuffix, PluSuffix, PrinterSuffix,
        LayoutSuffix, LanguagesSuffix, PagesVersionSuffix };
    for (int page = 1; page <= Limits::PageCount; ++page) {
        suffixes += { pageFileSuffix(u"_Page_Description_", page), pageFileSuffix(u"_Page_Price_", page) };
    }
    return suffixes;
}

QString stagedPath(const QString& prefix, const QString& suffix)
{
    return prefix + suffix + StagedEnding;
}

// The hidden second name that keeps a replaced file until it is let go in the background.
QString replacedPath(const QString& path)
{
    const qsizetype nameStart = path.lastIndexOf(u'/') + 1;
    return path.first(nameStart) + u'.' + path.sliced(nameStart) + ReplacedEnding;
}

QString journalPath(const QString& prefix)
{
    return prefix + JournalEnding;
}

void discardStaged(const QString& prefix)
{
    for (const QString& suffix : componentSuffixes()) {
        QFile::remove(stagedPath(prefix, suffix));
    }
}

// The failures among the outcomes of work done side by side.
WriteFailures failuresAmong(const std::vector<std::optional<WriteFailure>>& outcomes)
{
    WriteFailures failures;
    for (const std::optional<WriteFailure>& outcome : outcomes) {
        if (outcome) {
            failures.append(*outcome);
        }
    }
    return failures;
}

// One after the other: the moves all change one folder, so side by side they only wait for each other.
// The journal goes only once every staged file is in place, so that the next load finishes a move that
// was cut off.
WriteFailures moveIntoPlace(const QString& prefix, const QStringList& suffixes)
{
    WriteFailures failures;
    QStringList replaced;
    for (const QString& suffix : suffixes) {
        const QString path = prefix + suffix;
        if (SafeWrite::addName(path, replacedPath(path))) {
            replaced.append(replacedPath(path));
        }
        if (std::optional<WriteFailure> failure = SafeWrite::moveOver(stagedPath(prefix, suffix), path)) {
            failures.append(*failure);
        }
    }
    if (failures.isEmpty()) {
        QFile::remove(journalPath(prefix));
    }
    SafeWrite::removeInBackground(replaced);
    return failures;
}

// A save cut off after its journal: some of its files may be in place already.
void finishMoves(const QString& prefix)
{
    QStringList staged = componentSuffixes();
    staged.removeIf([&](const QString& suffix) { return !QFile::exists(stagedPath(prefix, suffix)); });
    moveIntoPlace(prefix, staged);
}

// Makes every file and writes it aside as soon as it is made, so that the disk works while the
// processor makes the rest: staging leaves the files in use alone, so a fault in a maker costs nothing
// but the staged files, which go. Returns the failed writes by the component files they were meant for.
WriteFailures makeAndStageAll(const QString& prefix, const QList<FileMaker>& makers)
{
    const auto count = static_cast<std::size_t>(makers.size());
    std::vector<std::optional<WriteFailure>> staged(count);
    std::vector<std::exception_ptr> faults(count);
    runSideBySide(makers.size(), WriterThreads, [&](qsizetype i) {
        const auto at = static_cast<std::size_t>(i);
        try {
            staged[at] = SafeWrite::writeFile(stagedPath(prefix, makers[i].suffix), makers[i].make());
        } catch (...) {
            faults[at] = std::current_exception();
        }
    });
    for (const std::exception_ptr& fault : faults) {
        if (fault) {
            discardStaged(prefix);
            std::rethrow_exception(fault);
        }
    }
    WriteFailures failures = failuresAmong(staged);
    for (WriteFailure& failure : failures) {
        failure.path.chop(StagedEnding.size());
    }
    return failures;
}

} // namespace

namespace ComponentFiles {

QList<File> render(const MenuDocument& document)
{
    const PluNumberIndex plus(document);
    QList<File> files;
    for (const FileMaker& maker : fileMakers(document, plus)) {
        files.append({ maker.suffix, maker.make() });
    }
    return files;
}

WriteFailures save(const MenuDocument& document)
{
    const QString prefix = document.FilePrefix;
    const PluNumberIndex plus(document);
    QList<FileMaker> makers = fileMakers(document, plus);
    // The language file is by far the largest: it starts first.
    std::stable_partition(
        makers.begin(), makers.end(), [](const FileMaker& maker) { return maker.suffix == LanguagesSuffix; });
    QStringList suffixes;
    for (const FileMaker& maker : makers) {
        suffixes.append(maker.suffix);
    }
    // A save of this prefix cut off after its journal is finished first, so that its files cannot mix
    // with these; staged files without a journal are written over.
    if (QFile::exists(journalPath(prefix))) {
        finishMoves(prefix);
    }
    WriteFailures failures = makeAndStageAll(prefix, makers);
    if (failures.isEmpty()) {
        std::optional<WriteFailure> journal = SafeWrite::writeFile(journalPath(prefix), JournalText);
        if (!journal) {
            return moveIntoPlace(prefix, suffixes);
        }
        failures.append(*journal);
    }
    discardStaged(prefix);
    return failures;
}

void recover(const QString& prefix)
{
    // What cannot be moved now stays staged under its journal for the next try; the load reads on.
    if (QFile::exists(journalPath(prefix))) {
        finishMoves(prefix);
    } else {
        discardStaged(prefix);
    }
    // Replaced files a stopped program did not get to let go.
    for (const QString& suffix : componentSuffixes()) {
        QFile::remove(replacedPath(prefix + suffix));
    }
}

int load(MenuDocument& document)
{
    const QString prefix = document.FilePrefix;
    recover(prefix);
    return load(document, [&prefix](const QString& suffix) { return readFile(prefix + suffix); });
}

int load(MenuDocument& document, const FileSource& source)
{
    int found = 0;
    const auto readIfPresent = [&](const QString& suffix, const auto& read) {
        if (std::optional<QByteArray> bytes = source(suffix)) {
            ++found;
            LineReader in(std::move(*bytes));
            read(in);
            return true;
        }
        return false;
    };
    // The modifier lists look their products up in the catalogue, so the catalogue comes first.
    readIfPresent(PluSuffix, [&](LineReader& in) { readPlus(in, document); });
    readIfPresent(AssignmentsSuffix, [&](LineReader& in) { readAssignments(in, document); });
    readIfPresent(DefinitionsSuffix, [&](LineReader& in) { readDefinitions(in, document); });
    readIfPresent(ButtonsSuffix, [&](LineReader& in) { readButtons(in, document); });
    if (!readIfPresent(PrinterSuffix, [&](LineReader& in) { readPrinter(in, document.PrintSettings); })) {
        document.PrintSettings.setDefaults();
    }
    readIfPresent(LayoutSuffix, [&](LineReader& in) { readLayout(in, document); });
    document.LanguageTable.setDefaultLanguageNames();
    readIfPresent(LanguagesSuffix, [&](LineReader& in) { readLanguages(in, document.LanguageTable); });
    document.PagesVersion = QStringLiteral("0");
    readIfPresent(PagesVersionSuffix, [&](LineReader& in) { in.read(document.PagesVersion); });
    return found;
}

} // namespace ComponentFiles
