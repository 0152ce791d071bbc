#include "designer/PageView.h"

#include "designer/PictureBox.h"
#include "document/MenuDocument.h"
#include "support/DocumentDiff.h"
#include "support/ModalDialogDriver.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

namespace {

QString rowName(const char16_t* name, int row)
{
    return QString::fromUtf16(name) + u'_' + QString::number(row);
}

void savePicture(const QString& path, QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    QVERIFY(picture.save(path, "PNG"));
}

} // namespace

class PageViewTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsTakeTheTextColoursAndSizeOfTheirKind();
    void productRowsShowTheLastProductWithTheirNumber();
    void magnetLetters();
    void groupPicturesReachOverTheRowsTheyCover();
    void picturesAreFoundInTheProjectFolderAndTheirPathsKept();
    void anUncolouredPageSideIsStoredAsPaleYellow();
    void pageAndRowButtonsReachThePageOperations();
    void sideClicksAndExpandReachTheMainWindow();

private:
    void draw(int page);
    QString shown(const char16_t* name, int row) const { return shownText(*m_view, rowName(name, row)); }
    // The row's background and text colours, its font size and its tag, as one comparable text.
    QString look(const char16_t* name, int row) const;
    QSize pictureSize(const QString& name) const;

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    std::unique_ptr<PageView> m_view;
};

void PageViewTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    m_document->ProjectFolder = m_root->path() + u"/project/"_s;
    QVERIFY(QDir().mkpath(m_document->ProjectFolder));
    m_prompts = ScriptedPrompts();
    m_view = std::make_unique<PageView>(*m_document, m_prompts);
}

void PageViewTest::cleanup()
{
    m_view.reset();
    m_document.reset();
    m_root.reset();
}

void PageViewTest::draw(int page)
{
    m_view->setCurrentPage(page);
    m_view->Update_Page();
}

QString PageViewTest::look(const char16_t* name, int row) const
{
    QWidget* widget = nullptr;
    if (!find(*m_view, rowName(name, row), widget)) {
        return u"missing"_s;
    }
    const QPalette& colors = widget->palette();
    return colors.color(QPalette::Base).name() + u' ' + colors.color(QPalette::Text).name() + u' '
        + QString::number(widget->font().pointSize()) + u' ' + widget->property("tag").toString();
}

QSize PageViewTest::pictureSize(const QString& name) const
{
    PictureBox* picture = nullptr;
    return find(*m_view, name, picture) ? picture->picture().size() : QSize(-1, -1);
}

