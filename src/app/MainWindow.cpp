#include "MainWindow.h"

#include "appearance/BackgroundEffectsDialog.h"
#include "appearance/DefaultColorsDialog.h"
#include "catalogue/CataloguePanel.h"
#include "catalogue/ModifierPanel.h"
#include "catalogue/ProductImport.h"
#include "designer/PageView.h"
#include "document/NumberText.h"
#include "document/Project.h"
#include "document/WorkingCopy.h"
#include "document/WorkingPaths.h"
#include "link/DravlinkLibrary.h"
#include "link/MenuCheckWindow.h"
#include "link/ReceptionWindow.h"
#include "link/RunShell.h"
#include "link/SendDialog.h"
#include "printing/PrintDialog.h"
#include "texts/EditLineDialog.h"
#include "texts/GroupTitleDialog.h"
#include "texts/TranslationServiceDialog.h"
#include "texts/TranslationTestDialog.h"
#include "texts/WebTranslationClient.h"
#include "ui/BusyCursor.h"
#include "ui/ChangeNames.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>
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

// Holds the autosave back while a dialog is open, so that a tick cannot move the document to the
// working folder under the user's choice; the timer runs again however the handler ends.
class AutosavePause
{
public:
    explicit AutosavePause(QTimer* timer)
        : m_timer(timer)
    {
        m_timer->stop();
    }
    ~AutosavePause() { m_timer->start(); }
    AutosavePause(const AutosavePause&) = delete;
    AutosavePause& operator=(const AutosavePause&) = delete;

private:
    QTimer* m_timer;
};

// Holds the command back while its tool runs, so that it cannot be started twice, and says on the status
// bar what the designer waits for.
class UpgradeToolWait
{
public:
    UpgradeToolWait(QAction* command, QStatusBar* statusBar)
        : m_command(command)
        , m_statusBar(statusBar)
    {
        m_command->setEnabled(false);
        m_statusBar->showMessage(MainWindow::tr("Waiting for the firmware upgrade tool to finish"));
    }
    ~UpgradeToolWait()
    {
        m_statusBar->clearMessage();
        m_command->setEnabled(true);
    }
    UpgradeToolWait(const UpgradeToolWait&) = delete;
    UpgradeToolWait& operator=(const UpgradeToolWait&) = delete;

private:
    QAction* m_command;
    QStatusBar* m_statusBar;
};

} // namespace

MainWindow::MainWindow(UserPrompts& prompts, QWidget* parent)
    : QMainWindow(parent)
    , GuardedHandlers(prompts)
    , m_history(m_document, WorkingPaths::workingRoot())
    , m_link(std::make_unique<DravlinkLibrary>())
    , m_autosaveTimer(new QTimer(this))
    , m_translator(std::make_unique<WebTranslationClient>())
{
    setObjectName(QStringLiteral("MainWindow"));
    buildPanels();
    buildMenuBar();

    m_autosaveTimer->setObjectName(QStringLiteral("Timer1"));
    m_autosaveTimer->setInterval(AutosaveIntervalMs);
    connect(m_autosaveTimer, &QTimer::timeout, this, &MainWindow::Timer1_Timer);

    m_saveWarning = new QLabel(this);
    m_saveWarning->setObjectName(QStringLiteral("SaveWarning"));
    m_saveWarning->setStyleSheet(QStringLiteral("QLabel { color: #b00020; font-weight: bold; }"));
    m_saveWarning->hide();
    statusBar()->addPermanentWidget(m_saveWarning);

    guarded([this] { startUp(); });
    // Undoing stops at the menu the working copy held.
    m_history.reset();
    HandlerGuard::setObserver(this);
    updateUndoActions();
}

MainWindow::~MainWindow()
{
    HandlerGuard::setObserver(nullptr);
    // Closing the window while it is destroyed takes the focus off a row, which would commit the row
    // into a document that is already gone: the row handlers go first.
    delete m_rowHandlers;
    // The reception window works on the link, which goes with the members before the child windows.
    delete m_receptionWindow;
}

