// Every change made through the windows is undone and redone through the Edit menu, down to the bytes
// of the saved files and the pictures of the working folder.
#include "app/MainWindow.h"
#include "document/WorkingCopy.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

class UndoTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyKindOfChangeIsUndoneAndRedoneToTheSameFiles();
    void undoStopsAtTheMenuTheWindowStartedWith();

private:
    // The working folder's files, component files and pictures, after an autosave.
    QMap<QString, QByteArray> savedFiles();
    // The text of the named action, and whether it is enabled.
    QString actionState(const QString& name) const;

    std::unique_ptr<WindowFixture> m_fixture;
};

void UndoTest::init()
{
    m_fixture = std::make_unique<WindowFixture>();
    // The previous run left the rich menu and one of its pictures in the working folder.
    const auto rich = SampleDocuments::richMenu();
    WorkingCopy::save(*rich);
    writeBytes(m_fixture->root.workingFolder() + u"/doces.jpg"_s, "picture bytes");
    QVERIFY(m_fixture->startWindow());
}

void UndoTest::cleanup()
{
    m_fixture.reset();
}

QMap<QString, QByteArray> UndoTest::savedFiles()
{
    m_fixture->window->Timer1_Timer();
    QMap<QString, QByteArray> files;
    const QDir folder(m_fixture->root.workingFolder());
    for (const QString& name : folder.entryList(QDir::Files)) {
        files.insert(name, readBytes(folder.filePath(name)));
    }
    return files;
}

QString UndoTest::actionState(const QString& name) const
{
    QAction* action = nullptr;
    if (!find(*m_fixture->window, name, action)) {
        return u"missing"_s;
    }
    return action->text() + (action->isEnabled() ? u" (enabled)"_s : u" (disabled)"_s);
}

void UndoTest::everyKindOfChangeIsUndoneAndRedoneToTheSameFiles()
{
    MainWindow& window = *m_fixture->window;
    const QString csv = m_fixture->root.path() + u"/prices.csv"_s;
    writeBytes(csv, "\"PLUCODE\",\"DESCRIPTION\",\"PRICE\"\r\n\"501\",\"Cha\",\"1.20\"\r\n");

    struct Command
    {
        QString undoText;
        std::function<bool()> run; // false when a control it uses is missing
    };
    const QList<Command> commands = {
        { u"Undo Insert Page"_s, [&] { return trigger(window, u"InsertPage"_s); } },
        { u"Undo Typing"_s,
            [&] {
                // A new product typed on an empty row is made when the row is left.
                QLineEdit *row = nullptr, *next = nullptr;
                if (!find(window, u"Linhas_20"_s, row) || !find(window, u"Linhas_21"_s, next)) {
                    return false;
                }
                row->setFocus();
                QTest::keyClicks(row, u"Agua das Pedras"_s);
                next->setFocus();
                return true;
            } },
        { u"Undo New list"_s,
            [&] {
                m_fixture->prompts.answers = QStringList { u"Bebidas"_s };
                return trigger(window, u"Command5"_s);
            } },
        { u"Undo New"_s, [&] { return trigger(window, u"New"_s); } },
        { u"Undo Import From CSV"_s,
            [&] {
                m_fixture->prompts.answers = QStringList { csv };
                return trigger(window, u"ImportCSV"_s);
            } },
    };
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (const Command& command : commands) {
        const auto before = savedFiles();
        QVERIFY2(command.run(), qPrintable(command.undoText));
        const auto after = savedFiles();
        QVERIFY2(after != before, qPrintable(command.undoText));
        QCOMPARE(actionState(u"EditUndo"_s), command.undoText + u" (enabled)"_s);

        QVERIFY(trigger(window, u"EditUndo"_s));
        QCOMPARE(savedFiles(), before);
        QCOMPARE(actionState(u"EditRedo"_s), u"Redo"_s + command.undoText.mid(4) + u" (enabled)"_s);

        QVERIFY(trigger(window, u"EditRedo"_s));
        QCOMPARE(savedFiles(), after);
        QCOMPARE(actionState(u"EditRedo"_s), u"Redo (disabled)"_s);
    }
    QCOMPARE(m_fixture->prompts.messages.size(), 1); // the CSV layout the import tells about
}

void UndoTest::undoStopsAtTheMenuTheWindowStartedWith()
{
    MainWindow& window = *m_fixture->window;
    QCOMPARE(actionState(u"EditUndo"_s), u"Undo (disabled)"_s);
    QAction* redo = nullptr;
    QVERIFY(find(window, u"EditRedo"_s, redo));
    QCOMPARE(redo->shortcuts(),
        QList<QKeySequence>({ QKeySequence(u"Ctrl+Shift+Z"_s), QKeySequence(u"Ctrl+Y"_s) }));
    const auto started = savedFiles();

    QVERIFY(trigger(window, u"DeletePage"_s));
    QVERIFY(trigger(window, u"DeletePage"_s));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(trigger(window, u"EditUndo"_s));
    }
    QCOMPARE(savedFiles(), started);
    QCOMPARE(actionState(u"EditUndo"_s), u"Undo (disabled)"_s);

    // A change after undoing leaves nothing to redo.
    QVERIFY(trigger(window, u"EditRedo"_s));
    QVERIFY(trigger(window, u"InsertPage"_s));
    QCOMPARE(actionState(u"EditRedo"_s), u"Redo (disabled)"_s);
    QCOMPARE(actionState(u"EditUndo"_s), u"Undo Insert Page (enabled)"_s);
}

QTEST_MAIN(UndoTest)
#include "UndoTest.moc"