void PageViewTest::rowsTakeTheTextColoursAndSizeOfTheirKind()
{
    MenuDocument& d = *m_document;
    d.PrintSettings.ColorBack[0] = u"16711680"_s; // blue
    d.PrintSettings.ColorFore[0] = u"65535"_s; // yellow
    d.PrintSettings.FontName = u"DejaVu Serif"_s;
    addPlu(d, u"1001"_s, u"Espresso"_s, u"2.50"_s);
    const auto line = [&](int row, std::int32_t kind, const QString& text) -> LineLayout& {
        LineLayout& layout = d.LineLayouts[lineSlot(2, row)];
        layout.kind = kind;
        layout.text = text;
        return layout;
    };
    d.LinePlu[lineSlot(2, 0)] = 1001;
    LineLayout& product = line(0, ProductLine, u"not shown on a product row"_s);
    product.backColor = u"255"_s;
    product.foreColor = u"16777215"_s;
    d.LinePlu[lineSlot(2, 1)] = 1001; // a title shows its own text beside the product's price
    line(1, TitleLine, u"Bebidas"_s);
    line(2, NoteLine, u"Com IVA"_s).foreColor = u"128"_s;
    LineLayout& group = line(3, EmptyLine, QString());
    group.backText = u"Sobremesas"_s;
    group.backBackColor = u"8421504"_s;
    group.backForeColor = u"65535"_s;

    draw(2);
    QCOMPARE(shownText(*m_view, u"Page"_s), u"2"_s);
    QCOMPARE(shown(u"Linhas", 0), u"Espresso"_s);
    QCOMPARE(look(u"Linhas", 0), u"#ff0000 #ffffff 13 0"_s);
    QCOMPARE(shown(u"Linhas", 1), u"Bebidas"_s);
    QCOMPARE(shown(u"Price", 1), u"2.50"_s);
    QCOMPARE(look(u"Linhas", 1), u"#000000 #ffffff 14 0"_s);
    QCOMPARE(shown(u"Linhas", 2), u"Com IVA"_s);
    QCOMPARE(look(u"Price", 2), u"#efefef #800000 9 "_s);
    QCOMPARE(shown(u"LinhasVerso", 3), u"Sobremesas"_s);
    QCOMPARE(look(u"LinhasVerso", 3), u"#808080 #ffff00 9 "_s);
    // An empty row takes the defaults of text lines.
    QCOMPARE(shown(u"Linhas", 5), QString());
    QCOMPARE(look(u"Linhas", 5), u"#0000ff #ffff00 13 "_s);
    QCOMPARE(look(u"LinhasVerso", 5), u"#ffffff #000000 9 "_s);
    QWidget* price = nullptr;
    QVERIFY(find(*m_view, u"Price_5"_s, price));
    QCOMPARE(price->font().family(), u"DejaVu Serif"_s);

    // An unknown kind leaves the front row looking as the last page left it; the back row is reset.
    d.LineLayouts[lineSlot(3, 1)].kind = 7;
    d.LineLayouts[lineSlot(3, 1)].text = u"never shown"_s;
    draw(3);
    QCOMPARE(shown(u"Linhas", 1), QString());
    QCOMPARE(look(u"Linhas", 1), u"#000000 #ffffff 14 "_s);
    QCOMPARE(shown(u"LinhasVerso", 3), QString());
    QCOMPARE(look(u"LinhasVerso", 3), u"#ffffff #000000 9 "_s);
}

void PageViewTest::productRowsShowTheLastProductWithTheirNumber()
{
    MenuDocument& d = *m_document;
    addPlu(d, u"1001"_s, u"Espresso"_s, u"2.50"_s);
    addPlu(d, u"0"_s, u"Apagado"_s, u"9.99"_s);
    addPlu(d, u" 1001"_s, u"Espresso duplo"_s, u"3.10"_s);
    addPlu(d, u"2002"_s, u"Chá"_s, u"1.80"_s);
    const int bound[] = { 1001, 2002, 3003 };
    for (int r = 0; r < 3; ++r) {
        d.LinePlu[lineSlot(14, r)] = bound[r];
        d.LineLayouts[lineSlot(14, r)].kind = ProductLine;
    }
    draw(14);
    QCOMPARE(shown(u"Linhas", 0) + shown(u"Price", 0), u"Espresso duplo3.10"_s);
    QCOMPARE(look(u"Linhas", 0), u"#ff8000 #000000 13 2"_s);
    QCOMPARE(shown(u"Linhas", 1) + shown(u"Price", 1), u"Chá1.80"_s);
    QCOMPARE(shown(u"Linhas", 2) + shown(u"Price", 2), QString());
    QCOMPARE(look(u"Linhas", 2), u"#ff8000 #000000 13 "_s);

    // A product deleted since the last redraw leaves nothing of it on the row.
    d.Plus[3].Code = u"0"_s;
    m_view->Update_Page();
    QCOMPARE(shown(u"Linhas", 1) + shown(u"Price", 1), QString());
    QVERIFY(look(u"Linhas", 1).endsWith(u" 13 "_s)); // no tag left
}

