#include "designer/PageView.h"

#include "designer/PictureBox.h"
#include "document/MenuDocument.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

#include <memory>

using SampleDocuments::addPlu;

namespace {

const QColor White(255, 255, 255);
const QColor Black(0, 0, 0);
const QColor PaleYellow(255, 255, 224);

template<typename Control>
Control* control(const PageView& view, const QString& name)
{
    auto* found = view.findChild<Control*>(name);
    if (!found) {
        qFatal("no control %s", qPrintable(name));
    }
    return found;
}

template<typename Control = QLineEdit>
Control* control(const PageView& view, const char16_t* name, int row)
{
    return control<Control>(view, QString::fromUtf16(name) + u'_' + QString::number(row));
}

QColor background(const QWidget* widget)
{
    return widget->palette().color(QPalette::Base);
}

QColor foreground(const QWidget* widget)
{
    return widget->palette().color(QPalette::Text);
}

QString tag(const QWidget* widget)
{
    return widget->property("tag").toString();
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

    void anEmptyPageShowsEveryRowInTheTextLineDefaults();
    void rowsTakeTheTextColoursAndSizeOfTheirKind();
    void productRowsShowTheLastProductWithTheirNumber();
    void magnetLettersCountBackFromTheLastPageWithProducts();
    void magnetLettersOfTheFixedLettering();
    void groupPicturesReachOverTheRowsTheyCover();
    void picturesAreFoundInTheProjectFolderAndTheirPathsKept();
    void anUncolouredPageSideIsStoredAsPaleYellow();

private:
    void draw(int page);

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    std::unique_ptr<PageView> m_view;
};

void PageViewTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    m_document->ProjectFolder = m_root->path() + QStringLiteral("/project/");
    QVERIFY(QDir().mkpath(m_document->ProjectFolder));
    m_view = std::make_unique<PageView>(*m_document);
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

void PageViewTest::anEmptyPageShowsEveryRowInTheTextLineDefaults()
{
    QCOMPARE(control<QLabel>(*m_view, QStringLiteral("Page_text"))->text(), QStringLiteral("Page"));
    QCOMPARE(control<QLabel>(*m_view, QStringLiteral("Page"))->text(), QStringLiteral("1"));
    QCOMPARE(m_view->currentPage(), 1);

    m_document->PrintSettings.ColorBack[0] = QStringLiteral("16711680"); // blue
    m_document->PrintSettings.ColorFore[0] = QStringLiteral("65535"); // yellow
    m_document->PrintSettings.FontName = QStringLiteral("DejaVu Serif");
    draw(5);
    QCOMPARE(control<QLabel>(*m_view, QStringLiteral("Page"))->text(), QStringLiteral("5"));

    for (int r = 0; r < PageView::Rows; ++r) {
        for (const char16_t* name : { u"Linhas", u"Price" }) {
            const QLineEdit* box = control(*m_view, name, r);
            QVERIFY(box->text().isEmpty());
            QCOMPARE(background(box), QColor(0, 0, 255));
            QCOMPARE(foreground(box), QColor(255, 255, 0));
            QCOMPARE(box->font().pointSize(), 13);
            QCOMPARE(box->font().family(), QStringLiteral("DejaVu Serif"));
        }
        QCOMPARE(tag(control(*m_view, u"Linhas", r)), QString());
        const QLineEdit* back = control(*m_view, u"LinhasVerso", r);
        QVERIFY(back->text().isEmpty());
        QCOMPARE(background(back), White);
        QCOMPARE(foreground(back), Black);
        QCOMPARE(back->font().pointSize(), 9);
        QCOMPARE(back->font().family(), QStringLiteral("DejaVu Serif"));
        const auto* picture = control<PictureBox>(*m_view, u"Imagem", r);
        QVERIFY(picture->isVisibleTo(m_view.get()));
        QVERIFY(picture->picture().isNull());
        QCOMPARE(picture->height(), 25);
        QVERIFY(!control<QToolButton>(*m_view, u"Command12", r)->toolTip().isEmpty());
        QVERIFY(!control<QToolButton>(*m_view, u"Remove", r)->toolTip().isEmpty());
    }
}

void PageViewTest::rowsTakeTheTextColoursAndSizeOfTheirKind()
{
    MenuDocument& d = *m_document;
    addPlu(d, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));

    LineLayout& product = d.LineLayouts[lineSlot(2, 0)];
    d.LinePlu[lineSlot(2, 0)] = 1001;
    product.kind = ProductLine;
    product.text = QStringLiteral("not shown on a product row");
    product.backColor = QStringLiteral("255");
    product.foreColor = QStringLiteral("16777215");

    LineLayout& title = d.LineLayouts[lineSlot(2, 1)];
    title.kind = TitleLine;
    title.text = QStringLiteral("Bebidas");
    d.LinePlu[lineSlot(2, 1)] = 1001; // a title keeps its own text but shows the bound product's price

