#pragma once

#include "document/MenuDocument.h"

#include <QMainWindow>

class UserPrompts;
class QAction;
class QTimer;

// The designer's main window. It owns the one document of the run and keeps its working copy:
// loaded when the window opens, written every minute and when the window closes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(UserPrompts& prompts, QWidget* parent = nullptr);
    ~MainWindow() override;

    MenuDocument& document() { return m_document; }

public slots:
    void Timer1_Timer();
    void Exit_Click();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenuBar();
    QAction* addMenuItem(
        QMenu* menu, const QString& name, const QString& caption, QKeySequence shortcut = {});
    void startUp();
    void shutDown();
    void closeOtherWindows();

    template<typename Handler>
    void guarded(Handler&& handler);

    UserPrompts& m_prompts;
    MenuDocument m_document;
    QTimer* m_timer1;
};