void PageViewTest::magnetLetters()
{
    MenuDocument& d = *m_document;
    const auto letters = [&](const QString& version, int first, int last) {
        d.PagesVersion = version;
        QString shown;
        for (int page = first; page <= last; ++page) {
            draw(page);
            shown += u'[' + shownText(*m_view, u"Magnet"_s) + u']';
        }
        return shown;
    };
    d.LinePlu[lineSlot(3, 23)] = 5;
    d.LinePlu[lineSlot(13, 0)] = 5; // pages 13 and 14 have no letter and do not count
    QCOMPARE(letters(u"0"_s, 1, 5), u"[J][K][L][ ][]"_s);
    QCOMPARE(letters(u"0"_s, 13, 14), u"[][]"_s);
    QCOMPARE(letters(u"1"_s, 1, 14), u"[D][E][F][G][H][I][J][K][L][A][B][C][][]"_s);
    d.LinePlu[lineSlot(3, 23)] = 0;
    QCOMPARE(letters(u"0"_s, 1, 12), u"[ ]"_s + u"[]"_s.repeated(11));
}

void PageViewTest::groupPicturesReachOverTheRowsTheyCover()
{
    MenuDocument& d = *m_document;
    savePicture(d.ProjectFolder + u"doces.png"_s, QSize(30, 20));
    const auto group = [&](int row, int coveredRows, const QString& path) {
        d.LineLayouts[lineSlot(1, row)].pictureRole = GroupStart;
        d.LineLayouts[lineSlot(1, row)].picturePath = path;
        for (int k = 1; k <= coveredRows; ++k) {
            d.LineLayouts[lineSlot(1, row + k)].pictureRole = CoveredByPicture;
        }
    };
    group(0, 0, u"doces.png"_s);
    group(2, 2, u"doces.png"_s);
    group(6, 1, u"  "_s); // no picture: nothing stretches, the covered row still hides
    group(20, 3, u"doces.png"_s);
    d.LineLayouts[lineSlot(2, 0)].pictureRole = CoveredByPicture; // the next page is not reached
    // Height, picture size and visibility of each row's picture.
    const auto imagem = [&](int r) {
        PictureBox* box = nullptr;
        if (!find(*m_view, rowName(u"Imagem", r), box)) {
            return u"missing"_s;
        }
        const QSize size = box->picture().size();
        return u"%1 %2x%3 %4"_s.arg(box->height())
            .arg(size.width())
            .arg(size.height())
            .arg(box->isVisibleTo(m_view.get()) ? u"shown"_s : u"hidden"_s);
    };

    draw(1);
    QCOMPARE(imagem(0), u"25 30x20 shown"_s);
    QCOMPARE(imagem(2), u"75 30x20 shown"_s);
    QCOMPARE(imagem(20), u"100 30x20 shown"_s);
    QCOMPARE(imagem(6), u"25 0x0 shown"_s);
    // The printed height goes with the picture.
    QStringList printedHeights;
    for (const int row : { 0, 2, 20, 6 }) {
        PictureBox* box = nullptr;
        QVERIFY(find(*m_view, rowName(u"Imagem", row), box));
        printedHeights.append(box->property("tag").toString());
    }
    QCOMPARE(printedHeights, QStringList({ u"6.88"_s, u"20.64"_s, u"27.52"_s, QString() }));
    for (int r = 0; r < PageView::Rows; ++r) {
        const bool covered = (r >= 3 && r <= 4) || r == 7 || r >= 21;
        QCOMPARE(imagem(r).endsWith(u"hidden"_s), covered);
    }
    draw(3);
    for (int r = 0; r < PageView::Rows; ++r) {
        QCOMPARE(imagem(r), u"25 0x0 shown"_s);
    }
}

