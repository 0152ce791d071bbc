#pragma once

#include "designer/RowHandlers.h"
#include "document/MenuDocument.h"
#include "document/SafeWrite.h"
#include "document/UndoHistory.h"
#include "ui/GuardedHandlers.h"
#include "ui/HandlerGuard.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class CataloguePanel;
class MenuCheckWindow;
class ModifierPanel;
class PageView;
class QAction;
class QLabel;
class QTimer;
class RadioLink;
class SendDialog;
class Translator;
class ReceptionWindow;

// The designer's main window: the catalogue, the current page and the modifier lists, with the menu
// bar. It owns the one document of the run and keeps its working copy: loaded when the window opens,
// written every minute and when the window closes. Every change a handler makes is a step of its undo
// history.
class MainWindow : public QMainWindow, private GuardedHandlers, private HandlerGuard::Observer
{
    Q_OBJECT

public:
    explicit MainWindow(UserPrompts& prompts, QWidget* parent = nullptr);
    ~MainWindow() override;

    MenuDocument& document() { return m_document; }

    // Lists the catalogue and the modifier lists again, then redraws the page.
    void Refresh_Page();
    void Update_Page();

    // The page side the Background effects dialog works on: 1 front, 2 back.
    int side() const { return m_side; }

public slots:
    void Timer1_Timer();
    void Load_Click();
    void Save_Click();
    void New_Click();
    void ImportFromDll_Click();
    void ImportFenwarXls_Click();
    void ImportFromXls_Click();
    void ImportCSV_Click();
    void Exit_Click();
    void EditUndo_Click();
    void EditRedo_Click();
    void SendAll_Click();
    void CheckMenu_Click();
    void Print_Click();
    void Colors_Click();
    // Runs the firmware upgrade tool beside the designer and waits for it to end.
    void UpgradeFirmware_Click();
    void Receive_Click();
    void TranslationService_Click();
    void TestTranslation_Click();
    // Where a click on a page side ends: the side is kept for the Background effects dialog.
    void showBackgroundEffects(int side);

    // Every way of opening a row in its editor ends here.
    void openLineEditor(const LineEditRequest& request);
    void openGroupTitleEditor(int row, const QString& backText);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    using Handler = void (MainWindow::*)();
    // Whether a failed save asks the user even when the autosave told them about that folder already.
    enum class Asking
    {
        Always,
        OncePerFolder
    };

    void buildMenuBar();
    void buildPanels();
    QAction* addMenuItem(QMenu* menu, const QString& name, const QString& caption, Handler handler,
        const QKeySequence& shortcut = {});
    void startUp();
    void startNewDocument();
    template<typename Import>
    void importProducts(Import&& import);
    // Writes the working copy and closes the other windows; false when the window should stay open.
    bool shutDown();
    bool showSaveOutcome(const WriteFailures& failures, Asking asking, const QString& advice = {});
    void handlerEnded(const HandlerGuard::Change& change) override;
    void updateUndoActions();
    void closeOtherWindows();
    MenuCheckWindow* checkWindow();
    qsizetype runMenuCheck(bool beforeSending);
    void openSendDialog();
    void showRow(int page, int row);

    template<typename Window, typename Make>
    void showOnce(QPointer<Window>& window, Make&& make);

    MenuDocument m_document;
    UndoHistory m_history;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_upgradeFirmware = nullptr;
    std::unique_ptr<RadioLink> m_link;
    QPointer<SendDialog> m_sendDialog;
    QPointer<MenuCheckWindow> m_checkWindow;
    QPointer<ReceptionWindow> m_receptionWindow;
    QTimer* m_autosaveTimer;
    CataloguePanel* m_catalogue = nullptr;
    PageView* m_pageView = nullptr;
    ModifierPanel* m_modifiers = nullptr;
    RowHandlers* m_rowHandlers = nullptr;
    std::unique_ptr<Translator> m_translator;
    int m_side = 1;
    QLabel* m_saveWarning = nullptr;
    QString m_reportedSaveFolder; // the folder the user was last told a save failed in
    bool m_keptOpenUnsaved = false; // closing once failed to write the working copy
};