    LineLayout& note = d.LineLayouts[lineSlot(2, 2)];
    note.kind = NoteLine;
    note.text = QStringLiteral("Com IVA");
    note.foreColor = QStringLiteral("128");

    LineLayout& group = d.LineLayouts[lineSlot(2, 3)];
    group.backText = QStringLiteral("Sobremesas");
    group.backBackColor = QStringLiteral("8421504");
    group.backForeColor = QStringLiteral("65535");
    d.LineLayouts[lineSlot(2, 4)].backText = QStringLiteral("   ");

    draw(2);
    const QLineEdit* productRow = control(*m_view, u"Linhas", 0);
    QCOMPARE(productRow->text(), QStringLiteral("Espresso"));
    QCOMPARE(control(*m_view, u"Price", 0)->text(), QStringLiteral("2.50"));
    QCOMPARE(background(productRow), QColor(255, 0, 0));
    QCOMPARE(foreground(control(*m_view, u"Price", 0)), White);

    const QLineEdit* titleRow = control(*m_view, u"Linhas", 1);
    QCOMPARE(titleRow->text(), QStringLiteral("Bebidas"));
    QCOMPARE(control(*m_view, u"Price", 1)->text(), QStringLiteral("2.50"));
    QCOMPARE(tag(titleRow), QStringLiteral("0"));
    QCOMPARE(background(titleRow), Black);
    QCOMPARE(foreground(titleRow), White);
    QCOMPARE(titleRow->font().pointSize(), 14);
    QCOMPARE(control(*m_view, u"Price", 1)->font().pointSize(), 14);

    const QLineEdit* noteRow = control(*m_view, u"Linhas", 2);
    QCOMPARE(noteRow->text(), QStringLiteral("Com IVA"));
    QCOMPARE(background(noteRow), QColor(0xEF, 0xEF, 0xEF));
    QCOMPARE(foreground(noteRow), QColor(128, 0, 0));
    QCOMPARE(noteRow->font().pointSize(), 9);

    const QLineEdit* groupRow = control(*m_view, u"LinhasVerso", 3);
    QCOMPARE(groupRow->text(), QStringLiteral("Sobremesas"));
    QCOMPARE(background(groupRow), QColor(128, 128, 128));
    QCOMPARE(foreground(groupRow), QColor(255, 255, 0));
    QCOMPARE(control(*m_view, u"LinhasVerso", 4)->text(), QString());

    // An unknown kind leaves the front row looking as the last page left it; the back row is reset.
    d.LineLayouts[lineSlot(3, 1)].kind = 7;
    d.LineLayouts[lineSlot(3, 1)].text = QStringLiteral("never shown");
    draw(3);
    QCOMPARE(titleRow->text(), QString());
    QCOMPARE(background(titleRow), Black);
    QCOMPARE(titleRow->font().pointSize(), 14);
    QCOMPARE(background(productRow), QColor(255, 128, 0));
    QCOMPARE(groupRow->text(), QString());
    QCOMPARE(background(groupRow), White);
    QCOMPARE(foreground(groupRow), Black);
}

void PageViewTest::productRowsShowTheLastProductWithTheirNumber()
{
    MenuDocument& d = *m_document;
    addPlu(d, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));
    addPlu(d, QStringLiteral("0"), QStringLiteral("Apagado"), QStringLiteral("9.99"));
    addPlu(d, QStringLiteral(" 1001"), QStringLiteral("Espresso duplo"), QStringLiteral("3.10"));
    addPlu(d, QStringLiteral("2002"), QStringLiteral("Chá"), QStringLiteral("1.80"));
    const int lines[] = { 1001, 2002, 3003, 0 };
    for (int r = 0; r < 4; ++r) {
        d.LinePlu[lineSlot(14, r)] = lines[r];
        d.LineLayouts[lineSlot(14, r)].kind = ProductLine;
    }

    draw(14);
    const QStringList texts { QStringLiteral("Espresso duplo"), QStringLiteral("Chá"), QString(), QString() };
    const QStringList prices { QStringLiteral("3.10"), QStringLiteral("1.80"), QString(), QString() };
    const QStringList tags { QStringLiteral("2"), QStringLiteral("3"), QString(), QString() };
    for (int r = 0; r < 4; ++r) {
        QCOMPARE(control(*m_view, u"Linhas", r)->text(), texts[r]);
        QCOMPARE(control(*m_view, u"Price", r)->text(), prices[r]);
        QCOMPARE(tag(control(*m_view, u"Linhas", r)), tags[r]);
        QCOMPARE(background(control(*m_view, u"Linhas", r)), QColor(255, 128, 0));
    }

    // A product deleted since the last redraw leaves nothing of it on the row.
    d.Plus[3].Code = QStringLiteral("0");
    m_view->Update_Page();
    QCOMPARE(control(*m_view, u"Linhas", 1)->text(), QString());
    QCOMPARE(control(*m_view, u"Price", 1)->text(), QString());
    QCOMPARE(tag(control(*m_view, u"Linhas", 1)), QString());

    m_view->setCurrentPage(15);
    QVERIFY_THROWS_EXCEPTION(RangeFault, m_view->Update_Page());
}

