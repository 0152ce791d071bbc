#include "designer/PageView.h"
#include "designer/PictureBox.h"
#include "document/MenuDocument.h"
#include "support/DocumentDiff.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int FullPage = 7;

QString product(int index)
{
    return u"Product "_s + QString::number(index);
}

} // namespace

class PageCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void pagingStopsAtTheFirstAndLastPageAndRedrawsAnyway();
    void insertPageEmptiesTheCurrentPageAndMovesItOn();
    void deletePageShowsTheNextPageInItsPlace();
    void aFaultInAPageCommandIsShownAndChangesNothing();
    void clicksOnASideAskForTheBackgroundDialog();
    void expandGivesTheFrontRowsTheRoomAndTakesItBack();

private:
    void draw(int page);
    QStringList shownTexts() const;
    QString shown(const char16_t* name, int row) const;
    void click(const QString& button);
    template<typename Control = QWidget>
    Control* find(const QString& name) const;

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    std::unique_ptr<PageView> m_view;
};

void PageCommandsTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    MenuDocument& d = *m_document;
    d.ProjectFolder = m_root->path() + u"/project/"_s;
    QVERIFY(QDir().mkpath(d.ProjectFolder));
    for (int k = 0; k < 60; ++k) {
        SampleDocuments::addPlu(d, QString::number(100 + k), product(k), QString::number(k) + u".50"_s);
    }
    // Page 7 is full of products, 10 to 33, each row with a group title on its back.
    for (int r = 0; r < Limits::RowsPerPage; ++r) {
        const int slot = lineSlot(FullPage, r);
        d.LinePlu[slot] = 110 + r;
        d.LineLayouts[slot].kind = ProductLine;
        d.LineLayouts[slot].backText = u"Group "_s + QString::number(r);
    }
    m_prompts = ScriptedPrompts();
    m_view = std::make_unique<PageView>(d, m_prompts);
}

void PageCommandsTest::cleanup()
{
    m_view.reset();
    m_document.reset();
    m_root.reset();
}

void PageCommandsTest::draw(int page)
{
    m_view->setCurrentPage(page);
    m_view->Update_Page();
}

template<typename Control>
Control* PageCommandsTest::find(const QString& name) const
{
    auto* found = m_view->findChild<Control*>(name);
    if (!found) {
        qFatal("no control %s", qPrintable(name));
    }
    return found;
}

QString PageCommandsTest::shown(const char16_t* name, int row) const
{
    return find<QLineEdit>(QString::fromUtf16(name) + u'_' + QString::number(row))->text();
}

QStringList PageCommandsTest::shownTexts() const
{
    QStringList texts;
    for (int r = 0; r < PageView::Rows; ++r) {
        texts.append(shown(u"Linhas", r));
    }
    return texts;
}

void PageCommandsTest::click(const QString& button)
{
    find<QAbstractButton>(button)->click();
}

void PageCommandsTest::pagingStopsAtTheFirstAndLastPageAndRedrawsAnyway()
{
    QCOMPARE(find<QPushButton>(u"Command14"_s)->text(), u"Previous Page"_s);
    QCOMPARE(find<QPushButton>(u"Command15"_s)->text(), u"Next Page"_s);
    MenuDocument& d = *m_document;
    draw(1);
    // Changes since the last redraw show only when the page is drawn again.
    d.LinePlu[lineSlot(1, 0)] = 101;
    d.LineLayouts[lineSlot(1, 0)].kind = ProductLine;
    click(u"Command14"_s);
    QCOMPARE(find<QLabel>(u"Page"_s)->text(), u"1"_s);
    QCOMPARE(shown(u"Linhas", 0), product(1));

    draw(14);
    d.LinePlu[lineSlot(14, 23)] = 102;
    d.LineLayouts[lineSlot(14, 23)].kind = ProductLine;
    click(u"Command15"_s);
    QCOMPARE(find<QLabel>(u"Page"_s)->text(), u"14"_s);
    QCOMPARE(shown(u"Linhas", 23), product(2));

    click(u"Command14"_s);
    QCOMPARE(m_view->currentPage(), 13);
    QCOMPARE(shown(u"Linhas", 23), QString());
    draw(6);
    click(u"Command15"_s);
    QCOMPARE(find<QLabel>(u"Page"_s)->text(), u"7"_s);
    QCOMPARE(shown(u"Linhas", 4), product(14));
    QCOMPARE(shown(u"Price", 4), u"14.50"_s);
    QVERIFY(m_prompts.messages.isEmpty());
}