void PageViewTest::picturesAreFoundInTheProjectFolderAndTheirPathsKept()
{
    MenuDocument& d = *m_document;
    PrintSettings& print = d.PrintSettings;
    const QString folder = d.ProjectFolder;
    const QString elsewhere = m_root->path() + u"/back.png"_s;
    savePicture(folder + u"front.png"_s, QSize(40, 30));
    savePicture(folder + u"back.png"_s, QSize(41, 30));
    savePicture(folder + u"group.png"_s, QSize(42, 30));
    savePicture(elsewhere, QSize(43, 30));
    writeBytes(folder + u"broken.png"_s, QByteArrayLiteral("not a picture"));
    const QString groups[] = { u"/no/such/folder/group.png"_s, u"broken.png"_s, u"missing.png"_s, elsewhere };
    for (int r = 0; r < 4; ++r) {
        d.LineLayouts[lineSlot(4, r)].pictureRole = GroupStart;
        d.LineLayouts[lineSlot(4, r)].picturePath = groups[r];
    }
    print.PageValueA[4] = u"front.png"_s;
    print.PageValueB[4] = u"C:\\menus\\old\\back.png"_s; // written on Windows

    draw(4);
    QCOMPARE(print.PageValueA[4], folder + u"front.png"_s);
    QCOMPARE(pictureSize(u"Picture1"_s), QSize(40, 30));
    QCOMPARE(print.PageValueB[4], folder + u"back.png"_s);
    QCOMPARE(pictureSize(u"Picture2"_s), QSize(41, 30));
    const QString stored[]
        = { folder + u"group.png"_s, folder + u"broken.png"_s, folder + u"missing.png"_s, elsewhere };
    const QSize sizes[] = { QSize(42, 30), QSize(0, 0), QSize(0, 0), QSize(43, 30) };
    for (int r = 0; r < 4; ++r) {
        QCOMPARE(d.LineLayouts[lineSlot(4, r)].picturePath, stored[r]);
        QCOMPARE(pictureSize(rowName(u"Imagem", r)), sizes[r]);
    }

    // A picture replaced on disk is read again.
    savePicture(elsewhere, QSize(44, 31));
    QFile replaced(elsewhere);
    QVERIFY(replaced.open(QIODevice::ReadWrite));
    QVERIFY(
        replaced.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    replaced.close();
    m_view->Update_Page();
    QCOMPARE(pictureSize(u"Imagem_3"_s), QSize(44, 31));
}

void PageViewTest::anUncolouredPageSideIsStoredAsPaleYellow()
{
    PrintSettings& print = m_document->PrintSettings;
    print.PageColorA[2].clear();
    print.PageColorB[2] = u"255"_s;
    print.PageColorA[3].clear();
    draw(2);
    QCOMPARE(print.PageColorA[2], u"14745599"_s);
    QCOMPARE(print.PageColorB[2], u"255"_s);
    QCOMPARE(print.PageColorA[3], QString());
    PictureBox *front = nullptr, *back = nullptr;
    QVERIFY(find(*m_view, u"Picture1"_s, front));
    QVERIFY(find(*m_view, u"Picture2"_s, back));
    QCOMPARE(front->color(), QColor(255, 255, 224));
    QCOMPARE(back->color(), QColor(255, 0, 0));
    draw(1);
    QCOMPARE(front->color(), QColor(0xEF, 0xEF, 0xEF));
}

// Which rows move where is the page operations' logic tests'; here each button is seen to reach them.
void PageViewTest::pageAndRowButtonsReachThePageOperations()
{
    MenuDocument& d = *m_document;
    for (int k = 0; k < 3; ++k) {
        addPlu(d, QString::number(100 + k), u"Product "_s + QString::number(k), u"1.50"_s);
        d.LinePlu[lineSlot(7, k)] = 100 + k;
        d.LineLayouts[lineSlot(7, k)].kind = ProductLine;
    }
    draw(1);
    QVERIFY(trigger(*m_view, u"Command14"_s)); // no page before the first
    QCOMPARE(m_view->currentPage(), 1);
    draw(14);
    d.LinePlu[lineSlot(14, 0)] = 100; // shown only when the page is drawn again, here by the button
    d.LineLayouts[lineSlot(14, 0)].kind = ProductLine;
    QVERIFY(trigger(*m_view, u"Command15"_s)); // nor after the last
    QCOMPARE(m_view->currentPage(), 14);
    QCOMPARE(shown(u"Linhas", 0), u"Product 0"_s);
    draw(6);
    QVERIFY(trigger(*m_view, u"Command15"_s));
    QCOMPARE(shownText(*m_view, u"Page"_s), u"7"_s);
    QCOMPARE(shown(u"Linhas", 1), u"Product 1"_s);

    QVERIFY(trigger(*m_view, u"InsertPage"_s));
    QCOMPARE(shown(u"Linhas", 1), QString());
    QVERIFY(trigger(*m_view, u"Command15"_s));
    QCOMPARE(shown(u"Linhas", 1), u"Product 1"_s);
    draw(7);
    QVERIFY(trigger(*m_view, u"DeletePage"_s));
    QCOMPARE(shownText(*m_view, u"Page"_s), u"7"_s);
    QCOMPARE(shown(u"Linhas", 1), u"Product 1"_s);
    QVERIFY(trigger(*m_view, u"Command14"_s));
    QVERIFY(trigger(*m_view, u"Command15"_s));
    QCOMPARE(m_view->currentPage(), 7);

    // The row button asks what to do with the row: "MOVE UP" pulls the rows below over it, "MOVE DOWN"
    // makes room, "DELETE" empties it.
    ModalDialogDriver driver;
    QStringList titles;
    const auto useRowDialog = [&](int row, const QString& button) {
        driver.onNextDialog([&titles, button](QDialog& dialog) {
            titles.append(dialog.windowTitle());
            QVERIFY(trigger(dialog, button));
        });
        QVERIFY(trigger(*m_view, rowName(u"Remove", row)));
        QVERIFY(driver.acted());
        QVERIFY(!driver.leftOpen());
    };
    useRowDialog(1, u"Command2"_s);
    QCOMPARE(shown(u"Linhas", 1), u"Product 2"_s);
    useRowDialog(0, u"Command3"_s);
    QCOMPARE(shown(u"Linhas", 1), u"Product 0"_s);
    useRowDialog(1, u"Command1"_s);
    QCOMPARE(shown(u"Linhas", 1), QString());
    QCOMPARE(titles, QStringList({ u"Page 7, row 2"_s, u"Page 7, row 1"_s, u"Page 7, row 2"_s }));
    QCOMPARE(m_view->selectedRow(), 1);
    QVERIFY(m_view->findChildren<QDialog*>().isEmpty());

    // A fault in a command is shown and changes nothing.
    const auto before = std::make_unique<MenuDocument>(d);
    m_view->setCurrentPage(15);
    QVERIFY(trigger(*m_view, u"InsertPage"_s));
    QCOMPARE(m_prompts.messages, QStringList { u"Subscript out of range"_s });
    QCOMPARE(firstDifference(*before, d), QString());
}

void PageViewTest::sideClicksAndExpandReachTheMainWindow()
{
    QSignalSpy requests(m_view.get(), &PageView::backgroundDialogRequested);
    QSignalSpy modes(m_view.get(), &PageView::workModeChanged);
    QWidget *row = nullptr, *front = nullptr, *back = nullptr;
    QPushButton* expand = nullptr;
    QVERIFY(find(*m_view, u"Linhas_4"_s, row));
    QVERIFY(find(*m_view, u"Picture1"_s, front));
    QVERIFY(find(*m_view, u"Picture2"_s, back));
    QVERIFY(find(*m_view, u"Expand"_s, expand));

    // Rows take their own clicks; the sheet shows, and answers, between them.
    QTest::mouseClick(row, Qt::LeftButton);
    QTest::mouseClick(back, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseClick(front, Qt::LeftButton, {}, QPoint(row->x() + 5, row->geometry().bottom() + 1));
    QCOMPARE(requests.count(), 2);
    QCOMPARE(requests.at(0).at(0).toInt(), 2);
    QCOMPARE(requests.at(1).at(0).toInt(), 1);

    // Designing gives the front rows more room, and takes it back.
    const QRect rowBefore = row->geometry();
    const QSize hint = m_view->sizeHint();
    expand->click();
    QVERIFY(m_view->designing());
    QCOMPARE(row->geometry(), rowBefore.adjusted(0, 0, 153, 0));
    QCOMPARE(m_view->sizeHint(), hint + QSize(200, 0));
    expand->click();
    QVERIFY(!m_view->designing());
    QCOMPARE(row->geometry(), rowBefore);
    QCOMPARE(m_view->sizeHint(), hint);
    QCOMPARE(modes.count(), 2);
}

QTEST_MAIN(PageViewTest)
#include "PageViewTest.moc"