void PageViewTest::magnetLettersCountBackFromTheLastPageWithProducts()
{
    MenuDocument& d = *m_document;
    const auto* magnet = control<QLabel>(*m_view, QStringLiteral("Magnet"));
    d.LinePlu[lineSlot(3, 23)] = 5;
    d.LinePlu[lineSlot(13, 0)] = 5; // pages 13 and 14 have no letter and do not count
    const QStringList withProducts { QStringLiteral("J"), QStringLiteral("K"), QStringLiteral("L"),
        QStringLiteral(" "), QString() };
    for (int page = 1; page <= 5; ++page) {
        draw(page);
        QCOMPARE(magnet->text(), withProducts[page - 1]);
    }
    draw(13);
    QCOMPARE(magnet->text(), QString());

    d.LinePlu[lineSlot(3, 23)] = 0;
    draw(1);
    QCOMPARE(magnet->text(), QStringLiteral(" "));
    for (int page = 2; page <= 12; ++page) {
        draw(page);
        QCOMPARE(magnet->text(), QString());
    }
}

void PageViewTest::magnetLettersOfTheFixedLettering()
{
    MenuDocument& d = *m_document;
    const auto* magnet = control<QLabel>(*m_view, QStringLiteral("Magnet"));
    d.PagesVersion = QStringLiteral("1");
    d.LinePlu[lineSlot(2, 0)] = 5; // has no bearing on this lettering
    const QString letters = QStringLiteral("DEFGHIJKLABC");
    for (int page = 1; page <= 12; ++page) {
        draw(page);
        QCOMPARE(magnet->text(), letters.mid(page - 1, 1));
    }
    draw(14);
    QCOMPARE(magnet->text(), QString());

    // A lettering the view does not know leaves the letter as it was.
    draw(10);
    d.PagesVersion = QStringLiteral("2");
    draw(11);
    QCOMPARE(magnet->text(), QStringLiteral("A"));
}

void PageViewTest::groupPicturesReachOverTheRowsTheyCover()
{
    MenuDocument& d = *m_document;
    savePicture(d.ProjectFolder + QStringLiteral("doces.png"), QSize(30, 20));
    const auto group = [&](int page, int row, int coveredRows, const QString& path) {
        d.LineLayouts[lineSlot(page, row)].pictureRole = GroupStart;
        d.LineLayouts[lineSlot(page, row)].picturePath = path;
        for (int k = 1; k <= coveredRows; ++k) {
            d.LineLayouts[lineSlot(page, row + k)].pictureRole = CoveredByPicture;
        }
    };
    const QString picture = QStringLiteral("doces.png");
    group(1, 0, 0, picture);
    group(1, 2, 2, picture);
    group(1, 6, 1, QStringLiteral("  ")); // no picture: nothing stretches, the covered row still hides
    group(1, 20, 3, picture);
    d.LineLayouts[lineSlot(2, 0)].pictureRole = CoveredByPicture; // the next page's rows are not reached

    draw(1);
    const auto imagem = [&](int r) { return control<PictureBox>(*m_view, u"Imagem", r); };
    const struct
    {
        int row;
        int height;
        QString tag;
    } starts[] = { { 0, 25, QStringLiteral("6.88") }, { 2, 75, QStringLiteral("20.64") },
        { 20, 100, QStringLiteral("27.52") } };
    for (const auto& start : starts) {
        QCOMPARE(imagem(start.row)->height(), start.height);
        QCOMPARE(tag(imagem(start.row)), start.tag);
        QCOMPARE(imagem(start.row)->picture().size(), QSize(30, 20));
        QVERIFY(imagem(start.row)->isVisibleTo(m_view.get()));
    }
    QCOMPARE(imagem(6)->height(), 25);
    QVERIFY(imagem(6)->picture().isNull());
    QCOMPARE(tag(imagem(6)), QString());
    for (int covered : { 3, 4, 7, 21, 22, 23 }) {
        QVERIFY(!imagem(covered)->isVisibleTo(m_view.get()));
    }
    QVERIFY(imagem(1)->isVisibleTo(m_view.get()));
    QVERIFY(imagem(5)->isVisibleTo(m_view.get()));

    // On a page without groups every box is back to one visible, empty row.
    draw(3);
    for (int r = 0; r < PageView::Rows; ++r) {
        QCOMPARE(imagem(r)->height(), 25);
        QVERIFY(imagem(r)->picture().isNull());
        QVERIFY(imagem(r)->isVisibleTo(m_view.get()));
    }
}

