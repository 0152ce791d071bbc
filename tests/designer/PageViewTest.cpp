#include "designer/PageView.h"

#include "designer/PictureBox.h"
#include "document/MenuDocument.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
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

QString tag(const QWidget* widget)
{
    return widget->property("tag").toString();
}

// The row's background and text colours and its font size, as one comparable text.
QString look(const QWidget* widget)
{
    const QPalette& colors = widget->palette();
    return colors.color(QPalette::Base).name() + u' ' + colors.color(QPalette::Text).name() + u' '
        + QString::number(widget->font().pointSize());
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
    void magnetLetters();
    void groupPicturesReachOverTheRowsTheyCover();
    void picturesAreFoundInTheProjectFolderAndTheirPathsKept();
    void anUncolouredPageSideIsStoredAsPaleYellow();

private:
    void draw(int page);
    template<typename Control = QLineEdit>
    Control* find(const QString& name) const;
    template<typename Control = QLineEdit>
    Control* find(const char16_t* name, int row) const;

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    std::unique_ptr<PageView> m_view;
};

void PageViewTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    m_document->ProjectFolder = m_root->path() + QStringLiteral("/project/");
    QVERIFY(QDir().mkpath(m_document->ProjectFolder));
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

template<typename Control>
Control* PageViewTest::find(const QString& name) const
{
    auto* found = m_view->findChild<Control*>(name);
    if (!found) {
        qFatal("no control %s", qPrintable(name));
    }
    return found;
}

template<typename Control>
Control* PageViewTest::find(const char16_t* name, int row) const
{
    return find<Control>(QString::fromUtf16(name) + u'_' + QString::number(row));
}

void PageViewTest::anEmptyPageShowsEveryRowInTheTextLineDefaults()
{
    QCOMPARE(find<QLabel>(QStringLiteral("Page_text"))->text(), QStringLiteral("Page"));
    QCOMPARE(find<QLabel>(QStringLiteral("Page"))->text(), QStringLiteral("1"));
    m_document->PrintSettings.ColorBack[0] = QStringLiteral("16711680"); // blue
    m_document->PrintSettings.ColorFore[0] = QStringLiteral("65535"); // yellow
    m_document->PrintSettings.FontName = QStringLiteral("DejaVu Serif");
    draw(5);
    QCOMPARE(m_view->currentPage(), 5);

    for (int r = 0; r < PageView::Rows; ++r) {
        for (const char16_t* name : { u"Linhas", u"Price", u"LinhasVerso" }) {
            QVERIFY(find(name, r)->text().isEmpty());
            QCOMPARE(find(name, r)->font().family(), QStringLiteral("DejaVu Serif"));
        }
        QCOMPARE(look(find(u"Linhas", r)), QStringLiteral("#0000ff #ffff00 13"));
        QCOMPARE(look(find(u"Price", r)), QStringLiteral("#0000ff #ffff00 13"));
        QCOMPARE(look(find(u"LinhasVerso", r)), QStringLiteral("#ffffff #000000 9"));
        QCOMPARE(tag(find(u"Linhas", r)), QString());
        const auto* picture = find<PictureBox>(u"Imagem", r);
        QVERIFY(picture->isVisibleTo(m_view.get()));
        QVERIFY(picture->picture().isNull());
        QCOMPARE(picture->height(), 25);
        QVERIFY(!find<QToolButton>(u"Command12", r)->toolTip().isEmpty());
        QVERIFY(!find<QToolButton>(u"Remove", r)->toolTip().isEmpty());
    }
}

