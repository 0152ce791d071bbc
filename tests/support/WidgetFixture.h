#pragma once

#include "app/MainWindow.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <memory>

// What the widget tests share. The look-ups answer false after a warning naming what is missing, so
// that inside QVERIFY a renamed widget fails the test by its name, in every build, and is never
// dereferenced:
//     QPushButton* add = nullptr;
//     QVERIFY(find(panel, u"Command16"_s, add));
template<typename Child>
[[nodiscard]] bool find(const QObject& parent, const QString& name, Child*& child)
{
    child = parent.findChild<Child*>(name);
    if (!child) {
        qWarning("no %s named %s", Child::staticMetaObject.className(), qPrintable(name));
    }
    return child != nullptr;
}

// The text of the named box or label; for a missing one a text naming it, which no comparison expects.
inline QString shownText(const QObject& parent, const QString& name)
{
    if (const auto* box = parent.findChild<QLineEdit*>(name)) {
        return box->text();
    }
    if (const auto* label = parent.findChild<QLabel*>(name)) {
        return label->text();
    }
    return QStringLiteral("<no box or label named ") + name + u'>';
}

// Triggers the named action or clicks the named button.
[[nodiscard]] inline bool trigger(const QObject& parent, const QString& name)
{
    if (auto* action = parent.findChild<QAction*>(name)) {
        action->trigger();
        return true;
    }
    QAbstractButton* button = nullptr;
    if (!find(parent, name, button)) {
        return false;
    }
    button->click();
    return true;
}

// The main window over a working root of its own, its questions answered from a script.
struct WindowFixture
{
    TestWorkingRoot root;
    ScriptedPrompts prompts;
    std::unique_ptr<MainWindow> window;

    // Starts the window, or starts it again over what the last one left; false when it never showed.
    [[nodiscard]] bool startWindow()
    {
        window.reset();
        window = std::make_unique<MainWindow>(prompts);
        window->show();
        return QTest::qWaitForWindowExposed(window.get());
    }
};