void PageViewTest::picturesAreFoundInTheProjectFolderAndTheirPathsKept()
{
    MenuDocument& d = *m_document;
    PrintSettings& print = d.PrintSettings;
    const QString folder = d.ProjectFolder;
    const QString elsewhere = m_root->path() + QStringLiteral("/elsewhere/");
    QVERIFY(QDir().mkpath(elsewhere));
    savePicture(folder + QStringLiteral("front.png"), QSize(40, 30));
    savePicture(folder + QStringLiteral("back.png"), QSize(41, 30));
    savePicture(folder + QStringLiteral("group.png"), QSize(42, 30));
    savePicture(elsewhere + QStringLiteral("back.png"), QSize(43, 30));
    writeBytes(folder + QStringLiteral("broken.png"), QByteArrayLiteral("not a picture"));

    print.PageValueA[4] = QStringLiteral("front.png");
    print.PageValueB[4] = QStringLiteral("C:\\menus\\old\\back.png"); // written on Windows
    d.LineLayouts[lineSlot(4, 1)].pictureRole = GroupStart;
    d.LineLayouts[lineSlot(4, 1)].picturePath = QStringLiteral("/no/such/folder/group.png");
    d.LineLayouts[lineSlot(4, 2)].pictureRole = GroupStart;
    d.LineLayouts[lineSlot(4, 2)].picturePath = QStringLiteral("missing.png");
    draw(4);
    QCOMPARE(print.PageValueA[4], folder + QStringLiteral("front.png"));
    QCOMPARE(control<PictureBox>(*m_view, QStringLiteral("Picture1"))->picture().size(), QSize(40, 30));
    QCOMPARE(print.PageValueB[4], folder + QStringLiteral("back.png"));
    QCOMPARE(control<PictureBox>(*m_view, QStringLiteral("Picture2"))->picture().size(), QSize(41, 30));
    QCOMPARE(d.LineLayouts[lineSlot(4, 1)].picturePath, folder + QStringLiteral("group.png"));
    QCOMPARE(control<PictureBox>(*m_view, u"Imagem", 1)->picture().size(), QSize(42, 30));
    QCOMPARE(d.LineLayouts[lineSlot(4, 2)].picturePath, folder + QStringLiteral("missing.png"));
    QVERIFY(control<PictureBox>(*m_view, u"Imagem", 2)->picture().isNull());

    // A path that loads is kept as it is; a side whose picture cannot be read shows none.
    print.PageValueB[4] = elsewhere + QStringLiteral("back.png");
    print.PageValueA[4] = QStringLiteral("broken.png");
    m_view->Update_Page();
    QCOMPARE(print.PageValueB[4], elsewhere + QStringLiteral("back.png"));
    QCOMPARE(control<PictureBox>(*m_view, QStringLiteral("Picture2"))->picture().size(), QSize(43, 30));
    QCOMPARE(print.PageValueA[4], folder + QStringLiteral("broken.png"));
    QVERIFY(control<PictureBox>(*m_view, QStringLiteral("Picture1"))->picture().isNull());

    // A picture replaced on disk is read again.
    savePicture(elsewhere + QStringLiteral("back.png"), QSize(44, 31));
    QFile replaced(elsewhere + QStringLiteral("back.png"));
    QVERIFY(replaced.open(QIODevice::ReadWrite));
    QVERIFY(
        replaced.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    replaced.close();
    m_view->Update_Page();
    QCOMPARE(control<PictureBox>(*m_view, QStringLiteral("Picture2"))->picture().size(), QSize(44, 31));
}

void PageViewTest::anUncolouredPageSideIsStoredAsPaleYellow()
{
    PrintSettings& print = m_document->PrintSettings;
    print.PageColorA[2].clear();
    print.PageColorB[2] = QStringLiteral("255");
    print.PageColorA[3].clear();
    draw(2);
    QCOMPARE(print.PageColorA[2], QStringLiteral("14745599"));
    QCOMPARE(print.PageColorB[2], QStringLiteral("255"));
    QCOMPARE(print.PageColorA[3], QString());
    QCOMPARE(control<PictureBox>(*m_view, QStringLiteral("Picture1"))->color(), PaleYellow);
    QCOMPARE(control<PictureBox>(*m_view, QStringLiteral("Picture2"))->color(), QColor(255, 0, 0));

    draw(1);
    QCOMPARE(control<PictureBox>(*m_view, QStringLiteral("Picture1"))->color(), QColor(0xEF, 0xEF, 0xEF));
}

QTEST_MAIN(PageViewTest)
#include "PageViewTest.moc"
