#include "MainWindow.h"

#include "HandlerGuard.h"
#include "document/NumberText.h"
#include "document/WorkingCopy.h"
#include "document/WorkingPaths.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QStatusBar>
#include <QTime>
#include <QTimer>

namespace {

constexpr int AutosaveIntervalMs = 60'000;

QString mainWindowTitle()
{
    using NumberText::str;
    return QStringLiteral("Orvik Quorvel") + str(QUORVEL_VERSION_MAJOR) + u'.' + str(QUORVEL_VERSION_MINOR)
        + u'.' + str(QUORVEL_VERSION_PATCH) + QStringLiteral(" - Menu Designer");
}

} // namespace

MainWindow::MainWindow(UserPrompts& prompts, QWidget* parent)
    : QMainWindow(parent)
    , m_prompts(prompts)
    , m_timer1(new QTimer(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    resize(1280, 860);
    setCentralWidget(new QWidget(this));
    buildMenuBar();

    m_timer1->setObjectName(QStringLiteral("Timer1"));
    m_timer1->setInterval(AutosaveIntervalMs);
    connect(m_timer1, &QTimer::timeout, this, &MainWindow::Timer1_Timer);

    guarded([this] { startUp(); });
}

MainWindow::~MainWindow() = default;

template<typename Handler>
void MainWindow::guarded(Handler&& handler)
{
    runGuarded(m_prompts, std::forward<Handler>(handler));
}

void MainWindow::buildMenuBar()
{
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    addMenuItem(file, QStringLiteral("Load"), QStringLiteral("&Load"), QKeySequence::Open);
    addMenuItem(file, QStringLiteral("Save"), QStringLiteral("&Save"), QKeySequence::Save);
    addMenuItem(file, QStringLiteral("New"), QStringLiteral("&New"), QKeySequence::New);
    file->addSeparator();
    addMenuItem(file, QStringLiteral("Print"), QStringLiteral("&Print"), QKeySequence::Print);
    addMenuItem(file, QStringLiteral("Colors"), QStringLiteral("&Colors"));
    file->addSeparator();
    QAction* exit = addMenuItem(file, QStringLiteral("Exit"), QStringLiteral("E&xit"), QKeySequence::Quit);
    connect(exit, &QAction::triggered, this, &MainWindow::Exit_Click);

    QMenu* import = menuBar()->addMenu(QStringLiteral("&Import"));
    addMenuItem(import, QStringLiteral("ImportFromDll"), QStringLiteral("Import From &Last Sended Plus"));
    addMenuItem(import, QStringLiteral("ImportFenwarXls"), QStringLiteral("Import From &Fenwar ( XLS)"));
    addMenuItem(import, QStringLiteral("ImportFromXls"), QStringLiteral("Import From &XLS"));
    addMenuItem(import, QStringLiteral("ImportCSV"), QStringLiteral("Import From &CSV"));

    // Send, Receive and Upgrade Firmware act straight from the menu bar.
    addMenuItem(nullptr, QStringLiteral("SendAll"), QStringLiteral("&Send"));
    addMenuItem(nullptr, QStringLiteral("Receive"), QStringLiteral("&Receive"));
    addMenuItem(nullptr, QStringLiteral("UpgradeFirmware"), QStringLiteral("&Upgrade Firmware"));
}

// Items whose windows the designer does not have yet stay disabled until they are connected.
QAction* MainWindow::addMenuItem(
    QMenu* menu, const QString& name, const QString& caption, QKeySequence shortcut)
{
    QAction* action = menu ? menu->addAction(caption) : menuBar()->addAction(caption);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    action->setEnabled(name == u"Exit");
    return action;
}

void MainWindow::startUp()
{
    m_timer1->stop();
    WorkingCopy::open(m_document);
    m_timer1->start();
    setWindowTitle(mainWindowTitle());
    statusBar()->showMessage(tr("Working copy: %1").arg(WorkingPaths::workingFolder()));
}

void MainWindow::Timer1_Timer()
{
    guarded([this] {
        WorkingCopy::save(m_document);
        statusBar()->showMessage(tr("Working copy saved at %1").arg(QTime::currentTime().toString(u"HH:mm")));
    });
}

void MainWindow::Exit_Click()
{
    guarded([this] { close(); });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    guarded([this] { shutDown(); });
    event->accept();
}

void MainWindow::shutDown()
{
    m_timer1->stop();
    WorkingCopy::save(m_document);
    closeOtherWindows();
}

void MainWindow::closeOtherWindows()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this && window->isVisible()) {
            window->close();
        }
    }
}