void MainWindow::buildPanels()
{
    auto* central = new QWidget(this);
    auto* layout = new QHBoxLayout(central);
    m_catalogue = new CataloguePanel(m_document, m_prompts, central);
    m_pageView = new PageView(m_document, m_prompts);
    // On a small screen the page scrolls instead of squeezing its rows.
    auto* pageArea = new QScrollArea(central);
    pageArea->setFrameShape(QFrame::NoFrame);
    pageArea->setWidget(m_pageView);
    pageArea->setMinimumWidth(std::min(m_pageView->sizeHint().width(), 640));
    pageArea->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_modifiers = new ModifierPanel(m_document, m_prompts, *m_catalogue, central);
    layout->addWidget(m_catalogue);
    layout->addWidget(pageArea, 1);
    layout->addWidget(m_modifiers);
    setCentralWidget(central);
    // Room for the whole page beside the two panels, as far as the screen allows.
    const int frame = 4 * layout->spacing() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QSize wanted(m_catalogue->sizeHint().width() + m_pageView->sizeHint().width()
            + m_modifiers->sizeHint().width() + frame,
        m_pageView->sizeHint().height() + 3 * frame);
    resize(wanted.boundedTo(screen()->availableGeometry().size()));
    m_rowHandlers = new RowHandlers(m_document, m_prompts, *m_pageView, *m_catalogue, *m_modifiers, this);
    connect(m_rowHandlers, &RowHandlers::lineEditorRequested, this, &MainWindow::openLineEditor);
    connect(m_rowHandlers, &RowHandlers::groupTitleEditorRequested, this, &MainWindow::openGroupTitleEditor);
    const auto refresh = [this] { guarded([this] { Refresh_Page(); }); };
    connect(m_catalogue, &CataloguePanel::refreshRequested, this, refresh);
    connect(m_modifiers, &ModifierPanel::refreshRequested, this, refresh);
    // Picking a product in the catalogue shows its modifier lists.
    connect(m_catalogue, &CataloguePanel::entryPicked, m_modifiers, &ModifierPanel::selectProduct);
    // While the menu is designed the modifier lists give the page their room.
    connect(m_pageView, &PageView::workModeChanged, m_modifiers, &QWidget::setHidden);
    connect(m_pageView, &PageView::backgroundDialogRequested, this, &MainWindow::showBackgroundEffects);
}

void MainWindow::buildMenuBar()
{
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    addMenuItem(
        file, QStringLiteral("Load"), QStringLiteral("&Load"), &MainWindow::Load_Click, QKeySequence::Open);
    addMenuItem(
        file, QStringLiteral("Save"), QStringLiteral("&Save"), &MainWindow::Save_Click, QKeySequence::Save);
    addMenuItem(
        file, QStringLiteral("New"), QStringLiteral("&New"), &MainWindow::New_Click, QKeySequence::New);
    file->addSeparator();
    addMenuItem(file, QStringLiteral("Print"), QStringLiteral("&Print"), &MainWindow::Print_Click,
        QKeySequence::Print);
    addMenuItem(file, QStringLiteral("Colors"), QStringLiteral("&Colors"), &MainWindow::Colors_Click);
    addMenuItem(file, QStringLiteral("TranslationService"), QStringLiteral("&Translation Service..."),
        &MainWindow::TranslationService_Click);
    addMenuItem(file, QStringLiteral("TestTranslation"), QStringLiteral("T&est Translation..."),
        &MainWindow::TestTranslation_Click);
    addMenuItem(file, QStringLiteral("CheckMenu"), QStringLiteral("Check &Menu"),
        &MainWindow::CheckMenu_Click, Qt::Key_F7);
    file->addSeparator();
    addMenuItem(
        file, QStringLiteral("Exit"), QStringLiteral("E&xit"), &MainWindow::Exit_Click, QKeySequence::Quit);

    QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
    m_undo = addMenuItem(edit, QStringLiteral("EditUndo"), QStringLiteral("Undo"),
        &MainWindow::EditUndo_Click, QKeySequence::Undo);
    m_redo
        = addMenuItem(edit, QStringLiteral("EditRedo"), QStringLiteral("Redo"), &MainWindow::EditRedo_Click);
    m_redo->setShortcuts(
        { QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y) });

    QMenu* import = menuBar()->addMenu(QStringLiteral("&Import"));
    addMenuItem(import, QStringLiteral("ImportFromDll"), QStringLiteral("Import From &Last Sended Plus"),
        &MainWindow::ImportFromDll_Click);
    addMenuItem(import, QStringLiteral("ImportFenwarXls"), QStringLiteral("Import From &Fenwar ( XLS)"),
        &MainWindow::ImportFenwarXls_Click);
    addMenuItem(import, QStringLiteral("ImportFromXls"), QStringLiteral("Import From &XLS"),
        &MainWindow::ImportFromXls_Click);
    addMenuItem(import, QStringLiteral("ImportCSV"), QStringLiteral("Import From &CSV"),
        &MainWindow::ImportCSV_Click);

    // Send, Receive and Upgrade Firmware act straight from the menu bar.
    addMenuItem(nullptr, QStringLiteral("SendAll"), QStringLiteral("&Send"), &MainWindow::SendAll_Click);
    addMenuItem(nullptr, QStringLiteral("Receive"), QStringLiteral("&Receive"), &MainWindow::Receive_Click);
    m_upgradeFirmware = addMenuItem(nullptr, QStringLiteral("UpgradeFirmware"),
        QStringLiteral("&Upgrade Firmware"), &MainWindow::UpgradeFirmware_Click);
}

