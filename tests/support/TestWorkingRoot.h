#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// Points the working root at a fresh temporary folder for as long as it lives.
class TestWorkingRoot
{
public:
    TestWorkingRoot();
    ~TestWorkingRoot();
    TestWorkingRoot(const TestWorkingRoot&) = delete;
    TestWorkingRoot& operator=(const TestWorkingRoot&) = delete;

    QString path() const { return m_dir.path(); }
    QString workingFolder() const { return path() + QStringLiteral("/temp_orvik"); }
    QString workingFile(const QString& suffix) const
    {
        return workingFolder() + QStringLiteral("/temp") + suffix;
    }

private:
    QTemporaryDir m_dir;
    QByteArray m_previous;
};

QByteArray readBytes(const QString& path);
void writeBytes(const QString& path, const QByteArray& bytes);
