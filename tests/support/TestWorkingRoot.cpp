#include "TestWorkingRoot.h"

#include <QFile>

#include <stdexcept>

TestWorkingRoot::TestWorkingRoot()
    : m_previous(qgetenv("QUORVEL_ROOT"))
{
    if (!m_dir.isValid()) {
        throw std::runtime_error("cannot make a temporary working root");
    }
    qputenv("QUORVEL_ROOT", QFile::encodeName(m_dir.path()));
}

TestWorkingRoot::~TestWorkingRoot()
{
    qputenv("QUORVEL_ROOT", m_previous);
}

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path.toStdString());
    }
    return file.readAll();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}