void PageCommandsTest::insertPageEmptiesTheCurrentPageAndMovesItOn()
{
    MenuDocument& d = *m_document;
    d.LinePlu[lineSlot(14, 0)] = 150;
    d.LinePlu[lineSlot(14, 1)] = 151;
    d.PrintSettings.PageColorA[7] = u"255"_s;
    draw(7);
    const QStringList page7 = shownTexts();

    click(u"InsertPage"_s);
    QCOMPARE(find<QLabel>(u"Page"_s)->text(), u"7"_s);
    QCOMPARE(shownTexts(), QStringList(PageView::Rows));
    QCOMPARE(shown(u"LinhasVerso", 3), QString());
    // The empty page is drawn in the colour of a side that was never coloured.
    QCOMPARE(d.PrintSettings.PageColorA[7], u"14745599"_s);
    QCOMPARE(find<PictureBox>(u"Picture1"_s)->color(), QColor(255, 255, 224));

    click(u"Command15"_s);
    QCOMPARE(shownTexts(), page7);
    QCOMPARE(shown(u"LinhasVerso", 3), u"Group 3"_s);
    QCOMPARE(find<PictureBox>(u"Picture1"_s)->color(), QColor(255, 0, 0));

    // Page 14 had products; after the insert only its first line is left, in the spare slot.
    QCOMPARE(d.LinePlu[Limits::LineSlotCount - 1], 150);
    for (int r = 0; r < Limits::RowsPerPage; ++r) {
        QCOMPARE(d.LinePlu[lineSlot(14, r)], 0);
    }

    // On page 14 itself the insert empties the page.
    draw(14);
    d.LinePlu[lineSlot(14, 5)] = 105;
    d.LineLayouts[lineSlot(14, 5)].kind = ProductLine;
    m_view->Update_Page();
    QCOMPARE(shown(u"Linhas", 5), product(5));
    click(u"InsertPage"_s);
    QCOMPARE(m_view->currentPage(), 14);
    QCOMPARE(shownTexts(), QStringList(PageView::Rows));
    QVERIFY(m_prompts.messages.isEmpty());
}

void PageCommandsTest::deletePageShowsTheNextPageInItsPlace()
{
    MenuDocument& d = *m_document;
    draw(7);
    const QStringList page7 = shownTexts();
    d.LinePlu[lineSlot(14, 2)] = 140;
    d.LineLayouts[lineSlot(14, 2)].kind = ProductLine;

    draw(6);
    click(u"DeletePage"_s);
    QCOMPARE(find<QLabel>(u"Page"_s)->text(), u"6"_s);
    QCOMPARE(shownTexts(), page7);
    click(u"Command15"_s);
    click(u"Command15"_s);
    click(u"Command15"_s);
    click(u"Command15"_s);
    click(u"Command15"_s);
    click(u"Command15"_s);
    QCOMPARE(m_view->currentPage(), 12);
    click(u"Command15"_s); // page 13 now holds what was on page 14
    QCOMPARE(shown(u"Linhas", 2), product(40));

    // Deleting the last page leaves an empty page 14 on the screen.
    click(u"Command15"_s);
    d.LinePlu[lineSlot(14, 9)] = 109;
    d.LineLayouts[lineSlot(14, 9)].kind = ProductLine;
    m_view->Update_Page();
    QCOMPARE(shown(u"Linhas", 9), product(9));
    click(u"DeletePage"_s);
    QCOMPARE(find<QLabel>(u"Page"_s)->text(), u"14"_s);
    QCOMPARE(shownTexts(), QStringList(PageView::Rows));
    QVERIFY(m_prompts.messages.isEmpty());
}

void PageCommandsTest::aFaultInAPageCommandIsShownAndChangesNothing()
{
    draw(7);
    const auto before = std::make_unique<MenuDocument>(*m_document);
    m_view->setCurrentPage(15); // a page label no command would write
    click(u"InsertPage"_s);
    click(u"DeletePage"_s);
    QCOMPARE(m_prompts.messages, QStringList(2, u"Subscript out of range"_s));
    QCOMPARE(firstDifference(*before, *m_document), QString());

    // The view goes on working.
    draw(7);
    click(u"Command14"_s);
    QCOMPARE(m_view->currentPage(), 6);
    QCOMPARE(m_prompts.messages.size(), 2);
}

