#include "designer/PageView.h"
#include "designer/PictureBox.h"
#include "document/MenuDocument.h"
#include "support/DocumentDiff.h"
#include "support/ModalDialogDriver.h"
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

// Whatever changed on `page` is taken over from `after`; the rest of the two documents must be equal.
QString differenceOutsidePage(const MenuDocument& before, const MenuDocument& after, int page)
{
    auto expected = std::make_unique<MenuDocument>(before);
    for (int r = 0; r < Limits::RowsPerPage; ++r) {
        const int slot = lineSlot(page, r);
        expected->LinePlu[slot] = after.LinePlu[slot];
        expected->LineLayouts[slot] = after.LineLayouts[slot];
        for (const int key : { TextKey::LineTextBase + slot, TextKey::GroupTitleBase + slot }) {
            for (int language = 1; language <= Limits::LanguageCount; ++language) {
                expected->LanguageTable.at(key, language) = after.LanguageTable.at(key, language);
            }
        }
    }
    PrintSettings& print = expected->PrintSettings;
    print.PageColorA[page] = after.PrintSettings.PageColorA[page];
    print.PageColorB[page] = after.PrintSettings.PageColorB[page];
    print.PageValueA[page] = after.PrintSettings.PageValueA[page];
    print.PageValueB[page] = after.PrintSettings.PageValueB[page];
    return firstDifference(*expected, after);
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
    void moveUpPullsTheRowsBelowUpOverTheRow();
    void moveDownPushesTheRowsDownAndLeavesTheBackText();
    void deleteLeavesAnEmptyProductRowAndEscapeLeavesAll();
    void clicksOnASideAskForTheBackgroundDialog();
    void expandGivesTheFrontRowsTheRoomAndTakesItBack();

private:
    void draw(int page);
    QStringList shownTexts() const;
    QString shown(const char16_t* name, int row) const;
    void click(const QString& button);
    // Opens the row dialog of a row and clicks one of its buttons; a null button presses Escape.
    void useRowDialog(int row, const char* button);
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

void PageCommandsTest::useRowDialog(int row, const char* button)
{
    ModalDialogDriver driver;
    QString title;
    driver.onNextDialog([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), u"Form9"_s);
        title = dialog.windowTitle();
        if (button) {
            dialog.findChild<QPushButton*>(QLatin1StringView(button))->click();
        } else {
            QTest::keyClick(&dialog, Qt::Key_Escape);
        }
    });
    click(u"Remove_"_s + QString::number(row));
    QVERIFY(driver.acted());
    QVERIFY2(!driver.leftOpen(), "the button did not close the dialog");
    QCOMPARE(m_view->selectedRow(), row);
    QCOMPARE(title, QStringLiteral("Page %1, row %2").arg(m_view->currentPage()).arg(row + 1));
    // The dialog is gone, not hidden.
    QVERIFY(m_view->findChildren<QDialog*>().isEmpty());
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
    draw(12);
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

void PageCommandsTest::moveUpPullsTheRowsBelowUpOverTheRow()
{
    draw(FullPage);
    const auto before = std::make_unique<MenuDocument>(*m_document);
    useRowDialog(5, "Command2");

    for (int r = 0; r < 5; ++r) {
        QCOMPARE(shown(u"Linhas", r), product(10 + r));
    }
    for (int r = 5; r <= 22; ++r) {
        QCOMPARE(shown(u"Linhas", r), product(11 + r));
        QCOMPARE(shown(u"Price", r), QString::number(11 + r) + u".50"_s);
        QCOMPARE(shown(u"LinhasVerso", r), u"Group "_s + QString::number(r + 1));
    }
    QCOMPARE(shown(u"Linhas", 23), QString());
    QCOMPARE(shown(u"Price", 23), QString());
    const LineLayout& last = m_document->LineLayouts[lineSlot(FullPage, 23)];
    QCOMPARE(m_document->LinePlu[lineSlot(FullPage, 23)], 0);
    QCOMPARE(last.kind, std::int32_t(ProductLine));
    QCOMPARE(last.backText, u"Group 23"_s); // kept, now on rows 22 and 23
    QCOMPARE(differenceOutsidePage(*before, *m_document, FullPage), QString());
}

void PageCommandsTest::moveDownPushesTheRowsDownAndLeavesTheBackText()
{
    draw(FullPage);
    const auto before = std::make_unique<MenuDocument>(*m_document);
    useRowDialog(5, "Command3");

    for (int r = 0; r < 5; ++r) {
        QCOMPARE(shown(u"Linhas", r), product(10 + r));
    }
    QCOMPARE(shown(u"Linhas", 5), QString());
    QCOMPARE(shown(u"Price", 5), QString());
    for (int r = 6; r <= 23; ++r) {
        QCOMPARE(shown(u"Linhas", r), product(9 + r));
    }
    // The former row 23 is gone from the page.
    for (int r = 0; r < Limits::RowsPerPage; ++r) {
        QVERIFY(m_document->LinePlu[lineSlot(FullPage, r)] != 133);
    }
    QCOMPARE(shown(u"LinhasVerso", 5), u"Group 5"_s);
    QCOMPARE(shown(u"LinhasVerso", 6), u"Group 5"_s);
    QCOMPARE(shown(u"LinhasVerso", 7), u"Group 6"_s);
    QCOMPARE(differenceOutsidePage(*before, *m_document, FullPage), QString());
}

void PageCommandsTest::deleteLeavesAnEmptyProductRowAndEscapeLeavesAll()
{
    MenuDocument& d = *m_document;
    const int title = lineSlot(3, 9);
    d.LineLayouts[title].kind = TitleLine;
    d.LineLayouts[title].text = u"Sobremesas"_s;
    d.LineLayouts[title].backColor = u"128"_s;
    d.LinePlu[title] = 120; // a title shows its own text beside the price of its product
    draw(3);
    QCOMPARE(shown(u"Linhas", 9), u"Sobremesas"_s);
    QCOMPARE(shown(u"Price", 9), u"20.50"_s);

    const auto before = std::make_unique<MenuDocument>(d);
    useRowDialog(9, nullptr);
    QCOMPARE(firstDifference(*before, d), QString());
    QCOMPARE(shown(u"Linhas", 9), u"Sobremesas"_s);

    useRowDialog(9, "Command1");
    QCOMPARE(shown(u"Linhas", 9), QString());
    QCOMPARE(shown(u"Price", 9), QString());
    LineLayout expected = before->LineLayouts[title];
    expected.kind = ProductLine;
    QCOMPARE(d.LineLayouts[title], expected);
    QCOMPARE(d.LinePlu[title], 0);
    QCOMPARE(differenceOutsidePage(*before, d, 3), QString());

    ModalDialogDriver driver;
    QStringList captions;
    driver.onNextDialog([&](QDialog& dialog) {
        for (const char* name : { "Command1", "Command2", "Command3" }) {
            captions.append(dialog.findChild<QPushButton*>(QLatin1StringView(name))->text());
        }
        dialog.reject();
    });
    click(u"Remove_0"_s);
    QCOMPARE(captions, QStringList({ u"DELETE"_s, u"MOVE UP"_s, u"MOVE DOWN"_s }));
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