void PageViewTest::rowsTakeTheTextColoursAndSizeOfTheirKind()
{
    MenuDocument& d = *m_document;
    addPlu(d, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));
    const auto line = [&](int row, std::int32_t kind, const QString& text) -> LineLayout& {
        LineLayout& layout = d.LineLayouts[lineSlot(2, row)];
        layout.kind = kind;
        layout.text = text;
        return layout;
    };
    d.LinePlu[lineSlot(2, 0)] = 1001;
    LineLayout& product = line(0, ProductLine, QStringLiteral("not shown on a product row"));
    product.backColor = QStringLiteral("255");
    product.foreColor = QStringLiteral("16777215");
    d.LinePlu[lineSlot(2, 1)] = 1001; // a title shows its own text beside the product's price
    line(1, TitleLine, QStringLiteral("Bebidas"));
    line(2, NoteLine, QStringLiteral("Com IVA")).foreColor = QStringLiteral("128");
    LineLayout& group = line(3, EmptyLine, QString());
    group.backText = QStringLiteral("Sobremesas");
    group.backBackColor = QStringLiteral("8421504");
    group.backForeColor = QStringLiteral("65535");
    line(4, EmptyLine, QString()).backText = QStringLiteral("   ");

    draw(2);
    QCOMPARE(find(u"Linhas", 0)->text(), QStringLiteral("Espresso"));
    QCOMPARE(look(find(u"Linhas", 0)), QStringLiteral("#ff0000 #ffffff 13"));
    QCOMPARE(find(u"Linhas", 1)->text(), QStringLiteral("Bebidas"));
    QCOMPARE(find(u"Price", 1)->text(), QStringLiteral("2.50"));
    QCOMPARE(tag(find(u"Linhas", 1)), QStringLiteral("0"));
    QCOMPARE(look(find(u"Linhas", 1)), QStringLiteral("#000000 #ffffff 14"));
    QCOMPARE(look(find(u"Price", 1)), QStringLiteral("#000000 #ffffff 14"));
    QCOMPARE(find(u"Linhas", 2)->text(), QStringLiteral("Com IVA"));
    QCOMPARE(look(find(u"Price", 2)), QStringLiteral("#efefef #800000 9"));
    QCOMPARE(find(u"LinhasVerso", 3)->text(), QStringLiteral("Sobremesas"));
    QCOMPARE(look(find(u"LinhasVerso", 3)), QStringLiteral("#808080 #ffff00 9"));
    QCOMPARE(find(u"LinhasVerso", 4)->text(), QString());

    // An unknown kind leaves the front row looking as the last page left it; the back row is reset.
    d.LineLayouts[lineSlot(3, 1)].kind = 7;
    d.LineLayouts[lineSlot(3, 1)].text = QStringLiteral("never shown");
    draw(3);
    QCOMPARE(find(u"Linhas", 1)->text(), QString());
    QCOMPARE(look(find(u"Linhas", 1)), QStringLiteral("#000000 #ffffff 14"));
    QCOMPARE(look(find(u"Linhas", 0)), QStringLiteral("#ff8000 #000000 13"));
    QCOMPARE(find(u"LinhasVerso", 3)->text(), QString());
    QCOMPARE(look(find(u"LinhasVerso", 3)), QStringLiteral("#ffffff #000000 9"));
}

void PageViewTest::productRowsShowTheLastProductWithTheirNumber()
{
    MenuDocument& d = *m_document;
    addPlu(d, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));
    addPlu(d, QStringLiteral("0"), QStringLiteral("Apagado"), QStringLiteral("9.99"));
    addPlu(d, QStringLiteral(" 1001"), QStringLiteral("Espresso duplo"), QStringLiteral("3.10"));
    addPlu(d, QStringLiteral("2002"), QStringLiteral("Chá"), QStringLiteral("1.80"));
    const int bound[] = { 1001, 2002, 3003, 0 };
    for (int r = 0; r < 4; ++r) {
        d.LinePlu[lineSlot(14, r)] = bound[r];
        d.LineLayouts[lineSlot(14, r)].kind = ProductLine;
    }
    const auto shown = [&](int r) {
        return QStringList { find(u"Linhas", r)->text(), find(u"Price", r)->text(), tag(find(u"Linhas", r)) };
    };

    draw(14);
    QCOMPARE(shown(0),
        (QStringList { QStringLiteral("Espresso duplo"), QStringLiteral("3.10"), QStringLiteral("2") }));
    QCOMPARE(shown(1), (QStringList { QStringLiteral("Chá"), QStringLiteral("1.80"), QStringLiteral("3") }));
    QCOMPARE(shown(2), QStringList(3));
    QCOMPARE(shown(3), QStringList(3));
    QCOMPARE(look(find(u"Linhas", 2)), QStringLiteral("#ff8000 #000000 13"));

    // A product deleted since the last redraw leaves nothing of it on the row.
    d.Plus[3].Code = QStringLiteral("0");
    m_view->Update_Page();
    QCOMPARE(shown(1), QStringList(3));
}

void PageViewTest::magnetLetters()
{
    MenuDocument& d = *m_document;
    const auto letters = [&](const QString& version, int first, int last) {
        d.PagesVersion = version;
        QString shown;
        for (int page = first; page <= last; ++page) {
            draw(page);
            shown += u'[' + find<QLabel>(QStringLiteral("Magnet"))->text() + u']';
        }
        return shown;
    };
    d.LinePlu[lineSlot(3, 23)] = 5;
    d.LinePlu[lineSlot(13, 0)] = 5; // pages 13 and 14 have no letter and do not count
    QCOMPARE(letters(QStringLiteral("0"), 1, 5), QStringLiteral("[J][K][L][ ][]"));
    QCOMPARE(letters(QStringLiteral("0"), 13, 14), QStringLiteral("[][]"));
    QCOMPARE(letters(QStringLiteral("1"), 1, 14), QStringLiteral("[D][E][F][G][H][I][J][K][L][A][B][C][][]"));
    d.LinePlu[lineSlot(3, 23)] = 0;
    QCOMPARE(letters(QStringLiteral("0"), 1, 12), QStringLiteral("[ ]") + QStringLiteral("[]").repeated(11));
}