void PageCommandsTest::clicksOnASideAskForTheBackgroundDialog()
{
    draw(2);
    QSignalSpy requests(m_view.get(), &PageView::backgroundDialogRequested);
    // Row boxes and group pictures take their own clicks.
    for (const QString& name : { u"Linhas_3"_s, u"Price_0"_s, u"LinhasVerso_3"_s, u"Imagem_3"_s }) {
        QTest::mouseClick(find(name), Qt::LeftButton);
    }
    QCOMPARE(requests.count(), 0);

    QTest::mouseClick(find(u"Picture2"_s), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseClick(find(u"Picture1"_s), Qt::LeftButton, {}, QPoint(5, 5));
    // Between two rows the sheet itself shows.
    const QRect row = find(u"Linhas_4"_s)->geometry();
    QTest::mouseClick(find(u"Picture1"_s), Qt::LeftButton, {}, QPoint(row.left() + 5, row.bottom() + 1));
    QCOMPARE(requests.count(), 3);
    QCOMPARE(requests.at(0).at(0).toInt(), 2);
    QCOMPARE(requests.at(1).at(0).toInt(), 1);
    QCOMPARE(requests.at(2).at(0).toInt(), 1);
}

void PageCommandsTest::expandGivesTheFrontRowsTheRoomAndTakesItBack()
{
    QSignalSpy modes(m_view.get(), &PageView::workModeChanged);
    const auto geometry = [&](const QString& name) { return find(name)->geometry(); };
    const QStringList names { u"Linhas_0"_s, u"Price_0"_s, u"Command12_0"_s, u"Remove_0"_s, u"Linhas_23"_s,
        u"Price_23"_s, u"Command12_23"_s, u"Picture1"_s, u"Picture2"_s, u"Command15"_s, u"DeletePage"_s,
        u"Command14"_s, u"InsertPage"_s, u"LinhasVerso_0"_s, u"Magnet"_s };
    QList<QRect> before;
    for (const QString& name : names) {
        before.append(geometry(name));
    }
    const QSize hint = m_view->sizeHint();
    auto* expand = find<QPushButton>(u"Expand"_s);
    QCOMPARE(expand->text(), u"Design the Menu"_s);
    QVERIFY(!m_view->designing());

    expand->click();
    QCOMPARE(expand->text(), u"Configure the Modifiers"_s);
    QVERIFY(m_view->designing());
    // Twips of the first layout: rows 2300 wider, prices 2300 on and 700 wider, the rest 3000 on.
    const QList<QRect> designed = {
        before[0].adjusted(0, 0, 153, 0),
        before[1].adjusted(153, 0, 200, 0),
        before[2].translated(200, 0),
        before[3].translated(200, 0),
        before[4].adjusted(0, 0, 153, 0),
        before[5].adjusted(153, 0, 200, 0),
        before[6].translated(200, 0),
        before[7].adjusted(0, 0, 200, 0),
        before[8].translated(200, 0),
        before[9].translated(200, 0),
        before[10].translated(200, 0),
        before[11],
        before[12],
        before[13], // inside the back side, which moves as a whole
        before[14].translated(200, 0),
    };
    for (qsizetype i = 0; i < names.size(); ++i) {
        QVERIFY2(geometry(names[i]) == designed[i], qPrintable(names[i]));
    }
    QCOMPARE(m_view->sizeHint(), hint + QSize(200, 0));
    QCOMPARE(m_view->size(), m_view->sizeHint());
    // The price still ends where the front's rows end.
    QCOMPARE(geometry(u"Price_0"_s).right() + 1 + 10, geometry(u"Picture1"_s).width());

    expand->click();
    QCOMPARE(expand->text(), u"Design the Menu"_s);
    for (qsizetype i = 0; i < names.size(); ++i) {
        QVERIFY2(geometry(names[i]) == before[i], qPrintable(names[i]));
    }
    QCOMPARE(m_view->sizeHint(), hint);
    QCOMPARE(modes.count(), 2);
    QCOMPARE(modes.at(0).at(0).toBool(), true);
    QCOMPARE(modes.at(1).at(0).toBool(), false);
}

QTEST_MAIN(PageCommandsTest)
#include "PageCommandsTest.moc"