QAction* MainWindow::addMenuItem(
    QMenu* menu, const QString& name, const QString& caption, Handler handler, const QKeySequence& shortcut)
{
    QAction* action = menu ? menu->addAction(caption) : menuBar()->addAction(caption);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, [this, action, handler] {
        nameChangeAfter(action);
        (this->*handler)();
    });
    return action;
}

void MainWindow::startUp()
{
    m_autosaveTimer->stop();
    WorkingCopy::open(m_document);
    m_autosaveTimer->start();
    Refresh_Page();
    setWindowTitle(mainWindowTitle());
    statusBar()->showMessage(tr("Working copy: %1").arg(WorkingPaths::workingFolder()));
}

void MainWindow::Refresh_Page()
{
    m_modifiers->rebuildLists();
    m_catalogue->rebuildPluList();
    m_pageView->Update_Page();
}

void MainWindow::Update_Page()
{
    m_pageView->Update_Page();
}

void MainWindow::showBackgroundEffects(int side)
{
    HandlerGuard::nameChange(QStringLiteral("Background effects"));
    m_side = side;
    guarded([this] {
        BackgroundEffectsDialog dialog(
            m_document, m_pageView->currentPage(), m_side, m_pageView->sideArea(m_side), m_prompts, this);
        dialog.exec();
        Refresh_Page();
    });
}

void MainWindow::Print_Click()
{
    guarded([this] {
        PrintDialog dialog(
            m_document, [this] { return m_pageView->currentPage(); }, m_prompts, this);
        dialog.exec();
    });
}

void MainWindow::Colors_Click()
{
    guarded([this] {
        DefaultColorsDialog dialog(m_document, m_prompts, this);
        dialog.exec();
        Update_Page();
    });
}

void MainWindow::Timer1_Timer()
{
    guarded([this] {
        if (showSaveOutcome(WorkingCopy::save(m_document), Asking::OncePerFolder)) {
            statusBar()->showMessage(
                tr("Working copy saved at %1").arg(QTime::currentTime().toString(u"HH:mm")));
        }
    });
}

void MainWindow::Load_Click()
{
    guarded([this] {
        const AutosavePause pause(m_autosaveTimer);
        const QString path = m_prompts.askOpenFile(QStringLiteral("*.QV1"));
        if (path.isEmpty()) {
            return;
        }
        const BusyCursor busy;
        startNewDocument();
        Project::open(m_document, path);
        Refresh_Page();
        statusBar()->showMessage(tr("Opened %1").arg(QDir::toNativeSeparators(path)));
    });
}

void MainWindow::Save_Click()
{
    guarded([this] {
        const AutosavePause pause(m_autosaveTimer);
        // Saving points the document at its file; that is nothing to undo.
        HandlerGuard::keepOutOfHistory();
        const QString path = m_prompts.askSaveFile(QStringLiteral("*.QV1"));
        if (path.isEmpty()) {
            return;
        }
        WriteFailures failures;
        {
            const BusyCursor busy;
            failures = Project::save(m_document, path);
        }
        if (showSaveOutcome(failures, Asking::Always)) {
            statusBar()->showMessage(
                tr("Saved %1").arg(QDir::toNativeSeparators(m_document.FilePrefix + QStringLiteral(".QV1"))));
        }
    });
}

void MainWindow::New_Click()
{
    guarded([this] { startNewDocument(); });
}

// The working folder's files, pictures included, are kept for as long as the change can be undone.
void MainWindow::startNewDocument()
{
    m_modifiers->clearLists();
    m_catalogue->clearPluList();
    const QString keepIn = m_history.newKeepingFolder();
    m_history.keepFiles(WorkingPaths::workingFolder(), keepIn, Project::clear(m_document, keepIn));
    m_pageView->setCurrentPage(1);
    m_pageView->Update_Page();
    m_pageView->focusRow(0);
}

