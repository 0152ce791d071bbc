#pragma once

#include <QObject>
#include <QString>
#include <QtGlobal>

// The named child of parent. A missing one ends the test with a message naming it, in every build:
// a renamed widget is reported, not dereferenced.
template<typename Child>
Child* requireChild(const QObject& parent, const QString& name)
{
    auto* child = parent.findChild<Child*>(name);
    if (!child) {
        qFatal("no %s named %s", Child::staticMetaObject.className(), qPrintable(name));
    }
    return child;
}
