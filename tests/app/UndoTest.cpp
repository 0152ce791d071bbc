// Every change made through the windows is undone and redone through the Edit menu, down to the bytes
// of the saved files and the pictures of the working folder.
#include "app/MainWindow.h"
#include "document/WorkingCopy.h"
#include "support/RequireChild.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

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
    QAction* action(const char* name) const;
    template<typename T>
    T* child(const QString& name) const;

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

void UndoTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_prompts = std::make_unique<ScriptedPrompts>();
    // The previous run left the rich menu and one of its pictures in the working folder.
    const auto rich = SampleDocuments::richMenu();
    WorkingCopy::save(*rich);
    writeBytes(m_root->workingFolder() + u"/doces.jpg"_s, "picture bytes");
    m_window = std::make_unique<MainWindow>(*m_prompts);
    m_window->show();
}

void UndoTest::cleanup()
{
    m_window.reset();
    m_root.reset();
}

QMap<QString, QByteArray> UndoTest::savedFiles()
{
    m_window->Timer1_Timer();
    QMap<QString, QByteArray> files;
    const QDir folder(m_root->workingFolder());
    for (const QString& name : folder.entryList(QDir::Files)) {
        files.insert(name, readBytes(folder.filePath(name)));
    }
    return files;
}

QAction* UndoTest::action(const char* name) const
{
    return requireChild<QAction>(*m_window, QLatin1StringView(name));
}

template<typename T>
T* UndoTest::child(const QString& name) const
{
    return requireChild<T>(*m_window, name);
}

void UndoTest::everyKindOfChangeIsUndoneAndRedoneToTheSameFiles()
{
    const QString csv = m_root->path() + u"/prices.csv"_s;
    writeBytes(csv, "\"PLUCODE\",\"DESCRIPTION\",\"PRICE\"\r\n\"501\",\"Cha\",\"1.20\"\r\n");

    struct Command
    {
        QString undoText;
        std::function<void()> run;
    };
    const QList<Command> commands = {
        { u"Undo Insert Page"_s, [&] { child<QPushButton>(u"InsertPage"_s)->click(); } },
        { u"Undo Typing"_s,
            [&] {
                // A new product typed on an empty row is made when the row is left.
                auto* row = child<QLineEdit>(u"Linhas_20"_s);
                row->setFocus();
                QTest::keyClicks(row, u"Agua das Pedras"_s);
                child<QLineEdit>(u"Linhas_21"_s)->setFocus();
            } },
        { u"Undo New list"_s,
            [&] {
                m_prompts->answers = QStringList { u"Bebidas"_s };
                child<QPushButton>(u"Command5"_s)->click();
            } },
        { u"Undo New"_s, [&] { action("New")->trigger(); } },
        { u"Undo Import From CSV"_s,
            [&] {
                m_prompts->answers = QStringList { csv };
                action("ImportCSV")->trigger();
            } },
    };
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    for (const Command& command : commands) {
        const auto before = savedFiles();
        command.run();
        const auto after = savedFiles();
        QVERIFY2(after != before, qPrintable(command.undoText));
        QCOMPARE(action("EditUndo")->text(), command.undoText);

        action("EditUndo")->trigger();
        QCOMPARE(savedFiles(), before);
        QVERIFY(action("EditRedo")->isEnabled());

        action("EditRedo")->trigger();
        QCOMPARE(savedFiles(), after);
        QVERIFY(!action("EditRedo")->isEnabled());
    }
    QVERIFY(m_prompts->messages.size() == 1); // the CSV layout the import tells about
}

void UndoTest::undoStopsAtTheMenuTheWindowStartedWith()
{
    QVERIFY(!action("EditUndo")->isEnabled());
    QCOMPARE(action("EditUndo")->text(), u"Undo"_s);
    QCOMPARE(action("EditRedo")->shortcuts(),
        QList<QKeySequence>({ QKeySequence(u"Ctrl+Shift+Z"_s), QKeySequence(u"Ctrl+Y"_s) }));
    const auto started = savedFiles();

    child<QPushButton>(u"DeletePage"_s)->click();
    child<QPushButton>(u"DeletePage"_s)->click();
    for (int i = 0; i < 3; ++i) {
        action("EditUndo")->trigger();
    }
    QCOMPARE(savedFiles(), started);
    QVERIFY(!action("EditUndo")->isEnabled());

    // A change after undoing leaves nothing to redo.
    action("EditRedo")->trigger();
    child<QPushButton>(u"InsertPage"_s)->click();
    QVERIFY(!action("EditRedo")->isEnabled());
    QCOMPARE(action("EditUndo")->text(), u"Undo Insert Page"_s);
}

QTEST_MAIN(UndoTest)
#include "UndoTest.moc"