// Runs one import with the designer's New; the lists are rebuilt when the catalogue was replaced.
template<typename Import>
void MainWindow::importProducts(Import&& import)
{
    const BusyCursor busy;
    ProductImport products(m_document, [this] { startNewDocument(); });
    if (import(products)) {
        Refresh_Page();
    }
}

void MainWindow::ImportFromDll_Click()
{
    guarded([this] { importProducts([](ProductImport& products) { return products.fromLastSent(); }); });
}

void MainWindow::ImportFenwarXls_Click()
{
    guarded([this] {
        const QString path = m_prompts.askOpenFile(QStringLiteral("FAMI.XLS"));
        if (!path.isEmpty()) {
            importProducts([&path](ProductImport& products) { return products.fromBackOffice(path); });
        }
    });
}

void MainWindow::ImportFromXls_Click()
{
    guarded([this] {
        m_prompts.showMessage(
            QStringLiteral("Import Data from XLS $Sheet1$, Table [PLUCODE][DESCRIPTION][PRICE]"));
        const QString path = m_prompts.askOpenFile(QStringLiteral("DATA.XLS"));
        if (!path.isEmpty()) {
            importProducts([&path](ProductImport& products) { return products.fromPluSheet(path); });
        }
    });
}

void MainWindow::ImportCSV_Click()
{
    guarded([this] {
        m_prompts.showMessage(QStringLiteral("Import Data from CSV, \"PLUCODE\",\"DESCRIPTION\",\"PRICE\""));
        const QString path = m_prompts.askOpenFile(QStringLiteral("*.csv"));
        if (!path.isEmpty()) {
            importProducts([&path](ProductImport& products) { return products.fromCsv(path); });
        }
    });
}

// The editors write into the document as the user edits; the page shows it once they are closed.
void MainWindow::openLineEditor(const LineEditRequest& request)
{
    HandlerGuard::nameChange(QStringLiteral("Edit Line"));
    guarded([&] {
        const LineEditing::Opening opening { m_pageView->currentPage(), request.row,
            m_pageView->frontRowText(request.row), m_pageView->frontRowTag(request.row), request.pluNumber,
            request.price, m_catalogue->selectedText() };
        EditLineDialog dialog(m_document, opening, *m_catalogue, *m_translator, m_prompts, this);
        dialog.exec();
        Update_Page();
    });
}

void MainWindow::openGroupTitleEditor(int row, const QString& backText)
{
    HandlerGuard::nameChange(QStringLiteral("Group Title"));
    guarded([&] {
        GroupTitleDialog dialog(
            m_document, m_pageView->currentPage(), row, backText, *m_translator, m_prompts, this);
        dialog.exec();
        Update_Page();
    });
}

// The working copy is what was sent last: the import of the last sent products reads it back. The Send
// dialog reads the modifier lists from it, so a working copy that could not be written is not sent.
void MainWindow::SendAll_Click()
{
    guarded([this] {
        WriteFailures failures;
        {
            const BusyCursor busy;
            failures = WorkingCopy::save(m_document);
        }
        if (!showSaveOutcome(failures, Asking::Always)) {
            return;
        }
        // What the terminals would get wrong is shown first, with the choice to send anyway.
        if (runMenuCheck(true) == 0) {
            openSendDialog();
        }
    });
}

void MainWindow::openSendDialog()
{
    showOnce(m_sendDialog, [this] { return new SendDialog(m_document, *m_link, m_prompts, this); });
}

void MainWindow::CheckMenu_Click()
{
    guarded([this] { runMenuCheck(false); });
}

// Lists what the check finds; shows the list when it was asked for or found anything.
qsizetype MainWindow::runMenuCheck(bool beforeSending)
{
    MenuCheckWindow* window = checkWindow();
    const qsizetype found = window->refresh(beforeSending);
    if (found > 0 || !beforeSending) {
        showOnce(m_checkWindow, [window] { return window; });
    }
    return found;
}

MenuCheckWindow* MainWindow::checkWindow()
{
    if (!m_checkWindow) {
        m_checkWindow = new MenuCheckWindow(m_document, this);
        m_checkWindow->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_checkWindow, &MenuCheckWindow::rowRequested, this, &MainWindow::showRow);
        connect(m_checkWindow, &MenuCheckWindow::sendAnywayRequested, this,
            [this] { guarded([this] { openSendDialog(); }); });
    }
    return m_checkWindow;
}

// A row named by the menu check, as the user counts pages and rows: from 1.
void MainWindow::showRow(int page, int row)
{
    guarded([&] {
        HandlerGuard::keepOutOfHistory();
        m_pageView->setCurrentPage(page);
        Update_Page();
        if (row > 0) {
            m_pageView->focusRow(row - 1);
        }
        activateWindow();
    });
}

