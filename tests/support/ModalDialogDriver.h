#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

// Acts on the next modal dialog from inside the event loop the dialog runs, so that a test can click
// a button that opens a dialog with exec() and carry on. A dialog the action leaves open is rejected,
// so that no test ever waits on it. Pending looks are dropped with the driver.
class ModalDialogDriver
{
public:
    void onNextDialog(std::function<void(QDialog&)> action)
    {
        m_action = std::move(action);
        m_acted = false;
        m_leftOpen = false;
        lookForDialog(100);
    }

    bool acted() const { return m_acted; }
    bool leftOpen() const { return m_leftOpen; }

private:
    void lookForDialog(int triesLeft)
    {
        QTimer::singleShot(0, &m_context, [this, triesLeft] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) {
                if (triesLeft > 0) {
                    lookForDialog(triesLeft - 1);
                }
                return;
            }
            m_acted = true;
            m_action(*dialog);
            if (QApplication::activeModalWidget() == dialog) {
                m_leftOpen = true;
                dialog->reject();
            }
        });
    }

    QObject m_context;
    std::function<void(QDialog&)> m_action;
    bool m_acted = false;
    bool m_leftOpen = false;
};