void PageViewTest::groupPicturesReachOverTheRowsTheyCover()
{
    MenuDocument& d = *m_document;
    savePicture(d.ProjectFolder + QStringLiteral("doces.png"), QSize(30, 20));
    const auto group = [&](int row, int coveredRows, const QString& path) {
        d.LineLayouts[lineSlot(1, row)].pictureRole = GroupStart;
        d.LineLayouts[lineSlot(1, row)].picturePath = path;
        for (int k = 1; k <= coveredRows; ++k) {
            d.LineLayouts[lineSlot(1, row + k)].pictureRole = CoveredByPicture;
        }
    };
    group(0, 0, QStringLiteral("doces.png"));
    group(2, 2, QStringLiteral("doces.png"));
    group(6, 1, QStringLiteral("  ")); // no picture: nothing stretches, the covered row still hides
    group(20, 3, QStringLiteral("doces.png"));
    d.LineLayouts[lineSlot(2, 0)].pictureRole = CoveredByPicture; // the next page is not reached
    const auto imagem = [&](int r) { return find<PictureBox>(u"Imagem", r); };

    draw(1);
    for (const auto& [row, height, printedHeight] :
        { std::tuple { 0, 25, QStringLiteral("6.88") }, std::tuple { 2, 75, QStringLiteral("20.64") },
            std::tuple { 20, 100, QStringLiteral("27.52") } }) {
        QCOMPARE(imagem(row)->height(), height);
        QCOMPARE(tag(imagem(row)), printedHeight);
        QCOMPARE(imagem(row)->picture().size(), QSize(30, 20));
    }
    QCOMPARE(imagem(6)->height(), 25);
    QVERIFY(imagem(6)->picture().isNull());
    QCOMPARE(tag(imagem(6)), QString());
    for (int r = 0; r < PageView::Rows; ++r) {
        const bool covered = (r >= 3 && r <= 4) || r == 7 || r >= 21;
        QCOMPARE(imagem(r)->isVisibleTo(m_view.get()), !covered);
    }

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
    const QString elsewhere = m_root->path() + QStringLiteral("/back.png");
    savePicture(folder + QStringLiteral("front.png"), QSize(40, 30));
    savePicture(folder + QStringLiteral("back.png"), QSize(41, 30));
    savePicture(folder + QStringLiteral("group.png"), QSize(42, 30));
    savePicture(elsewhere, QSize(43, 30));
    writeBytes(folder + QStringLiteral("broken.png"), QByteArrayLiteral("not a picture"));
    const QString groups[] = { QStringLiteral("/no/such/folder/group.png"), QStringLiteral("broken.png"),
        QStringLiteral("missing.png"), elsewhere };
    for (int r = 0; r < 4; ++r) {
        d.LineLayouts[lineSlot(4, r)].pictureRole = GroupStart;
        d.LineLayouts[lineSlot(4, r)].picturePath = groups[r];
    }
    print.PageValueA[4] = QStringLiteral("front.png");
    print.PageValueB[4] = QStringLiteral("C:\\menus\\old\\back.png"); // written on Windows
    const auto picture = [&](const QString& name) { return find<PictureBox>(name)->picture().size(); };

    draw(4);
    QCOMPARE(print.PageValueA[4], folder + QStringLiteral("front.png"));
    QCOMPARE(picture(QStringLiteral("Picture1")), QSize(40, 30));
    QCOMPARE(print.PageValueB[4], folder + QStringLiteral("back.png"));
    QCOMPARE(picture(QStringLiteral("Picture2")), QSize(41, 30));
    const QString stored[] = { folder + QStringLiteral("group.png"), folder + QStringLiteral("broken.png"),
        folder + QStringLiteral("missing.png"), elsewhere };
    const QSize shown[] = { QSize(42, 30), QSize(0, 0), QSize(0, 0), QSize(43, 30) };
    for (int r = 0; r < 4; ++r) {
        QCOMPARE(d.LineLayouts[lineSlot(4, r)].picturePath, stored[r]);
        QCOMPARE(picture(QStringLiteral("Imagem_%1").arg(r)), shown[r]);
    }

    // A picture replaced on disk is read again.
    savePicture(elsewhere, QSize(44, 31));
    QFile replaced(elsewhere);
    QVERIFY(replaced.open(QIODevice::ReadWrite));
    QVERIFY(
        replaced.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    replaced.close();
    m_view->Update_Page();
    QCOMPARE(picture(QStringLiteral("Imagem_3")), QSize(44, 31));
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
    QCOMPARE(find<PictureBox>(QStringLiteral("Picture1"))->color(), QColor(255, 255, 224));
    QCOMPARE(find<PictureBox>(QStringLiteral("Picture2"))->color(), QColor(255, 0, 0));
    draw(1);
    QCOMPARE(find<PictureBox>(QStringLiteral("Picture1"))->color(), QColor(0xEF, 0xEF, 0xEF));
}

QTEST_MAIN(PageViewTest)
#include "PageViewTest.moc"