// What the page shows after undoing is the document as it was; redrawing it writes back nothing new.
void MainWindow::EditUndo_Click()
{
    guarded([this] {
        HandlerGuard::keepOutOfHistory();
        m_history.undo();
        Refresh_Page();
    });
}

void MainWindow::EditRedo_Click()
{
    guarded([this] {
        HandlerGuard::keepOutOfHistory();
        m_history.redo();
        Refresh_Page();
    });
}

void MainWindow::handlerEnded(const HandlerGuard::Change& change)
{
    if (change.undoable) {
        m_history.record(change.name.isEmpty() ? tr("Change") : change.name, change.foldKey);
    } else {
        m_history.absorb();
    }
    updateUndoActions();
}

void MainWindow::updateUndoActions()
{
    m_undo->setEnabled(m_history.canUndo());
    m_undo->setText(m_history.canUndo() ? tr("Undo %1").arg(m_history.undoName()) : tr("Undo"));
    m_redo->setEnabled(m_history.canRedo());
    m_redo->setText(m_history.canRedo() ? tr("Redo %1").arg(m_history.redoName()) : tr("Redo"));
}

void MainWindow::Exit_Click()
{
    guarded([this] { close(); });
}

void MainWindow::UpgradeFirmware_Click()
{
    guarded([this] {
        const UpgradeToolWait wait(m_upgradeFirmware, statusBar());
        // Quoted, so that a designer installed in a folder with blanks finds its tool. The tool reports its
        // own outcome to the user; its exit code is not acted on.
        RunShell(
            QString(u'"' + QCoreApplication::applicationDirPath() + QStringLiteral("/UpgradeOrvik.exe\"")));
    });
}

void MainWindow::Receive_Click()
{
    guarded([this] {
        showOnce(m_receptionWindow, [this] { return new ReceptionWindow(*m_link, m_prompts, this); });
    });
}

void MainWindow::TranslationService_Click()
{
    guarded([this] { TranslationServiceDialog(this).exec(); });
}

void MainWindow::TestTranslation_Click()
{
    guarded([this] { TranslationTestDialog(m_prompts, this).exec(); });
}

// One window of a kind at a time; asking again brings it to the front. It is deleted when closed.
template<typename Window, typename Make>
void MainWindow::showOnce(QPointer<Window>& window, Make&& make)
{
    if (!window) {
        window = make();
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    window->show();
    window->raise();
    window->activateWindow();
}

// A menu that could not be written stays open once, so that the user can save it elsewhere; closing
// again quits without it.
void MainWindow::closeEvent(QCloseEvent* event)
{
    bool closing = true;
    guarded([&] { closing = shutDown(); });
    if (closing) {
        event->accept();
    } else {
        event->ignore();
    }
}

bool MainWindow::shutDown()
{
    m_autosaveTimer->stop();
    const WriteFailures failures = WorkingCopy::save(m_document);
    if (!failures.isEmpty() && !m_keptOpenUnsaved) {
        m_keptOpenUnsaved = true;
        showSaveOutcome(failures, Asking::Always,
            tr("The window stays open so that you can save the menu elsewhere (File, Save); close it again "
               "to quit without saving."));
        m_autosaveTimer->start();
        return false;
    }
    closeOtherWindows();
    return true;
}

// A failure stays on the status line until a save succeeds. The autosave asks once while it keeps
// failing in the same folder, instead of every minute.
bool MainWindow::showSaveOutcome(const WriteFailures& failures, Asking asking, const QString& advice)
{
    if (failures.isEmpty()) {
        m_saveWarning->hide();
        m_saveWarning->clear();
        m_reportedSaveFolder.clear();
        return true;
    }
    const WriteFailure& first = failures.first();
    const QString folder = QDir::toNativeSeparators(QFileInfo(first.path).absolutePath());
    m_saveWarning->setText(tr("Not saved in %1: %2").arg(folder, first.reason));
    m_saveWarning->show();
    if (asking == Asking::Always || folder != m_reportedSaveFolder) {
        m_reportedSaveFolder = folder;
        const QString message = tr("The menu could not be saved in %1: %2.\nThe files saved there before are "
                                   "kept as they were.")
                                    .arg(folder, first.reason);
        m_prompts.showMessage(advice.isEmpty() ? message : message + u'\n' + advice);
    }
    return false;
}

void MainWindow::closeOtherWindows()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this && window->isVisible()) {
            window->close();
        }
    }
}
